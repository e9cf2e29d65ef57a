#include "acctree/Node.h"

#include "host/Variant.h"

namespace vantik {

VARIANT ChildId(LONG child) noexcept { return Variant(std::int32_t{child}).Get(); }

std::optional<Node> Node::OfWindow(HWND window, LONG object) {
    ComPtr<IAccessible> found;
    const auto id = static_cast<DWORD>(object);
    // Not IID_IAccessible: the import library of oleacc has a function of that name, which may be linked in its place.
    if (FAILED(AccessibleObjectFromWindow(window, id, __uuidof(IAccessible), found.PutVoid())) || !found)
        return std::nullopt;
    return Node(std::move(found));
}

std::optional<Node> Node::From(const Node& asked, const VARIANT& given) {
    if (given.vt == VT_I4) return Node(asked.object_, given.lVal);
    auto object = given.vt == VT_DISPATCH ? QueryFor<IAccessible>(given.pdispVal) : nullptr;
    if (!object) return std::nullopt;
    return Node(std::move(object));
}

VARIANT Node::Id() const noexcept { return ChildId(child_); }

HWND Node::Window() const noexcept {
    HWND window = nullptr;
    return SUCCEEDED(WindowFromAccessibleObject(object_.Get(), &window)) ? window : nullptr;
}

std::wstring Node::Text(TextMember member) const {
    Bstr text;
    return (object_.Get()->*member)(Id(), text.Put()) == S_OK ? text.Text() : std::wstring();
}

std::wstring Node::Name() const { return Text(&IAccessible::get_accName); }
std::wstring Node::Description() const { return Text(&IAccessible::get_accDescription); }
std::wstring Node::DefaultAction() const { return Text(&IAccessible::get_accDefaultAction); }

LONG Node::Role() const {
    Variant role;
    return SUCCEEDED(object_->get_accRole(Id(), role.Put())) && role.Type() == VT_I4 ? role.Number() : 0;
}

LONG Node::State() const {
    Variant state;
    return SUCCEEDED(object_->get_accState(Id(), state.Put())) && state.Type() == VT_I4 ? state.Number() : 0;
}

RECT Node::Place() const {
    LONG left = 0, top = 0, width = 0, height = 0;
    if (object_->accLocation(&left, &top, &width, &height, Id()) != S_OK) return {};
    return {left, top, left + width, top + height};
}

LONG Node::ChildCount() const {
    LONG count = 0;
    return IsObject() && SUCCEEDED(object_->get_accChildCount(&count)) && count > 0 ? count : 0;
}

std::vector<Node> Node::Children(LONG first, LONG most) const {
    std::vector<Node> children;
    LONG filled = 0;
    if (most == 0) return children;
    std::vector<VARIANT> given(static_cast<std::size_t>(most));
    AccessibleChildren(object_.Get(), first, most, given.data(), &filled);
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
    Variant end;
    return object_->accNavigate(direction, Id(), end.Put()) == S_OK ? From(*this, end.Get()) : std::nullopt;
}

std::optional<Node> Node::HitTest(POINT screen) const {
    Variant hit;
    return object_->accHitTest(screen.x, screen.y, hit.Put()) == S_OK ? From(*this, hit.Get()) : std::nullopt;
}

std::optional<Node> Node::Focus() const {
    Variant focus;
    return object_->get_accFocus(focus.Put()) == S_OK ? From(*this, focus.Get()) : std::nullopt;
}

std::optional<Node> Node::Selection() const {
    Variant selection;
    return object_->get_accSelection(selection.Put()) == S_OK ? From(*this, selection.Get()) : std::nullopt;
}

} // namespace vantik
