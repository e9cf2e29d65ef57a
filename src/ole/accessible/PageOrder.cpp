#include "ole/accessible/PageOrder.h"

#include "ole/accessible/Windows.h"

namespace vantik {

// Messages that are posted come before keys that the user has typed already. To ask the system first whether there is
// anything to arrange would cost more at every insertion than one message that finds nothing.
void PageOrder::ArrangeSoon() noexcept {
    const HWND window = control_.Place.Window();
    if (!isDue_ && window) isDue_ = PostMessageW(window, Due, 0, 0);
}

// A form under design keeps its windows as they are.
void PageOrder::Arrange() {
    isDue_ = false;
    const HWND window = control_.Place.Window();
    if (!window) return;
    if (!control_.Ambient.UserMode()) return stops_.GiveBack();
    stops_.Arrange(window);
    const HWND focused = FocusedChild(window);
    if (focused && !Shows(focused, ClientOnScreen(window))) SetFocus(window);
}

void PageOrder::End() noexcept {
    isDue_ = false;
    stops_.GiveBack();
}

} // namespace vantik
