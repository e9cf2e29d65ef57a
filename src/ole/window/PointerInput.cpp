#include "ole/window/PointerInput.h"

#include <windowsx.h>

#include <utility>

#include "ole/control/Control.h"
#include "ole/control/InputState.h"
#include "ole/window/Activation.h"
#include "ole/window/PointerPath.h"

namespace vantik {

namespace {

enum Button : std::int16_t { LeftButton = 1, RightButton = 2, MiddleButton = 4 };

struct Point {
    float X, Y; // twips
};

Point ToTwips(PixelPoint pixel, const Resolution& screen) noexcept {
    return {static_cast<float>(pixel.X * screen.WholeTwipsPerPixelX()),
            static_cast<float>(pixel.Y * screen.WholeTwipsPerPixelY())};
}

PixelPoint PixelOf(const Message& message) noexcept {
    return {GET_X_LPARAM(message.LParam), GET_Y_LPARAM(message.LParam)};
}

Point PositionOf(const Message& message, const Resolution& screen) noexcept {
    return ToTwips(PixelOf(message), screen);
}

std::int16_t HeldButtons(WPARAM keys) noexcept {
    const auto bit = [keys](WPARAM key, int value) { return keys & key ? value : 0; };
    return static_cast<std::int16_t>(bit(MK_LBUTTON, LeftButton) | bit(MK_RBUTTON, RightButton) |
                                     bit(MK_MBUTTON, MiddleButton));
}

// As the message of a move tells it. Of Alt it says nothing, and asking the system at every move would cost more than all
// the rest of one that changes nothing.
std::int16_t HeldKeys(WPARAM keys) noexcept {
    const auto bit = [keys](WPARAM key, int value) { return keys & key ? value : 0; };
    return static_cast<std::int16_t>(bit(MK_SHIFT, ShiftKey) | bit(MK_CONTROL, CtrlKey));
}

} // namespace

bool PointerInput::Handle(const Message& message) {
    switch (message.Number) {
    case WM_MOUSEMOVE: Move(message); return true;
    case WM_LBUTTONDOWN: Down(message, LeftButton); return true;
    case WM_RBUTTONDOWN: Down(message, RightButton); return true;
    case WM_MBUTTONDOWN: Down(message, MiddleButton); return true;
    case WM_LBUTTONUP: Up(message, LeftButton); return true;
    case WM_RBUTTONUP: Up(message, RightButton); return true;
    case WM_MBUTTONUP: Up(message, MiddleButton); return true;
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND>(message.LParam) != message.Window) CaptureLost();
        return true;
    case WM_SHOWWINDOW:
    case WM_ENABLE:
        if (!message.WParam) HoverLost();
        return true;
    case WM_NCDESTROY: captured_ = false; return false;
    case WM_KEYDOWN: // these two are others' business, but no captured pointer stays behind them
    case WM_MOUSEWHEEL:
        if (captured_) TakesInput();
        return false;
    default: return false;
    }
}

// What cannot be meant any more lets the pointer go.
bool PointerInput::TakesInput() {
    if (vantik::TakesInput(control_)) return true;
    LetGo();
    return false;
}

void PointerInput::LetGo() {
    ReleaseCapture();
    HoverLost();
}

// The arguments of an event under way are the hover state itself: it must not change under a handler that shows a menu.
template <class Body, class Failed>
void PointerInput::Guard(Body body, Failed failed) {
    ++busy_;
    try {
        body();
    } catch (...) {
        failed();
    }
    if (--busy_ == 0 && activation_.Window()) Settle();
}

void PointerInput::Settle() {
    if (std::exchange(lost_, false)) HoverLost();
}

void PointerInput::CaptureLost() {
    captured_ = false;
    HoverLost();
}

void PointerInput::HoverLost() {
    if (busy_) {
        lost_ = true;
        return;
    }
    control_.Engine.EndHover();
    // A menu or a message box swallowed the button's way up.
    if (std::exchange(pressed_, false)) control_.Engine.UserControl_MouseUp(LeftButton, ShiftState(), 0, 0);
}

