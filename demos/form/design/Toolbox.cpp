#include "demos/form/design/Toolbox.h"

namespace vantik {

namespace {

enum Id : int { FirstTool = 400, NameId = 450, TextId };

int Scaled(int length) { return MulDiv(length, ScreenResolution(), 96); }

constexpr int ToolboxWidth = 108, Margin = 8, ButtonHeight = 28, LineHeight = 18, FieldHeight = 24;
constexpr int ToolCount = 1 + static_cast<int>(AllKinds.size());
constexpr int NameTop = Margin + ToolCount * (ButtonHeight + 2) + 12;
constexpr int TextTop = NameTop + LineHeight + 4;

Box Row(int top, int height) {
    return {Scaled(Margin), Scaled(top), Scaled(ToolboxWidth - 2 * Margin), Scaled(height)};
}

} // namespace

int Toolbox::Width() { return Scaled(ToolboxWidth); }
int Toolbox::Height() { return Scaled(TextTop + FieldHeight + Margin); }

Toolbox::Toolbox(HWND parent, const FormFont& font, Handlers handlers)
    : parent_(parent), handlers_(std::move(handlers)) {
    const auto add = [&](const wchar_t* text) {
        const int number = static_cast<int>(tools_.size());
        const DWORD group = number == 0 ? WS_GROUP | WS_TABSTOP : 0;
        tools_.push_back(MakeWidget(parent, L"BUTTON", text, BS_AUTORADIOBUTTON | BS_PUSHLIKE | group,
                                    Row(Margin + number * (ButtonHeight + 2), ButtonHeight),
                                    FirstTool + number, font));
    };
    add(L"Pointer");
    for (const KindTraits& traits : AllKinds) add(traits.Tool);
    name_ = MakeWidget(parent, L"STATIC", L"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS | WS_GROUP,
                       Row(NameTop, LineHeight), NameId, font);
    text_ = MakeWidget(parent, L"EDIT", L"", ES_AUTOHSCROLL | WS_TABSTOP, Row(TextTop, FieldHeight), TextId,
                       font);
    ShowTool(std::nullopt);
    ShowChosen({}, {});
}

void Toolbox::ShowTool(std::optional<ChildKind> tool) {
    const int number = tool ? 1 + static_cast<int>(*tool) : 0;
    CheckRadioButton(parent_, FirstTool, FirstTool + ToolCount - 1, FirstTool + number);
}

void Toolbox::ShowChosen(const std::wstring& name, const std::wstring& text) {
    showing_ = true;
    SetWindowTextW(name_, name.empty() ? L"Nothing chosen" : (L"Text of " + name).c_str());
    if (TextOf(text_) != text) SetWindowTextW(text_, text.c_str());
    EnableWindow(text_, !name.empty());
    showing_ = false;
}

void Toolbox::EditText() {
    SetFocus(text_);
    SendMessageW(text_, EM_SETSEL, 0, -1);
}

bool Toolbox::Command(WPARAM wParam) {
    const int id = LOWORD(wParam), what = HIWORD(wParam);
    if (id == TextId) {
        if (what == EN_CHANGE && !showing_) handlers_.TextTyped(TextOf(text_));
        return true;
    }
    if (id < FirstTool || id >= FirstTool + ToolCount) return false;
    if (what == BN_CLICKED)
        handlers_.ToolTaken(id == FirstTool ? std::nullopt
                                            : std::optional(static_cast<ChildKind>(id - FirstTool - 1)));
    return true;
}

} // namespace vantik
