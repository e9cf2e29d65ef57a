#include "acctree/Node.h"

#include "host/Variant.h"

namespace vantik {

namespace {

VARIANT Number(LONG value) noexcept {
    VARIANT number = {};
    number.vt = VT_I4;
    number.lVal = value;
    return number;
}

// A value that was given out and is cleared.
struct Given : VARIANT {
    Given() noexcept : VARIANT{} {}
    ~Given() { VariantClear(this); }
    Given(const Given&) = delete;
    Given& operator=(const Given&) = delete;
};

} // namespace

std::optional<Node> Node::OfWindow(HWND window, LONG object) {
    ComPtr<IAccessible> found;
    const auto id = static_cast<DWORD>(object);
    if (FAILED(AccessibleObjectFromWindow(window, id, IID_IAccessible, found.PutVoid())) || !found)
        return std::nullopt;
    return Node(std::move(found));
}

std::optional<Node> Node::From(const Node& asked, const VARIANT& given) {
    if (given.vt == VT_I4) return Node(asked.object_, given.lVal);
    auto object = given.vt == VT_DISPATCH ? QueryFor<IAccessible>(given.pdispVal) : nullptr;
    if (!object) return std::nullopt;
    return Node(std::move(object));
}

VARIANT Node::Id() const noexcept { return Number(child_); }

HWND Node::Window() const noexcept {
    HWND window = nullptr;
    return SUCCEEDED(WindowFromAccessibleObject(object_.Get(), &window)) ? window : nullptr;
}

std::wstring Node::Text(TextMember member) const {
    BSTR text = nullptr;
    std::wstring copy;
    if ((object_.Get()->*member)(Id(), &text) == S_OK && text) copy.assign(text, SysStringLen(text));
    SysFreeString(text);
    return copy;
}

std::wstring Node::Name() const { return Text(&IAccessible::get_accName); }
std::wstring Node::Description() const { return Text(&IAccessible::get_accDescription); }
std::wstring Node::DefaultAction() const { return Text(&IAccessible::get_accDefaultAction); }

LONG Node::Role() const {
    Given role;
    return SUCCEEDED(object_->get_accRole(Id(), &role)) && role.vt == VT_I4 ? role.lVal : 0;
}

LONG Node::State() const {
    Given state;
    return SUCCEEDED(object_->get_accState(Id(), &state)) && state.vt == VT_I4 ? state.lVal : 0;
}

RECT Node::Place() const {
    LONG left = 0, top = 0, width = 0, height = 0;
    if (object_->accLocation(&left, &top, &width, &height, Id()) != S_OK) return {};
    return {left, top, left + width, top + height};
}

std::vector<Node> Node::Children() const {
    std::vector<Node> children;
    LONG count = 0, filled = 0;
    if (!IsObject() || FAILED(object_->get_accChildCount(&count)) || count <= 0) return children;
    std::vector<VARIANT> given(static_cast<std::size_t>(count));
    AccessibleChildren(object_.Get(), 0, count, given.data(), &filled);
    for (VARIANT& one : given) {
        if (const auto child = From(*this, one)) children.push_back(*child);
        VariantClear(&one);
    }
    return children;
}

std::optional<Node> Node::Parent() const {
    if (!IsObject()) return Node(object_);
    ComPtr<IDispatch> parent;
    if (object_->get_accParent(parent.Put()) != S_OK) return std::nullopt;
    auto object = parent.As<IAccessible>();
    return object ? std::optional(Node(std::move(object))) : std::nullopt;
}

std::optional<Node> Node::Navigate(LONG direction) const {
    Given end;
    return object_->accNavigate(direction, Id(), &end) == S_OK ? From(*this, end) : std::nullopt;
}

std::optional<Node> Node::HitTest(POINT screen) const {
    Given hit;
    return object_->accHitTest(screen.x, screen.y, &hit) == S_OK ? From(*this, hit) : std::nullopt;
}

std::optional<Node> Node::Focus() const {
    Given focus;
    return object_->get_accFocus(&focus) == S_OK ? From(*this, focus) : std::nullopt;
}

std::optional<Node> Node::Selection() const {
    Given selection;
    return object_->get_accSelection(&selection) == S_OK ? From(*this, selection) : std::nullopt;
}

} // namespace vantik
