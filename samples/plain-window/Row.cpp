#include "Row.h"

namespace {

constexpr int Previous = 0, Next = 1, Menu = 2;

Com<IAccessible> RowOf(HWND control) {
    void* row = nullptr;
    Check(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &row));
    return Com<IAccessible>(static_cast<IAccessible*>(row));
}

} // namespace

Row::Row(HWND control, short tabs) : tabs_(tabs), row_(RowOf(control)) {}

VARIANT Row::Child(int place) const noexcept {
    VARIANT child = {};
    child.vt = VT_I4;
    child.lVal = place + 1;
    return child;
}

bool Row::IsHidden(int tab) const {
    VARIANT state = {};
    return row_->get_accState(Child(tab), &state) == S_OK && (state.lVal & STATE_SYSTEM_OFFSCREEN) != 0;
}

bool Row::Press(int button) const { return row_->accDoDefaultAction(Button(button)) == S_OK; }

int Row::FirstShown() const {
    int tab = 0;
    while (tab < tabs_ && IsHidden(tab)) ++tab;
    return tab;
}

void Row::BringIntoView(short tab) const {
    while (IsHidden(tab) && Press(tab < FirstShown() ? Previous : Next)) continue;
}

POINT Row::MenuCorner() const {
    LONG left = 0, top = 0, width = 0, height = 0;
    row_->accLocation(&left, &top, &width, &height, Button(Menu));
    return {left, top + height};
}
