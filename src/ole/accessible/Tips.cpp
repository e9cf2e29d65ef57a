#include "ole/accessible/Tips.h"

#include <windowsx.h>

#include <algorithm>

#include "ole/accessible/PartTexts.h"
#include "ole/accessible/PartTree.h"
#include "ole/accessible/Windows.h"
#include "ole/control/InputState.h"
#include "render/BarGeometry.h"

namespace vantik {

namespace {

constexpr UINT_PTR TipTimer =
    0x46546163; // no number that a host would give to a timer of its own on the window

constexpr std::size_t LongestText = 1000; // beyond that no system shows it

// The system's delays, which go by the user's double click.
DWORD InitialDelay() noexcept { return GetDoubleClickTime(); }
DWORD ReshowDelay() noexcept { return GetDoubleClickTime() / 5; }
DWORD ShowingTime() noexcept { return GetDoubleClickTime() * 10; }

// After these the tooltip comes back only over another part.
bool EndsTip(UINT message) noexcept {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_MOUSEWHEEL:
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
    case WM_KILLFOCUS:
    case WM_SHOWWINDOW:
    case WM_ENABLE:
    case WM_SIZE:
    case WM_MOVE: return true;
    default: return false;
    }
}

bool IsButtonHeld(WPARAM keys) noexcept { return keys & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON); }

// Whether the buttons beside the row may reach there.
bool IsNearRow(const ControlState& state, PixelPoint pixel) {
    const LayoutRect& strip = state.Layout.BarStripRect;
    const PropertyValues& p = state.Properties;
    const Checked shift =
        std::max(std::abs(std::int32_t{p.NavBtnXjust}), std::abs(std::int32_t{p.NavBtnYjust}));
    const auto isBetween = [&](std::int32_t at, std::int32_t first, std::int32_t last) {
        return at >= first - shift && at < last + shift;
    };
    return state.Layout.IsHorizontal ? isBetween(pixel.Y, strip.Top, strip.Bottom)
                                     : isBetween(pixel.X, strip.Left, strip.Right);
}

// The engine knows the bar under the pointer; the rest is looked for where it can be only.
Part PartUnder(const ControlState& state, PixelPoint pixel) {
    if (const Part button = {PartKind::CloseButton, state.HoverCloseTab};
        button.Tab >= 0 && Exists(state, button))
        return button;
    if (state.HoverTab >= 0) return {PartKind::Tab, state.HoverTab};
    if (!IsNearRow(state, pixel)) return {};
    const Part part = PartAt(state, {}, pixel).value_or(Part{});
    return part.Kind == PartKind::Tab || part.Kind == PartKind::Page ? Part{} : part;
}

// Never half a character.
std::u16string Shortened(std::u16string text) {
    if (text.size() <= LongestText) return text;
    const bool isInPair = (text[LongestText] & 0xFC00) == 0xDC00;
    text.resize(LongestText - isInPair);
    return text + u"...";
}

// Empty where there is nothing to add to what is seen.
std::u16string TipText(Control& control, const Part& part) {
    if (part.Kind == PartKind::Tab && control.Engine.ShowsWholeCaption(part.Tab)) return {};
    return Shortened(NameOf(control, part));
}

} // namespace

bool Tips::Takes(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (window_.Sends(message, lParam)) return true;
    if (message != WM_TIMER || wParam != TipTimer) return false;
    try {
        Tick();
    } catch (...) {
        Leave(); // what cannot be said is not said
        EndTimer();
    }
    return true;
}

void Tips::Before(UINT message) noexcept {
    if (message == WM_MOUSELEAVE) Leave();
    if (phase_ != Phase::Idle && EndsTip(message)) Drop();
}

void Tips::After(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    try {
        if (message == WM_MOUSEMOVE && !IsButtonHeld(wParam))
            PointerMoved({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        if (message == WM_PAINT) CheckShown();
        if (message == WM_NCDESTROY) window_.Destroy();
    } catch (...) {
        Leave();
    }
}

void Tips::PointerMoved(PixelPoint pixel) {
    const Part part = PartUnder(control_.Engine.State(), pixel);
    if (phase_ == Phase::Waiting) since_ = GetTickCount();
    if (part == over_) return;
    const bool wasShowing = phase_ == Phase::Showing;
    Leave();
    if (part == Part{}) return;
    over_ = part;
    phase_ = Phase::Waiting;
    since_ = GetTickCount();
    wait_ = wasShowing ? ReshowDelay() : InitialDelay();
    if (timerOf_ != control_.Place.Window() || period_ > wait_) SetTimer(wait_);
}

void Tips::Tick() {
    const DWORD passed = GetTickCount() - since_;
    const bool isOver = passed >= wait_;
    if (phase_ == Phase::Waiting && isOver) return Show();
    if (phase_ == Phase::Showing && isOver) Drop();
    if (phase_ == Phase::Idle || phase_ == Phase::Over) return EndTimer();
    SetTimer(wait_ - passed);
}

void Tips::Show() {
    phase_ = Phase::Over;
    EndTimer();
    if (!IsMeant()) return;
    const HWND window = control_.Place.Window();
    const ControlState& state = control_.Engine.State();
    shown_ = Look();
    const RECT area = OnScreen(window, shown_.Area);
    if (shown_.Text.empty() || !window_.Show(window, shown_.Text, area, state.Properties.TabPos)) return;
    phase_ = Phase::Showing;
    since_ = GetTickCount();
    wait_ = ShowingTime();
    SetTimer(wait_);
    TRACKMOUSEEVENT leaving = {sizeof leaving, TME_LEAVE, window, 0};
    TrackMouseEvent(&leaving);
}

// Nobody means a form in the background, or what another window covers.
bool Tips::IsMeant() const {
    const HWND window = control_.Place.Window();
    const ControlState& state = control_.Engine.State();
    return TakesInput(control_) && GetAncestor(window, GA_ROOT) == GetActiveWindow() &&
           Exists(state, over_) && IsUnderPointer(window, AreaOf(state, over_));
}

Tips::Shown Tips::Look() const {
    const ControlState& state = control_.Engine.State();
    if (!Exists(state, over_)) return {};
    return {TipText(control_, over_), AreaOf(state, over_), state.Properties.ActiveTab};
}

// By whatever way it changed: what changes is painted.
void Tips::CheckShown() {
    if (phase_ == Phase::Showing && !(Look() == shown_)) Drop();
}

void Tips::Drop() noexcept {
    if (phase_ == Phase::Showing) window_.Hide();
    phase_ = Phase::Over;
}

void Tips::Leave() noexcept {
    Drop();
    phase_ = Phase::Idle;
    over_ = {};
}

void Tips::SetTimer(DWORD milliseconds) noexcept {
    const HWND window = control_.Place.Window();
    period_ = milliseconds;
    timerOf_ = window && ::SetTimer(window, TipTimer, milliseconds, nullptr) ? window : nullptr;
}

void Tips::EndTimer() noexcept {
    if (timerOf_) KillTimer(timerOf_, TipTimer);
    timerOf_ = nullptr;
}

} // namespace vantik
