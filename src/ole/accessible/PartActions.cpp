#include "ole/accessible/PartActions.h"

#include <oleacc.h>

#include "ole/accessible/PartStates.h"
#include "ole/accessible/PartTree.h"
#include "ole/com/ErrorInfo.h"
#include "ole/control/InputState.h"

namespace vantik {

namespace {

void NeedInput(Control& control) {
    if (!TakesInput(control)) RaiseHostError(E_ACCESSDENIED);
}

// In the middle, where it is hit if it is seen there.
void PressButton(Control& control, const Part& part) {
    if (StateOf(control, part) & STATE_SYSTEM_UNAVAILABLE) RaiseHostError(E_ACCESSDENIED);
    const LayoutRect area = AreaOf(control.Engine.State(), part);
    control.Engine.PressBesideRow((area.Left + area.Right) / 2, (area.Top + area.Bottom) / 2);
}

void TakeFocus(const Control& control) noexcept { SetFocus(control.Place.Window()); }

} // namespace

void Act(Control& control, const Part& part) {
    if (part.Kind == PartKind::Row || part.Kind == PartKind::Page) RaiseHostError(DISP_E_MEMBERNOTFOUND);
    NeedInput(control);
    if (part.Kind == PartKind::Tab)
        control.Engine.ChooseTab(part.Tab);
    else if (part.Kind == PartKind::CloseButton)
        control.Engine.PressCloseButton(part.Tab);
    else
        PressButton(control, part);
    control.ShowChanges();
}

void Select(Control& control, const Part& part, LONG flags) {
    const LONG allowed = part.Kind == PartKind::Tab   ? SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION
                         : part.Kind == PartKind::Row ? SELFLAG_TAKEFOCUS
                                                      : SELFLAG_NONE;
    if (allowed == SELFLAG_NONE) RaiseHostError(DISP_E_MEMBERNOTFOUND);
    if (flags == SELFLAG_NONE || (flags & ~allowed)) RaiseHostError(E_INVALIDARG);
    NeedInput(control);
    if (flags & SELFLAG_TAKEFOCUS) TakeFocus(control);
    // The focus of the row is its active tab's.
    if (part.Kind == PartKind::Tab) Act(control, part);
}

} // namespace vantik
