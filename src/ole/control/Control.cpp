#include "ole/control/Control.h"

#include "ole/com/Identifiers.h"

namespace vantik {

Control::Control(IUnknown& controlling, ControlPlace& place, const Resolution& screen)
    : Controlling(controlling),
      Place(place),
      Size(screen),
      EventSinks(controlling, DIID___VantikFrameTab, IID_IDispatch),
      PropertySinks(controlling, IID_IPropertyNotifySink, IID_IPropertyNotifySink) {}

void Control::SetSite(IOleClientSite* site) {
    if (site == Site.Get()) return;
    // A host may take its site away without closing the control first.
    if (!site) Place.InPlaceDeactivate();
    Site.Set(site);
    Ambient.Changed(DISPID_UNKNOWN);
}

void Control::Resized() {
    Surface.Resize(Size.Pixels());
    if (Document.IsReady()) Engine.UserControl_Resize();
    ShowChanges();
}

void Control::ShowChanges() noexcept {
    if (Place.Window()) return Place.Watching().RowChanged();
    const auto data = QueryFor<IDataObject>(&Controlling);
    Advise.ViewChanged(data.Get());
}

Surface& Control::PaintedSurface() noexcept {
    Document.Need();
    Engine.UserControl_Paint();
    return Surface;
}

} // namespace vantik
