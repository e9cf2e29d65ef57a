#include "FormKeys.h"

namespace vantik {

namespace {

bool IsDown(int key) noexcept { return GetKeyState(key) < 0; }

bool IsOutOfView(const Node& node) { return (node.State() & STATE_SYSTEM_OFFSCREEN) != 0; }

bool Act(const Node& node) { return node->accDoDefaultAction(node.Id()) == S_OK; }

bool IsMenuKey(const MSG& message) noexcept {
    return (message.message == WM_KEYDOWN && message.wParam == VK_APPS) ||
           (message.message == WM_SYSKEYDOWN && message.wParam == VK_F10 && IsDown(VK_SHIFT));
}

} // namespace

bool FormKeys::Use(const MSG& message) {
    if (message.hwnd == form_.ControlWindow() && IsMenuKey(message)) return Press(Button::Menu);
    const bool isMeant = message.message == WM_KEYDOWN && IsDown(VK_CONTROL) && !IsDown(VK_MENU);
    return isMeant && UseWithControl(message.wParam);
}

bool FormKeys::UseWithControl(WPARAM key) {
    switch (key) {
    case VK_TAB: Step(IsDown(VK_SHIFT) ? -1 : 1); return true;
    case VK_PRIOR: Press(Button::Previous); return true;
    case VK_NEXT: Press(Button::Next); return true;
    case VK_F4: CloseActive(); return true;
    default: return false;
    }
}

// Round, past those that are disabled. The control scrolls for nobody, so the row follows here.
void FormKeys::Step(int direction) {
    const int count = Number(L"TabCount"), active = Number(L"ActiveTab");
    for (int step = 1; step < count; ++step) {
        const int tab = (active + (direction * step) % count + count) % count;
        if (!Call(form_.Control(), L"GetTabEnable", {static_cast<std::int16_t>(tab)}).Flag()) continue;
        Put(form_.Control(), L"ActiveTab", static_cast<std::int16_t>(tab));
        return BringIntoView(tab);
    }
}

void FormKeys::BringIntoView(int tab) const {
    const auto isHidden = [&](int index) { return IsOutOfView(Row().at(static_cast<std::size_t>(index))); };
    const auto button = [&] {
        for (int before = 0; before < tab; ++before)
            if (!isHidden(before)) return Button::Next;
        return Button::Previous;
    };
    while (isHidden(tab) && Press(button())) continue;
}

void FormKeys::CloseActive() const {
    const int active = Number(L"ActiveTab");
    if (active < 0) return;
    BringIntoView(active);
    for (const Node& closeButton : Row().at(static_cast<std::size_t>(active)).Children()) Act(closeButton);
}

// The tabs, then the buttons beside them.
std::vector<Node> FormKeys::Row() const {
    const auto row = Node::OfWindow(form_.ControlWindow());
    return row ? row->Children() : std::vector<Node>();
}

std::optional<Node> FormKeys::Find(Button button) const {
    const std::vector<Node> row = Row();
    const std::size_t index =
        static_cast<std::size_t>(Number(L"TabCount")) + static_cast<std::size_t>(button);
    if (index >= row.size() || row[index].Role() != ROLE_SYSTEM_PUSHBUTTON) return std::nullopt;
    return row[index];
}

bool FormKeys::Press(Button button) const {
    const auto found = Find(button);
    return found && Act(*found);
}

POINT FormKeys::MenuCorner() const {
    const auto button = Find(Button::Menu);
    const RECT place = button ? button->Place() : RECT{};
    return {place.left, place.bottom};
}

} // namespace vantik
