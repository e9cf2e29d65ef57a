#include "ole/window/KeyInput.h"

#include "ole/control/Control.h"
#include "ole/control/InputState.h"
#include "ole/window/Activation.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

bool IsWalkedFromOutside(HWND window) noexcept {
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) &&
           (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT);
}

// The window that knows what else has to be done when the focus moves: the default button, text that is selected.
HWND DialogAround(HWND window) noexcept {
    HWND dialog = GetParent(window);
    while (IsWalkedFromOutside(dialog)) dialog = GetParent(dialog);
    return dialog;
}

void FocusAsDialogsDo(HWND window) noexcept {
    SetFocus(window);
    if (SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) SendMessageW(window, EM_SETSEL, 0, -1);
}

// As dialogs do at a key of theirs: from the first one on the user wants to see where the keyboard is.
void ShowFocusCues(HWND window) noexcept {
    SendMessageW(window, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
}

} // namespace

bool KeyInput::Use(const Message& message) {
    const bool down = message.Number == WM_KEYDOWN;
    return (down && Down(message.WParam)) || host_.UseFromWindow(message) ||
           (down && EnterPage(message.WParam));
}

bool KeyInput::Translate(MSG& message) {
    const bool down = message.message == WM_KEYDOWN && message.hwnd == activation_.Window();
    return (down && Down(message.wParam)) || host_.UseFromLoop(message);
}

bool KeyInput::Down(WPARAM key) noexcept {
    if ((key != VK_LEFT && key != VK_RIGHT) || !TakesInput(control_)) return false;
    ShowFocusCues(activation_.Window());
    try {
        control_.Engine.UserControl_KeyDown(static_cast<std::int16_t>(key), ShiftState());
    } catch (...) {
        TellIfShortage();
        TellDebugger(u"on a key");
    }
    control_.ShowChanges();
    return true;
}

// With the shift key Tab leaves the control: its row comes first.
HWND KeyInput::NextFor(WPARAM key) const noexcept {
    return key == VK_TAB && ShiftState() == 0 ? activation_.NextStopOnPage() : nullptr;
}

// False for any other key, and where the page has nothing to go to.
bool KeyInput::EnterPage(WPARAM key) noexcept {
    const HWND window = activation_.Window(), next = NextFor(key);
    if (!next) return false;
    ShowFocusCues(window);
    SendMessageW(DialogAround(window), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    if (GetFocus() == window) FocusAsDialogsDo(next); // nobody there did
    return true;
}

LRESULT KeyInput::WantedOf(const MSG* message) const noexcept {
    const bool tab = message && message->message == WM_KEYDOWN && NextFor(message->wParam);
    return DLGC_WANTARROWS | (tab ? DLGC_WANTTAB : 0);
}

} // namespace vantik
