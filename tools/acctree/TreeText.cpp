#include "acctree/TreeText.h"

#include "host/HostError.h"

namespace vantik {

namespace {

// In one language, whatever the system's, so that trees can be compared.
struct Known {
    LONG Value;
    const char* Name;
};

constexpr Known Roles[] = {
    {ROLE_SYSTEM_WINDOW, "window"},
    {ROLE_SYSTEM_CLIENT, "client"},
    {ROLE_SYSTEM_PAGETABLIST, "page tab list"},
    {ROLE_SYSTEM_PAGETAB, "page tab"},
    {ROLE_SYSTEM_PUSHBUTTON, "push button"},
    {ROLE_SYSTEM_PROPERTYPAGE, "property page"},
    {ROLE_SYSTEM_TEXT, "editable text"},
    {ROLE_SYSTEM_STATICTEXT, "text"},
    {ROLE_SYSTEM_CHECKBUTTON, "check box"},
    {ROLE_SYSTEM_LIST, "list"},
    {ROLE_SYSTEM_SCROLLBAR, "scroll bar"},
    {ROLE_SYSTEM_TITLEBAR, "title bar"},
    {ROLE_SYSTEM_MENUBAR, "menu bar"},
    {ROLE_SYSTEM_GRIP, "grip"},
};

constexpr Known States[] = {
    {STATE_SYSTEM_UNAVAILABLE, "unavailable"}, {STATE_SYSTEM_SELECTED, "selected"},
    {STATE_SYSTEM_FOCUSED, "focused"},         {STATE_SYSTEM_PRESSED, "pressed"},
    {STATE_SYSTEM_HOTTRACKED, "hot tracked"},  {STATE_SYSTEM_INVISIBLE, "invisible"},
    {STATE_SYSTEM_OFFSCREEN, "off-screen"},    {STATE_SYSTEM_FOCUSABLE, "focusable"},
    {STATE_SYSTEM_SELECTABLE, "selectable"},   {STATE_SYSTEM_READONLY, "read only"},
};

// What a window is for is told by the object of its client area; the one around it is for its frame.
Node WithoutFrame(const Node& node) {
    const LONG role = node.Role();
    const bool isFrame = role == ROLE_SYSTEM_WINDOW || role == 0; // not every system gives it a role
    const HWND window = isFrame ? node.Window() : nullptr;
    return (window ? Node::OfWindow(window) : std::nullopt).value_or(node);
}

// One line after the other, until `isEnough` says so of one; whether it did.
template <class IsEnough>
bool Read(const Node& node, int depth, const TreeOptions& options, const IsEnough& isEnough) {
    if (isEnough(depth, LineOf(node, options.Origin))) return true;
    if (depth >= options.Deepest) return false;
    return node.AnyChild(
        [&](const Node& child) { return Read(WithoutFrame(child), depth + 1, options, isEnough); });
}

std::string Number(LONG value) { return std::to_string(value); }

} // namespace

std::string RoleName(LONG role) {
    for (const Known& known : Roles)
        if (known.Value == role) return known.Name;
    return "role " + Number(role);
}

std::string StateNames(LONG state) {
    std::string names;
    const auto add = [&](const std::string& name) { names += (names.empty() ? "" : ", ") + name; };
    for (const Known& known : States) {
        if (state & known.Value) add(known.Name);
        state &= ~known.Value;
    }
    if (state) add("others " + Number(state));
    return names;
}

std::string LineOf(const Node& node, POINT origin) {
    const RECT place = node.Place();
    std::string line = RoleName(node.Role()) + " \"" + ToUtf8(node.Name()) + "\"";
    if (const auto description = node.Description(); !description.empty())
        line += " (" + ToUtf8(description) + ")";
    if (const auto states = StateNames(node.State()); !states.empty()) line += " [" + states + "]";
    if (!IsRectEmpty(&place))
        line += " " + Number(place.left - origin.x) + "," + Number(place.top - origin.y) + " " +
                Number(place.right - place.left) + "x" + Number(place.bottom - place.top);
    if (const auto action = node.DefaultAction(); !action.empty()) line += " -> " + ToUtf8(action);
    return line;
}

std::string TreeText(const Node& root, const TreeOptions& options) {
    std::string text;
    Read(root, 0, options, [&](int depth, const std::string& line) {
        text.append(2 * static_cast<std::size_t>(depth), ' ') += line + "\n";
        return false;
    });
    return text;
}

bool HasLine(const Node& root, const TreeOptions& options, const std::string& text) {
    return Read(root, 0, options, [&](int, const std::string& line) { return line.find(text) != line.npos; });
}

} // namespace vantik
