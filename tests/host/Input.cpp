#include "host/Input.h"

#include "host/MessageLoop.h"

namespace vantik {

namespace {

LPARAM PointParameter(POINT point) noexcept { return MAKELPARAM(point.x, point.y); }

POINT ToScreen(HWND window, POINT point) noexcept {
    ClientToScreen(window, &point);
    return point;
}

// Lets go first of what waits, so that messages keep the order in which the user made them.
void Deliver(HostForm& form, UINT message, WPARAM wParam, LPARAM lParam) {
    PumpMessages(form);
    SendMessageW(form.ControlWindow(), message, wParam, lParam);
    PumpMessages(form);
}

// Down and up.
void PostKey(HostForm& form, HWND window, WORD key) {
    const auto scanCode = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    const LPARAM down = scanCode << 16 | 1;
    const LPARAM up = down | static_cast<LPARAM>(KF_UP | KF_REPEAT) << 16;
    PostMessageW(window, WM_KEYDOWN, key, down);
    PostMessageW(window, WM_KEYUP, key, up);
    PumpMessages(form);
}

} // namespace

// The real pointer goes along: a control may look where it stands.
void MovePointer(HostForm& form, POINT point) {
    const POINT screen = ToScreen(form.ControlWindow(), point);
    SetCursorPos(screen.x, screen.y);
    Deliver(form, WM_MOUSEMOVE, 0, PointParameter(point));
}

void PressButton(HostForm& form, POINT point) {
    MovePointer(form, point);
    Deliver(form, WM_LBUTTONDOWN, MK_LBUTTON, PointParameter(point));
}

void ReleaseButton(HostForm& form, POINT point) { Deliver(form, WM_LBUTTONUP, 0, PointParameter(point)); }

void PressKey(HostForm& form, WORD key) {
    if (!form.IsUIActive()) form.UIActivate();
    PostKey(form, form.ControlWindow(), key);
}

void TypeKey(HostForm& form, WORD key) { PostKey(form, GetFocus(), key); }

void TurnWheel(HostForm& form, int notches) {
    const WPARAM wParam = static_cast<WPARAM>(static_cast<UINT>(notches * WHEEL_DELTA) << 16);
    POINT pointer = {};
    GetCursorPos(&pointer);
    Deliver(form, WM_MOUSEWHEEL, wParam, PointParameter(pointer));
}

} // namespace vantik
