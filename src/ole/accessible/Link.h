// What the objects that are given out know of the control: nothing any more once it is gone.
#pragma once

#include <memory>

#include "ole/accessible/SystemAccessibility.h"
#include "ole/control/Control.h"

namespace vantik {

class Link {
public:
    explicit Link(Control& control) noexcept : control_(&control) {}

    void Cut() noexcept { control_ = nullptr; }
    // Null without a window: nothing shows that could be told of.
    Control* Reached() const noexcept { return control_ && control_->Place.Window() ? control_ : nullptr; }

    const SystemAccessibility System;

private:
    Control* control_;
};

using SharedLink = std::shared_ptr<const Link>;

// The control during one call: whatever code of the host runs meanwhile, it outlives it. Raises CO_E_OBJNOTCONNECTED.
class Connected {
public:
    explicit Connected(const Link& link);

    Control* operator->() const noexcept { return &control_; }
    Control& operator*() const noexcept { return control_; }
    const ControlState& State() const noexcept { return control_.Engine.State(); }
    HWND Window() const noexcept { return control_.Place.Window(); }

private:
    Control& control_;
    ComPtr<IUnknown> alive_;
};

} // namespace vantik
