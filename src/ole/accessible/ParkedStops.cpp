#include "ole/accessible/ParkedStops.h"

#include <algorithm>

#include "ole/accessible/Windows.h"

namespace vantik {

namespace {

constexpr wchar_t TakenProperty[] = L"VantikFrameTab.TabStop";

enum Taken : LONG_PTR {
    Nothing = 0,
    Stop = 1,   // WS_TABSTOP
    Parent = 2, // WS_EX_CONTROLPARENT: what stands on it is reached through it
    Checked = 4 // and was a radio button that was checked then
};

bool HasBit(HWND window, int kind, LONG_PTR bit) noexcept {
    return (GetWindowLongPtrW(window, kind) & bit) != 0;
}

void SetBit(HWND window, int kind, LONG_PTR bit, bool set) noexcept {
    const LONG_PTR style = GetWindowLongPtrW(window, kind);
    SetWindowLongPtrW(window, kind, set ? style | bit : style & ~bit);
}

LONG_PTR TakenFrom(HWND window) noexcept {
    return reinterpret_cast<LONG_PTR>(GetPropW(window, TakenProperty));
}

bool IsRadioButton(HWND window) noexcept {
    return (SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

LONG_PTR CheckOf(HWND window) noexcept {
    return IsRadioButton(window) && SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED ? Checked
                                                                                           : Nothing;
}

LONG_PTR WorthTaking(HWND window) noexcept {
    return (HasBit(window, GWL_STYLE, WS_TABSTOP) ? Stop | CheckOf(window) : Nothing) |
           (HasBit(window, GWL_EXSTYLE, WS_EX_CONTROLPARENT) ? Parent : Nothing);
}

// A radio button that was checked or unchecked meanwhile has been made a stop, or none, by that.
void GiveBackTo(HWND window) noexcept {
    const LONG_PTR taken = TakenFrom(window);
    if (taken == Nothing) return;
    RemovePropW(window, TakenProperty);
    if ((taken & Stop) && CheckOf(window) == (taken & Checked)) SetBit(window, GWL_STYLE, WS_TABSTOP, true);
    if (taken & Parent) SetBit(window, GWL_EXSTYLE, WS_EX_CONTROLPARENT, true);
}

// To another thread's window everything would be a message that waits for that thread.
bool IsOfThisThread(HWND window) noexcept {
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

} // namespace

// Room to remember it comes first, then the property, and only then the bits go: none is lost on the way.
void ParkedStops::Park(HWND child) {
    const LONG_PTR taken = WorthTaking(child);
    if (taken == Nothing) return;
    if (std::ranges::find(parked_, child) == parked_.end()) parked_.push_back(child);
    const LONG_PTR before = TakenFrom(child);
    const LONG_PTR kept = taken & Stop ? (before & Parent) | taken : before | taken;
    if (!SetPropW(child, TakenProperty, reinterpret_cast<HANDLE>(kept))) return;
    if (taken & Stop) SetBit(child, GWL_STYLE, WS_TABSTOP, false);
    if (taken & Parent) SetBit(child, GWL_EXSTYLE, WS_EX_CONTROLPARENT, false);
}

void ParkedStops::ForgetThoseElsewhere(HWND control) noexcept {
    for (HWND& window : parked_) {
        if (GetAncestor(window, GA_PARENT) == control) continue;
        GiveBackTo(window);
        window = nullptr;
    }
    std::erase(parked_, nullptr);
}

void ParkedStops::Arrange(HWND control) {
    ForgetThoseElsewhere(control);
    const RECT client = ClientOnScreen(control);
    for (HWND child = GetWindow(control, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsOfThisThread(child)) continue;
        if (IsParked(child, client)) {
            Park(child);
        } else {
            GiveBackTo(child);
            std::erase(parked_, child);
        }
    }
}

void ParkedStops::GiveBack() noexcept {
    for (const HWND window : parked_) GiveBackTo(window);
    parked_.clear();
}

} // namespace vantik
