// How a control comes onto the form and leaves it.
#include "host/HostForm.h"

namespace vantik {

void HostForm::OpenNew() { Open(nullptr); }
void HostForm::OpenFrom(TextPropertyBag& bag) { Open(&bag); }

void HostForm::Open(TextPropertyBag* bag) {
    Close();
    try {
        CreateControl();
        const bool sited = ActivateQuickly();
        if (!sited && WantsSiteFirst()) GiveSite();
        if (bag) {
            const auto persistence = control_.As<IPersistPropertyBag>();
            if (!persistence) throw HostError("the control cannot be loaded from a property bag");
            Check(persistence->Load(bag, nullptr), "Loading the control");
        } else if (switches_.InitNew) {
            InitializeNew();
        }
        if (!sited && !WantsSiteFirst()) GiveSite();
        SetExtent();
        if (!sited) ConnectSinks();
        Show();
    } catch (...) {
        Close();
        throw;
    }
}

void HostForm::CreateControl() {
    control_ = module_.Create();
    if (!control_.As<IOleObject>()) throw HostError("the object is no control: it has no IOleObject");
}

bool HostForm::WantsSiteFirst() const {
    DWORD status = 0;
    control_.As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status);
    return switches_.SiteFirst && (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
}

void HostForm::GiveSite() { Check(control_.As<IOleObject>()->SetClientSite(site_.Get()), "SetClientSite"); }

bool HostForm::ActivateQuickly() {
    const auto activation = control_.As<IQuickActivate>();
    if (!activation || !switches_.QuickActivate) return false;
    const auto events = MakeCom<EventSink>(module_, handlers_.Event);
    QACONTAINER container = {};
    container.cbSize = sizeof container;
    container.pClientSite = site_.Get();
    container.pPropertyNotifySink = site_.Get();
    container.pUnkEventSink = events.Get();
    QACONTROL control = {};
    control.cbSize = sizeof control;
    Check(activation->QuickActivate(&container, &control), "QuickActivate");
    return true;
}

void HostForm::InitializeNew() {
    if (const auto bag = control_.As<IPersistPropertyBag>()) {
        Check(bag->InitNew(), "InitNew");
    } else if (const auto stream = control_.As<IPersistStreamInit>()) {
        Check(stream->InitNew(), "InitNew");
    }
}

HostForm::Connection HostForm::Connect(IUnknown* source, REFIID id, IUnknown* sink) {
    Connection connection;
    const auto points = QueryFor<IConnectionPointContainer>(source);
    if (points && SUCCEEDED(points->FindConnectionPoint(id, connection.Point.Put()))) {
        Check(connection.Point->Advise(sink, &connection.Cookie), "Advise");
    }
    return connection;
}

void HostForm::ConnectSinks() {
    const auto events = MakeCom<EventSink>(module_, handlers_.Event);
    IPropertyNotifySink* changes = site_.Get();
    connections_.push_back(Connect(control_.Get(), module_.EventsId(), events.Get()));
    connections_.push_back(Connect(control_.Get(), __uuidof(IPropertyNotifySink), changes));
}

void HostForm::DisconnectSinks() noexcept {
    for (const Connection& connection : connections_) {
        if (connection.Point) connection.Point->Unadvise(connection.Cookie);
    }
    connections_.clear();
}

void HostForm::Show() {
    const auto object = control_.As<IOleObject>();
    object->SetHostNames(layout_.Title.c_str(), layout_.ControlName.c_str());
    DoVerb(OLEIVERB_INPLACEACTIVATE);
}

void HostForm::SaveTo(TextPropertyBag& bag) {
    const auto persistence = control_.As<IPersistPropertyBag>();
    if (!persistence) throw HostError("the control cannot be saved to a property bag");
    Check(persistence->Save(&bag, TRUE, FALSE), "Saving the control");
}

// Everything is taken out of its field first: the control may call back while it goes.
void HostForm::Close() noexcept {
    windows_.clear();
    DisconnectSinks();
    const ComPtr<IUnknown> control = std::exchange(control_, nullptr);
    const ComPtr<IOleInPlaceObject> inPlace = std::exchange(inPlace_, nullptr);
    if (inPlace) inPlace->InPlaceDeactivate();
    if (const auto object = control.As<IOleObject>()) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    frame_->SetActiveObject(nullptr, nullptr);
    uiActive_ = false;
}

} // namespace vantik
