#include "ole/server/ControlObject.h"

#include "ole/pages/ScratchControl.h"

namespace vantik {

namespace {

// The interface that a face shows under an identifier. A base of an interface leads to the interface.
struct Offer {
    const IID& Identifier;
    IUnknown* Shown;
};

template <class Interface, class FaceType>
Offer Show(FaceType& face) noexcept {
    return {__uuidof(Interface), static_cast<Interface*>(&face)};
}

} // namespace

HRESULT ControlObject::Create(IUnknown* outer, REFIID iid, void** object, const Resolution& screen) {
    const auto made = ComPtr<ControlObject>::Adopt(new ControlObject(outer, screen));
    return made->QueryInterface(iid, object);
}

ComPtr<IUnknown> ControlObject::CreateSilent() {
    const auto made = ComPtr<ControlObject>::Adopt(new ControlObject(nullptr, Resolution::OfScreen()));
    made->control_.IsSilent = true;
    ComPtr<IUnknown> control;
    Check(made->QueryInterface(IID_IUnknown, control.PutVoid()));
    return control;
}

ComPtr<IUnknown> NewControl() { return ControlObject::CreateSilent(); }

ControlObject::ControlObject(IUnknown* outer, const Resolution& screen)
    : control_(outer ? *outer : *this, activation_, screen) {}

// Everything is still whole while the window goes.
ControlObject::~ControlObject() { activation_.End(); }

STDMETHODIMP_(ULONG) ControlObject::Release() noexcept {
    ULONG count = references_;
    do
        if (count == 1 && EndsElsewhere()) return 0;
    while (!references_.compare_exchange_weak(count, count - 1));
    if (count > 1) return count - 1;
    // What is said to the host while the control ends may take and give back references: none of these is the last.
    references_ = 1;
    delete this;
    return 0;
}

// An inner object cannot outlive the outer one: there the window alone stays behind.
bool ControlObject::EndsElsewhere() noexcept {
    return &control_.Controlling == this && activation_.KeepsWithWindow(*this);
}

STDMETHODIMP ControlObject::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    IUnknown* found = iid == IID_IUnknown ? this : Find(iid);
    *object = found;
    if (!found) return E_NOINTERFACE;
    found->AddRef(); // of the object that the interface belongs to, which may be the outer one
    return S_OK;
}

IUnknown* ControlObject::Find(REFIID iid) noexcept {
    const Offer offers[] = {
        Show<::_VantikFrameTab>(automation_),
        Show<IDispatch>(automation_),
        Show<IOleObject>(oleObject_),
        Show<IOleControl>(oleControl_),
        Show<IOleWindow>(inPlaceObject_),
        Show<IOleInPlaceObject>(inPlaceObject_),
        Show<IOleInPlaceActiveObject>(inPlaceActiveObject_),
        Show<IViewObject>(view_),
        Show<IViewObject2>(view_),
        Show<IViewObjectEx>(view_),
        Show<IDataObject>(data_),
        Show<IPersist>(streamInit_),
        Show<IPersistStreamInit>(streamInit_),
        Show<IPersistPropertyBag>(propertyBag_),
        Show<IPersistStorage>(storage_),
        Show<IConnectionPointContainer>(connections_),
        Show<IProvideClassInfo>(classInfo_),
        Show<IProvideClassInfo2>(classInfo_),
        Show<ISupportErrorInfo>(errorSupport_),
        Show<ISpecifyPropertyPages>(propertyPages_),
        Show<IPerPropertyBrowsing>(propertyBrowsing_),
        Show<IQuickActivate>(quickActivate_),
    };
    for (const Offer& offer : offers)
        if (offer.Identifier == iid) return offer.Shown;
    return nullptr;
}

} // namespace vantik
