// A part of the control as a screen reader's object. It may be kept for as long as anybody likes: when the control or the
// part is gone every method says so.
#pragma once

#include <atomic>

#include <oleacc.h>

#include "ole/accessible/Link.h"
#include "ole/accessible/Part.h"
#include "ole/com/Module.h"

namespace vantik {

class AccessiblePart final : public IAccessible, public IEnumVARIANT, public IOleWindow {
public:
    static ComPtr<IAccessible> Make(const SharedLink& link, const Part& part);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

    // IAccessible
    STDMETHODIMP get_accParent(IDispatch** parent) noexcept override;
    STDMETHODIMP get_accChildCount(LONG* count) noexcept override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) noexcept override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) noexcept override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) noexcept override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) noexcept override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) noexcept override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) noexcept override;
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) noexcept override;
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) noexcept override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) noexcept override;
    STDMETHODIMP get_accFocus(VARIANT* child) noexcept override;
    STDMETHODIMP get_accSelection(VARIANT* children) noexcept override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) noexcept override;
    STDMETHODIMP accSelect(LONG flags, VARIANT child) noexcept override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                             VARIANT child) noexcept override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) noexcept override;
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) noexcept override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) noexcept override;
    STDMETHODIMP put_accName(VARIANT child, BSTR name) noexcept override;
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) noexcept override;

    // IEnumVARIANT: the children
    STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) noexcept override;
    STDMETHODIMP Skip(ULONG count) noexcept override;
    STDMETHODIMP Reset() noexcept override;
    STDMETHODIMP Clone(IEnumVARIANT** copy) noexcept override;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;

private:
    // Whom a call means: a part, or a window on the page.
    struct Subject;

    AccessiblePart(SharedLink link, const Part& part) noexcept : link_(std::move(link)), part_(part) {}
    ~AccessiblePart() = default;

    Connected Reach() const;
    Subject SubjectOf(const Connected& control, const VARIANT& child) const;
    LONG CountChildren(const Connected& control) const;
    ComPtr<IDispatch> ObjectOf(const Subject& subject) const;
    ComPtr<IDispatch> ParentObject(const Connected& control) const;
    Subject FocusIn(const Connected& control) const;
    Subject Neighbour(const Connected& control, LONG direction, const VARIANT& start) const;
    void GiveOut(const Subject& subject, VARIANT& result) const;

    template <class Body>
    HRESULT Answer(const VARIANT& child, Body body) noexcept;
    template <class Text>
    HRESULT AnswerText(const VARIANT& child, BSTR* result,
                       HRESULT (STDMETHODCALLTYPE IAccessible::*ofWindow)(VARIANT, BSTR*),
                       Text textOf) noexcept;

    ModuleReference module_;
    std::atomic<ULONG> references_ = 1;
    SharedLink link_;
    Part part_;
    LONG next_ = 0; // child to be enumerated
};

} // namespace vantik
