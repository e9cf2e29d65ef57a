// One object of a tree of IAccessible, as a client sees it: an object of its own, or a numbered child of one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <oleacc.h>

#include "platform/ComPtr.h"

namespace vantik {

// The number of a child, or CHILDID_SELF, as the methods take it.
VARIANT ChildId(LONG child) noexcept;

class Node {
public:
    explicit Node(ComPtr<IAccessible> object, LONG child = CHILDID_SELF) noexcept
        : object_(std::move(object)), child_(child) {}

    // The object that a window shows for its client area, or for itself; nothing where the window has gone.
    static std::optional<Node> OfWindow(HWND window, LONG object = OBJID_CLIENT);
    // What is in a VARIANT that the object gave out; nothing where it is empty.
    static std::optional<Node> From(const Node& asked, const VARIANT& given);

    IAccessible* operator->() const noexcept { return object_.Get(); }
    VARIANT Id() const noexcept;
    HWND Window() const noexcept; // that it belongs to; null where the object does not say
    bool IsObject() const noexcept { return child_ == CHILDID_SELF; }

    std::wstring Name() const;
    std::wstring Description() const;
    std::wstring DefaultAction() const;
    LONG Role() const; // 0 where it has none
    LONG State() const;
    RECT Place() const; // on the screen, empty where it has none

    std::vector<Node> Children() const {
        return Children(0, ChildCount());
    } // as AccessibleChildren lists them
    // Whether `isIt` says so of a child. No more are fetched then: each costs many calls when it is another process's.
    template <class IsIt>
    bool AnyChild(const IsIt& isIt) const {
        constexpr LONG AtOnce = 8;
        for (LONG first = 0, count = ChildCount(); first < count; first += AtOnce)
            for (const Node& child : Children(first, AtOnce))
                if (isIt(child)) return true;
        return false;
    }
    std::optional<Node> Parent() const;
    std::optional<Node> Navigate(LONG direction) const;
    std::optional<Node> HitTest(POINT screen) const; // of an object's own children
    std::optional<Node> Focus() const;
    std::optional<Node> Selection() const;

private:
    using TextMember = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);
    std::wstring Text(TextMember member) const;
    LONG ChildCount() const;
    std::vector<Node> Children(LONG first, LONG most) const;

    ComPtr<IAccessible> object_;
    LONG child_;
};

} // namespace vantik
