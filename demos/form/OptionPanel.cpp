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
constexpr int ArrowsWidth = 18;
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

void OptionPanel::AddChoice(const std::wstring& label, const std::vector<std::wstring>& choices,
                            Setting<int> setting) {
    AddLabel(label);
    const int id = NextId([choose = std::move(setting.Choose)](HWND box, WORD code) {
        if (code == CBN_SELCHANGE) choose(static_cast<int>(SendMessageW(box, CB_GETCURSEL, 0, 0)));
    });
    const HWND box = Add(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_TABSTOP | WS_VSCROLL,
                         FieldBox(width_ - LabelWidth, DropDownHeight), id);
    for (const std::wstring& choice : choices) {
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
    }
    refreshers_.push_back([box, chosen = std::move(setting.Chosen)] {
        SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(chosen()), 0);
    });
    height_ += RowHeight;
}

void OptionPanel::AddNumber(const std::wstring& label, int least, int most, Setting<int> setting) {
    AddLabel(label);
    const int id = NextId([choose = std::move(setting.Choose), least, most](HWND field, WORD code) {
        if (code != EN_CHANGE || TextOf(field).empty()) return;
        const int value =
            static_cast<int>(GetDlgItemInt(GetParent(field), GetDlgCtrlID(field), nullptr, TRUE));
        choose(std::clamp(value, least, most));
    });
    const HWND field =
        Add(L"EDIT", L"", ES_NUMBER | ES_RIGHT | WS_TABSTOP, FieldBox(NumberWidth, FieldHeight), id);
    Box arrows = FieldBox(ArrowsWidth, FieldHeight);
    arrows.Left += NumberWidth;
    const HWND buttons =
        Add(UPDOWN_CLASSW, L"", UDS_ARROWKEYS | UDS_SETBUDDYINT | UDS_NOTHOUSANDS, arrows, -1);
    SendMessageW(buttons, UDM_SETBUDDY, reinterpret_cast<WPARAM>(field), 0);
    SendMessageW(buttons, UDM_SETRANGE32, static_cast<WPARAM>(least), most);
    refreshers_.push_back(
        [buttons, chosen = std::move(setting.Chosen)] { SendMessageW(buttons, UDM_SETPOS32, 0, chosen()); });
    height_ += RowHeight;
}

void OptionPanel::AddText(const std::wstring& label, Setting<std::wstring> setting) {
    AddLabel(label);
    const int id = NextId([choose = std::move(setting.Choose)](HWND field, WORD code) {
        if (code == EN_CHANGE) choose(TextOf(field));
    });
    const HWND field =
        Add(L"EDIT", L"", ES_AUTOHSCROLL | WS_TABSTOP, FieldBox(width_ - LabelWidth, FieldHeight), id);
    refreshers_.push_back(
        [field, chosen = std::move(setting.Chosen)] { SetWindowTextW(field, chosen().c_str()); });
    height_ += RowHeight;
}

void OptionPanel::AddSwitch(const std::wstring& label, Setting<bool> setting) {
    const int id = NextId([choose = std::move(setting.Choose)](HWND box, WORD code) {
        if (code == BN_CLICKED) choose(SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED);
    });
    const HWND box = Add(L"BUTTON", label, BS_AUTOCHECKBOX | WS_TABSTOP,
                         {LabelWidth, height_, width_ - LabelWidth, SwitchHeight - 4}, id);
    refreshers_.push_back([box, chosen = std::move(setting.Chosen)] {
        SendMessageW(box, BM_SETCHECK, chosen() ? BST_CHECKED : BST_UNCHECKED, 0);
    });
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

void OptionPanel::Refresh() {
    refreshing_ = true;
    for (const auto& refresh : refreshers_) refresh();
    refreshing_ = false;
}

bool OptionPanel::Command(WPARAM wParam) {
    const auto found = commands_.find(LOWORD(wParam));
    if (found == commands_.end()) return false;
    if (!refreshing_) found->second(GetDlgItem(form_, LOWORD(wParam)), HIWORD(wParam));
    return true;
}

} // namespace vantik
