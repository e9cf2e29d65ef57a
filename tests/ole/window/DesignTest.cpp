// The control on a form that is being designed.
#include <doctest/doctest.h>

#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

struct DesignedControl : ReadControl {
    DesignedControl() {
        BeDesigned(true);
        InWindow->Events().Take();
    }

    void Edit() const { As<IOleObject>()->DoVerb(OLEIVERB_PRIMARY, nullptr, nullptr, 0, nullptr, nullptr); }
    POINT MiddleOf(std::size_t tab) const {
        const RECT place = Child(tab).Place();
        POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        ScreenToClient(Window(), &middle);
        return middle;
    }
    short ActiveAfterPress(POINT at) const {
        InWindow->Click(at);
        return Active();
    }
};

} // namespace

TEST_CASE("Under design a press on a bar shows its tab once the control is UI active, and raises nothing") {
    const DesignedControl control;
    CHECK(control.ActiveAfterPress(control.MiddleOf(2)) == 0); // the designer's own
    control.Edit();
    CHECK(control.ActiveAfterPress(control.MiddleOf(2)) == 2);
    CHECK(control.ActiveAfterPress(control.MiddleOf(1)) == 1);
    CHECK(control.ActiveAfterPress({100, 150}) == 1);
    CHECK(control.InWindow->Events().Take().empty());
    CHECK(control.Count() == 3); // close buttons do nothing
    control.As<IOleInPlaceObject>()->UIDeactivate();
    CHECK(control.ActiveAfterPress(control.MiddleOf(2)) == 1);
}

TEST_CASE(
    "Under design a press on a close button or with another button than the left one takes nothing away") {
    const DesignedControl control;
    control.Edit();
    const RECT bar = control.Child(2).Place();
    POINT corner = {bar.right - 6, bar.top + 6};
    ScreenToClient(control.Window(), &corner);
    CHECK(control.ActiveAfterPress(corner) == 2);
    CHECK(control.Count() == 3);
    const POINT at = control.MiddleOf(1);
    SendMessageW(control.Window(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(at.x, at.y));
    CHECK(control.Active() == 2);
}

} // namespace vantik
