// The door for screen readers: what the control's window answers when it is asked for its object.
#pragma once

#include "ole/accessible/Link.h"

namespace vantik {

class Accessibility {
public:
    explicit Accessibility(Control& control) noexcept : control_(control) {}
    ~Accessibility();
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;

    // The answer to WM_GETOBJECT for the client area.
    LRESULT Answer(WPARAM wParam);

private:
    Control& control_;
    std::shared_ptr<Link> link_; // from the first question on
};

} // namespace vantik
