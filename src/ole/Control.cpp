#include "ole/Control.h"

#include "ole/Identifiers.h"

namespace vantik {

Control::Control(IUnknown& controlling, const Resolution& screen)
    : Controlling(controlling),
      Size(screen),
      EventSinks(controlling, DIID___VantikFrameTab, IID_IDispatch),
      PropertySinks(controlling, IID_IPropertyNotifySink, IID_IPropertyNotifySink) {}

// Everything is still whole while the window goes.
Control::~Control() { Activation.End(); }

void Control::SetSite(IOleClientSite* site) {
    if (site == Site.Get()) return;
    // A host may take its site away without closing the control first.
    if (!site) Activation.InPlaceDeactivate();
    Site.Set(site);
    Ambient.Changed(DISPID_UNKNOWN);
}

void Control::Resized() {
    Surface.Resize(Size.Pixels());
    if (Document.IsReady()) Engine.UserControl_Resize();
    ShowChanges();
}

void Control::ShowChanges() noexcept {
    if (Activation.Window()) return;
    const auto data = QueryFor<IDataObject>(&Controlling);
    Advise.ViewChanged(data.Get());
}

Surface& Control::PaintedSurface() noexcept {
    Document.Need();
    Engine.UserControl_Paint();
    return Surface;
}

} // namespace vantik
