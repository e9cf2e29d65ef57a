#include "OptionPanel.h"

#include <commctrl.h>

#include <algorithm>

namespace vantik {

namespace {

constexpr int FirstId = 100;
constexpr int RowHeight = 28;
constexpr int SwitchHeight = 22;
constexpr int FieldHeight = 22;
constexpr int LabelWidth = 84;
constexpr int NumberWidth = 64;
constexpr int ButtonHeight = 25;
constexpr int ButtonGap = 6;
constexpr int DropDownHeight = 220;

} // namespace

int OptionPanel::NextId(std::function<void(HWND, WORD)> command) {
    const int id = FirstId + static_cast<int>(commands_.size());
    commands_[id] = std::move(command);
    return id;
}

HWND OptionPanel::Add(const wchar_t* windowClass, const std::wstring& text, DWORD style, Box place, int id) {
    widgets_.push_back({MakeWidget(form_, windowClass, text, style, place, id, font_), place});
    return widgets_.back().Window;
}

void OptionPanel::AddLabel(const std::wstring& text) {
    Add(L"STATIC", text, SS_LEFT | SS_NOPREFIX, {0, height_ + 4, LabelWidth, FieldHeight - 4}, -1);
}

Box OptionPanel::FieldBox(int width, int height) const noexcept {
    return {LabelWidth, height_, width, height};
}

void OptionPanel::AddChoice(const std::wstring& label, const std::vector<std::wstring>& choices, int chosen,
                            Choose choose) {
    AddLabel(label);
    const int id = NextId([choose = std::move(choose)](HWND box, WORD code) {
        if (code == CBN_SELCHANGE) choose(static_cast<int>(SendMessageW(box, CB_GETCURSEL, 0, 0)));
    });
    const HWND box = Add(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_TABSTOP | WS_VSCROLL,
                         FieldBox(width_ - LabelWidth, DropDownHeight), id);
    for (const std::wstring& choice : choices) {
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
    }
    SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
    height_ += RowHeight;
}

void OptionPanel::AddNumber(const std::wstring& label, int number, int least, int most, Choose choose) {
    AddLabel(label);
    const int id = NextId([=](HWND field, WORD code) {
        if (code != EN_CHANGE || TextOf(field).empty()) return;
        const int value =
            static_cast<int>(GetDlgItemInt(GetParent(field), GetDlgCtrlID(field), nullptr, TRUE));
        choose(std::clamp(value, least, most));
    });
    const HWND field = Add(L"EDIT", std::to_wstring(number), ES_NUMBER | ES_RIGHT | WS_TABSTOP,
                           FieldBox(NumberWidth, FieldHeight), id);
    Box arrows = FieldBox(18, FieldHeight);
    arrows.Left += NumberWidth;
    const HWND buttons =
        Add(UPDOWN_CLASSW, L"", UDS_ARROWKEYS | UDS_SETBUDDYINT | UDS_NOTHOUSANDS, arrows, -1);
    SendMessageW(buttons, UDM_SETBUDDY, reinterpret_cast<WPARAM>(field), 0);
    SendMessageW(buttons, UDM_SETRANGE32, static_cast<WPARAM>(least), most);
    SendMessageW(buttons, UDM_SETPOS32, 0, number);
    height_ += RowHeight;
}

void OptionPanel::AddText(const std::wstring& label, const std::wstring& text, Enter enter) {
    AddLabel(label);
    const int id = NextId([enter = std::move(enter)](HWND field, WORD code) {
        if (code == EN_CHANGE) enter(TextOf(field));
    });
    Add(L"EDIT", text, ES_AUTOHSCROLL | WS_TABSTOP, FieldBox(width_ - LabelWidth, FieldHeight), id);
    height_ += RowHeight;
}

void OptionPanel::AddSwitch(const std::wstring& label, bool on, Switch change) {
    const int id = NextId([change = std::move(change)](HWND box, WORD code) {
        if (code == BN_CLICKED) change(SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED);
    });
    const HWND box = Add(L"BUTTON", label, BS_AUTOCHECKBOX | WS_TABSTOP,
                         {LabelWidth, height_, width_ - LabelWidth, 18}, id);
    SendMessageW(box, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
    height_ += SwitchHeight;
}

void OptionPanel::AddButtons(const std::vector<std::pair<std::wstring, Push>>& buttons) {
    const int count = static_cast<int>(buttons.size());
    const int width = (width_ - (count - 1) * ButtonGap) / count;
    int left = 0;
    for (const auto& [text, push] : buttons) {
        const int id = NextId([action = push](HWND, WORD code) {
            if (code == BN_CLICKED) action();
        });
        Add(L"BUTTON", text, BS_PUSHBUTTON | WS_TABSTOP, {left, height_, width, ButtonHeight}, id);
        left += width + ButtonGap;
    }
    height_ += ButtonHeight + ButtonGap;
}

void OptionPanel::AddHeading(const std::wstring& text) {
    Add(L"STATIC", text, SS_LEFT | SS_NOPREFIX, {0, height_, width_, 16}, -1);
    height_ += 18;
}

void OptionPanel::MoveTo(int left, int top) {
    for (const Widget& widget : widgets_) {
        const Box& place = widget.Place;
        MoveWidget(widget.Window, {left + place.Left, top + place.Top, place.Width, place.Height});
    }
}

bool OptionPanel::Command(WPARAM wParam) {
    const auto found = commands_.find(LOWORD(wParam));
    if (found == commands_.end()) return false;
    const auto command = found->second; // it may change the panel
    command(GetDlgItem(form_, LOWORD(wParam)), HIWORD(wParam));
    return true;
}

} // namespace vantik