void PointerInput::Down(const Message& message, std::int16_t button) {
    if (!TakesInput()) return DownUnderDesign(message, button);
    activation_.Pressed();
    if (!TakesInput()) return;
    Capture(message.Window);
    pressed_ = true;
    lost_ = false;
    const Point at = PositionOf(message, control_.Size.Screen());
    Guard([&] { control_.Engine.UserControl_MouseDown(button, ShiftState(), at.X, at.Y); },
          [] { TellDebugger(u"on a press of the pointer"); });
}

// Shows a tab to the designer, who drops controls onto it. That is no use of the control: no event is raised, and a
// designer that keeps the pointer to itself has not made the control UI active.
void PointerInput::DownUnderDesign(const Message& message, std::int16_t button) {
    if (button != LeftButton || !activation_.IsUIActive() || !IsForDesigner(control_)) return;
    Guard(
        [&] {
            if (const auto tab = TabAt(control_.Engine.State(), PixelOf(message)))
                control_.Engine.ActiveTab(*tab);
        },
        [] { TellDebugger(u"on a press of the pointer"); });
}

void PointerInput::Up(const Message& message, std::int16_t button) {
    if (!TakesInput()) return;
    const Point at = PositionOf(message, control_.Size.Screen());
    Guard([&] { control_.Engine.UserControl_MouseUp(button, ShiftState(), at.X, at.Y); },
          [] { TellDebugger(u"on a release of the pointer"); });
    pressed_ = false;
    const bool hovers = control_.Engine.State().HoverTab != -1;
    if (!HeldButtons(message.WParam) && !hovers) ReleaseCapture();
}

void PointerInput::Capture(HWND window) noexcept {
    if (GetCapture() != window) SetCapture(window);
    captured_ = true;
}

void PointerInput::ReleaseCapture() noexcept {
    if (std::exchange(captured_, false)) ::ReleaseCapture();
}

void PointerInput::Tell(const Message& message, PixelPoint pixel) {
    const auto [x, y] = ToTwips(OnBarOrOutside(control_.Engine.State(), pixel), control_.Size.Screen());
    control_.Engine.UserControl_MouseMove(HeldButtons(message.WParam), HeldKeys(message.WParam), x, y);
}

// A pointer that jumps onto a close button comes onto its bar first, as a slow one does: so the button that it left goes
// out, and the host hears of the bar before the button lights up.
void PointerInput::PassOn(const Message& message) {
    VantikFrameTab& engine = control_.Engine;
    const PixelPoint pixel = PixelOf(message);
    if (!JumpsOntoCloseButton(engine.State(), pixel)) return Tell(message, pixel);
    const std::int16_t tab = *TabAt(engine.State(), pixel);
    const auto beside = BesideCloseButton(engine.State(), pixel);
    if (!beside) {
        engine.EndHover();
        return Tell(message, pixel);
    }
    Tell(message, *beside);
    const EventSource::MoveWasTold told(control_.Events, tab, engine.State().HoverTab);
    Tell(message, pixel);
}

// Over the strip the pointer is captured, so that its leaving is noticed; elsewhere only while a button is held.
void PointerInput::Move(const Message& message) {
    if (!TakesInput()) return;
    const std::int16_t held = HeldButtons(message.WParam);
    Guard(
        [&] {
            PassOn(message);
            // Off the strip the engine itself lets the pointer go: the button, if one is held, stays pressed.
            if (control_.Engine.State().HoverTab == -1) lost_ = false;
            moving_.Succeeded();
        },
        [&] { moving_.Failed(u"on a move of the pointer"); });
    const bool wanted = held ? pressed_ : control_.Engine.State().HoverTab != -1;
    if (wanted && !captured_ && !GetCapture() && TakesInput()) Capture(activation_.Window());
}

} // namespace vantik
