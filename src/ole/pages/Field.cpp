#include "ole/pages/Field.h"

#include "base/Text.h"

namespace vantik {

namespace {

// As automation writes a boolean.
constexpr const char16_t *TrueText = u"-1", *FalseText = u"0";

HWND ControlOf(HWND dialog, const Field& field) noexcept { return GetDlgItem(dialog, field.Control); }

void ShowChoice(HWND list, const std::u16string& value) {
    LRESULT choice = SendMessageW(list, CB_GETCOUNT, 0, 0);
    do --choice;
    while (choice >= 0 && DecimalText(static_cast<std::int32_t>(choice)) != value);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(choice), 0);
}

void ShowFlag(HWND box, const std::optional<std::u16string>& value) {
    const WPARAM state = !value ? BST_INDETERMINATE : *value == FalseText ? BST_UNCHECKED : BST_CHECKED;
    SendMessageW(box, BM_SETCHECK, state, 0);
}

} // namespace

std::u16string WindowText(HWND window) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    const int length = GetWindowTextW(window, AsWide(text.data()), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void ShowText(HWND window, const std::u16string& text) {
    if (WindowText(window) != text) SetWindowTextW(window, AsWide(text));
}

void ShowValue(HWND dialog, const Field& field, const std::optional<std::u16string>& value) {
    const HWND control = ControlOf(dialog, field);
    switch (field.Kind) {
    case FieldKind::Text: return ShowText(control, value.value_or(u""));
    case FieldKind::Choice: return ShowChoice(control, value.value_or(u""));
    case FieldKind::Flag: return ShowFlag(control, value);
    }
}

std::u16string EnteredValue(HWND dialog, const Field& field) {
    const HWND control = ControlOf(dialog, field);
    switch (field.Kind) {
    case FieldKind::Choice:
        return DecimalText(static_cast<std::int32_t>(SendMessageW(control, CB_GETCURSEL, 0, 0)));
    case FieldKind::Flag:
        return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? TrueText : FalseText;
    default: return WindowText(control);
    }
}

std::u16string ChosenText(HWND dialog, const Field& field) {
    const HWND list = ControlOf(dialog, field);
    const auto choice = static_cast<WPARAM>(SendMessageW(list, CB_GETCURSEL, 0, 0));
    const LRESULT length = SendMessageW(list, CB_GETLBTEXTLEN, choice, 0);
    if (length == CB_ERR) return WindowText(list);
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    SendMessageW(list, CB_GETLBTEXT, choice, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

void Toggle(HWND dialog, const Field& field) noexcept {
    const HWND box = ControlOf(dialog, field);
    const bool checked = SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
    SendMessageW(box, BM_SETCHECK, checked ? BST_UNCHECKED : BST_CHECKED, 0);
}

} // namespace vantik
