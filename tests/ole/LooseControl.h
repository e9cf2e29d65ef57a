// The built control by itself: loaded from its file, without a site or a window, as a script creates it.
#pragma once

#include <VantikFrameTabProject.h>

#include "host/Automation.h"
#include "host/BuiltControl.h"
#include "host/ControlModule.h"
#include "host/OleApartment.h"

namespace vantik {

class LooseControl {
public:
    LooseControl() : control_(module_.Create()), Tab(QueryFor<::_VantikFrameTab>(control_.Get())) {}

    ControlModule& Module() noexcept { return module_; }
    IUnknown* Object() const noexcept { return control_.Get(); }
    IDispatch& Dispatch() const noexcept { return *Tab.Get(); }
    template <class Interface>
    ComPtr<Interface> As() const {
        return QueryFor<Interface>(control_.Get());
    }

    // Ends the control; the module stays.
    void Release() {
        Tab.Reset();
        control_.Reset();
    }

private:
    OleApartment apartment_;
    ControlModule module_{FindBuiltControl()};
    ComPtr<IUnknown> control_;

public:
    ComPtr<::_VantikFrameTab> Tab;
};

} // namespace vantik
