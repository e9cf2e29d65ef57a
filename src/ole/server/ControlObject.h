// The COM object: one identity, its reference count, and the faces that it shows.
#pragma once

#include <atomic>

#include "ole/com/Module.h"
#include "ole/control/Control.h"
#include "ole/faces/Automation.h"
#include "ole/faces/ConnectionFaces.h"
#include "ole/faces/DataFace.h"
#include "ole/faces/InPlaceFace.h"
#include "ole/faces/OleControlFace.h"
#include "ole/faces/OleObjectFace.h"
#include "ole/faces/PropertyBagFace.h"
#include "ole/faces/PropertyBrowsingFace.h"
#include "ole/faces/PropertyPages.h"
#include "ole/faces/QuickActivateFace.h"
#include "ole/faces/StreamFaces.h"
#include "ole/faces/ViewFace.h"
#include "ole/window/Activation.h"

namespace vantik {

// The IUnknown that this class is itself never delegates: it is what an outer object keeps. Everything else leads to the
// controlling object, which is the outer one where there is one.
class ControlObject final : public IUnknown {
public:
    static HRESULT Create(IUnknown* outer, REFIID iid, void** object,
                          const Resolution& screen = Resolution::OfScreen());
    static ComPtr<IUnknown> CreateSilent(); // which shows no messages

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;

private:
    ControlObject(IUnknown* outer, const Resolution& screen);
    ~ControlObject();

    IUnknown* Find(REFIID iid) noexcept;
    bool EndsElsewhere() noexcept; // the last reference passes on to who may end the control

    ModuleReference module_;
    std::atomic<ULONG> references_ = 1;

    Activation activation_{control_};
    Control control_;
    Automation automation_{control_};
    OleObjectFace oleObject_{control_, activation_};
    OleControlFace oleControl_{control_};
    InPlaceObjectFace inPlaceObject_{control_, activation_};
    InPlaceActiveObjectFace inPlaceActiveObject_{control_, activation_};
    ViewFace view_{control_};
    DataFace data_{control_};
    PropertyBagFace propertyBag_{control_};
    StreamInitFace streamInit_{control_};
    StorageFace storage_{control_};
    ConnectionContainerFace connections_{control_};
    ClassInfoFace classInfo_{control_.Controlling};
    ErrorSupportFace errorSupport_{control_.Controlling};
    PropertyPagesFace propertyPages_{control_.Controlling};
    PropertyBrowsingFace propertyBrowsing_{control_};
    QuickActivateFace quickActivate_{control_};
};

} // namespace vantik
