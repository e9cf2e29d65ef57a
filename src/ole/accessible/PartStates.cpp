#include "ole/accessible/PartStates.h"

#include <oleacc.h>

#include "ole/accessible/PartTree.h"
#include "ole/accessible/Windows.h"
#include "render/BarGeometry.h"

namespace vantik {

namespace {

constexpr LONG If(bool holds, LONG state) noexcept { return holds ? state : 0; }

// Of the window that all parts share.
LONG CommonState(HWND window) noexcept {
    return If(!IsWindowVisible(window), STATE_SYSTEM_INVISIBLE) |
           If(!IsWindowEnabled(window), STATE_SYSTEM_UNAVAILABLE);
}

LONG FocusState(bool focused) noexcept { return STATE_SYSTEM_FOCUSABLE | If(focused, STATE_SYSTEM_FOCUSED); }

LONG TabState(const ControlState& state, std::int16_t tab, bool controlHasFocus) {
    const bool isActive = tab == state.Properties.ActiveTab;
    return FocusState(isActive && controlHasFocus) | STATE_SYSTEM_SELECTABLE |
           If(isActive, STATE_SYSTEM_SELECTED) | If(tab == state.HoverTab, STATE_SYSTEM_HOTTRACKED) |
           If(!state.Tabs(tab).Enable, STATE_SYSTEM_UNAVAILABLE);
}

// Whether a press would scroll nothing.
bool IsGreyed(const ControlState& state, PartKind button) noexcept {
    if (button == PartKind::PreviousButton) return !state.HasTabsBefore();
    return button == PartKind::NextButton && !state.HasTabsBehind();
}

LONG ButtonState(const Control& control, const Part& part) {
    const ControlState& state = control.Engine.State();
    const bool isHot = IsUnderPointer(control.Place.Window(), AreaOf(state, part));
    return If(IsGreyed(state, part.Kind), STATE_SYSTEM_UNAVAILABLE) | If(isHot, STATE_SYSTEM_HOTTRACKED) |
           If(isHot && GetKeyState(VK_LBUTTON) < 0, STATE_SYSTEM_PRESSED);
}

LONG OwnState(const Control& control, const Part& part) {
    const ControlState& state = control.Engine.State();
    const bool hasFocus = GetFocus() == control.Place.Window();
    switch (part.Kind) {
    case PartKind::Row: return FocusState(hasFocus);
    case PartKind::Tab: return TabState(state, part.Tab, hasFocus);
    case PartKind::CloseButton: return If(part.Tab == state.HoverCloseTab, STATE_SYSTEM_HOTTRACKED);
    case PartKind::Page: return 0;
    default: return ButtonState(control, part);
    }
}

} // namespace

LONG RoleOf(const Part& part) noexcept {
    switch (part.Kind) {
    case PartKind::Row: return ROLE_SYSTEM_PAGETABLIST;
    case PartKind::Tab: return ROLE_SYSTEM_PAGETAB;
    case PartKind::Page: return ROLE_SYSTEM_PROPERTYPAGE;
    default: return ROLE_SYSTEM_PUSHBUTTON;
    }
}

LONG StateOf(const Control& control, const Part& part) {
    const LayoutRect area = AreaOf(control.Engine.State(), part);
    return CommonState(control.Place.Window()) | OwnState(control, part) |
           If(area == LayoutRect(), STATE_SYSTEM_OFFSCREEN);
}

} // namespace vantik
