#include "ole/accessible/AccessiblePart.h"

#include <optional>

#include "ole/accessible/PartActions.h"
#include "ole/accessible/PartStates.h"
#include "ole/accessible/PartTexts.h"
#include "ole/accessible/PartTree.h"
#include "ole/accessible/Windows.h"
#include "ole/com/ErrorInfo.h"
#include "ole/com/Variant.h"

namespace vantik {

namespace {

VARIANT Number(LONG value) noexcept { return Variant(std::int32_t{value}).Detach(); }

VARIANT Self() noexcept { return Number(CHILDID_SELF); }

// A child's number. Callers by name give short ones, too, and variables of theirs.
LONG NumberIn(const VARIANT& child) {
    const VARIANT& number = child.vt == (VT_BYREF | VT_VARIANT) && child.byref ? *child.pvarVal : child;
    if ((number.vt & VT_BYREF) && !number.byref) RaiseHostError(E_INVALIDARG);
    switch (number.vt) {
    case VT_I4: return number.lVal;
    case VT_I2: return number.iVal;
    case VT_BYREF | VT_I4: return *number.plVal;
    case VT_BYREF | VT_I2: return *number.piVal;
    default: RaiseHostError(E_INVALIDARG);
    }
}

// An out parameter, empty until there is something to give out.
template <class Value>
Value& Emptied(Value* out) {
    if (!out) RaiseHostError(E_INVALIDARG);
    return *out = {};
}

std::optional<Direction> SideOf(LONG direction) noexcept {
    switch (direction) {
    case NAVDIR_LEFT: return Direction::Left;
    case NAVDIR_RIGHT: return Direction::Right;
    case NAVDIR_UP: return Direction::Up;
    case NAVDIR_DOWN: return Direction::Down;
    default: return std::nullopt;
    }
}

// The system's own description of the interface, for calls by name. Null where it is not registered.
ComPtr<ITypeInfo> TypeOfAccessible() noexcept {
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> type;
    if (SUCCEEDED(LoadRegTypeLib(LIBID_Accessibility, 1, 1, LOCALE_NEUTRAL, library.Put())))
        library->GetTypeInfoOfGuid(IID_IAccessible, type.Put());
    return type;
}

} // namespace

struct AccessiblePart::Subject {
    std::optional<Part> OfControl;
    ComPtr<IAccessible> Window = nullptr;
    bool IsSelf = false;

    bool IsNothing() const noexcept { return !OfControl && !Window; }
};

ComPtr<IAccessible> AccessiblePart::Make(const SharedLink& link, const Part& part) {
    return ComPtr<IAccessible>::Adopt(new AccessiblePart(link, part));
}

STDMETHODIMP AccessiblePart::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IAccessible)
        *object = static_cast<IAccessible*>(this);
    else if (iid == IID_IEnumVARIANT)
        *object = static_cast<IEnumVARIANT*>(this);
    else if (iid == IID_IOleWindow)
        *object = static_cast<IOleWindow*>(this);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) AccessiblePart::Release() noexcept {
    const ULONG left = --references_;
    if (!left) delete this;
    return left;
}

STDMETHODIMP AccessiblePart::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_INVALIDARG;
    *count = TypeOfAccessible() ? 1 : 0;
    return S_OK;
}

STDMETHODIMP AccessiblePart::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_INVALIDARG;
    *info = index == 0 ? TypeOfAccessible().Copy() : nullptr;
    return *info ? S_OK : DISP_E_BADINDEX;
}

STDMETHODIMP AccessiblePart::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (!names || !ids) return E_INVALIDARG;
    const auto type = TypeOfAccessible();
    return type ? type->GetIDsOfNames(names, count, ids) : E_NOTIMPL;
}

STDMETHODIMP AccessiblePart::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                    VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    if (!parameters) return E_INVALIDARG;
    const auto type = TypeOfAccessible();
    if (!type) return E_NOTIMPL;
    return type->Invoke(static_cast<IAccessible*>(this), id, flags, parameters, result, exception,
                        wrongArgument);
}

Connected AccessiblePart::Reach() const {
    Connected control(*link_);
    if (!Exists(control.State(), part_)) RaiseHostError(CO_E_OBJNOTCONNECTED);
    return control;
}

LONG AccessiblePart::CountChildren(const Connected& control) const {
    if (part_.Kind == PartKind::Page) return static_cast<LONG>(ShownChildren(control.Window()).size());
    return vantik::CountChildren(control.State(), part_);
}

// Itself, or a child by its number from 1.
AccessiblePart::Subject AccessiblePart::SubjectOf(const Connected& control, const VARIANT& child) const {
    const LONG number = NumberIn(child);
    if (number == CHILDID_SELF) return {part_, nullptr, true};
    if (number < 0) RaiseHostError(E_INVALIDARG);
    const LONG index = number - 1;
    if (part_.Kind == PartKind::Page) {
        const auto windows = ShownChildren(control.Window());
        if (static_cast<std::size_t>(index) >= windows.size()) RaiseHostError(E_INVALIDARG);
        return {std::nullopt, link_->System.Describe(windows[static_cast<std::size_t>(index)])};
    }
    const auto part = ChildAt(control.State(), part_, index);
    if (!part) RaiseHostError(E_INVALIDARG);
    return {part, nullptr};
}

ComPtr<IDispatch> AccessiblePart::ObjectOf(const Subject& subject) const {
    if (subject.OfControl) return Make(link_, *subject.OfControl).As<IDispatch>();
    return subject.Window.As<IDispatch>();
}

// What a VARIANT says of it: its number when it is the one that was asked, else its object.
void AccessiblePart::GiveOut(const Subject& subject, VARIANT& result) const {
    if (subject.IsNothing()) return;
    if (subject.IsSelf) {
        result = Self();
        return;
    }
    result.pdispVal = ObjectOf(subject).Copy();
    result.vt = result.pdispVal ? VT_DISPATCH : VT_EMPTY;
}

// Runs the body with the control and with whom the caller means.
template <class Body>
HRESULT AccessiblePart::Answer(const VARIANT& child, Body body) noexcept {
    return Guarded([&] {
        const Connected control = Reach();
        const Subject subject = SubjectOf(control, child);
        if (subject.IsNothing()) return CO_E_OBJNOTCONNECTED; // the window went just now
        return body(control, subject);
    });
}

template <class Text>
HRESULT AccessiblePart::AnswerText(const VARIANT& child, BSTR* result,
                                   HRESULT (STDMETHODCALLTYPE IAccessible::*ofWindow)(VARIANT, BSTR*),
                                   Text textOf) noexcept {
    if (!result) return E_INVALIDARG;
    *result = nullptr;
    return Answer(child, [&](const Connected& control, const Subject& subject) -> HRESULT {
        if (subject.Window) return (subject.Window.Get()->*ofWindow)(Self(), result);
        const std::u16string text = textOf(*control, *subject.OfControl);
        if (text.empty()) return S_FALSE;
        *result = NewBstr(text);
        return S_OK;
    });
}

ComPtr<IDispatch> AccessiblePart::ParentObject(const Connected& control) const {
    if (part_.Kind == PartKind::Row) return link_->System.Describe(control.Window()).As<IDispatch>();
    return Make(link_, ParentOf(part_)).As<IDispatch>();
}

STDMETHODIMP AccessiblePart::get_accParent(IDispatch** parent) noexcept {
    return Guarded([&] {
        IDispatch*& out = Emptied(parent);
        out = ParentObject(Reach()).Copy();
        return out ? S_OK : S_FALSE;
    });
}

STDMETHODIMP AccessiblePart::get_accChildCount(LONG* count) noexcept {
    return Guarded([&] { Emptied(count) = CountChildren(Reach()); });
}

STDMETHODIMP AccessiblePart::get_accChild(VARIANT child, IDispatch** object) noexcept {
    if (!object) return E_INVALIDARG;
    *object = nullptr;
    return Answer(child, [&](const Connected&, const Subject& subject) -> HRESULT {
        *object = ObjectOf(subject).Copy();
        return *object ? S_OK : S_FALSE;
    });
}

STDMETHODIMP AccessiblePart::get_accName(VARIANT child, BSTR* name) noexcept {
    return AnswerText(child, name, &IAccessible::get_accName,
                      [](const Control& control, const Part& part) { return NameOf(control, part); });
}

STDMETHODIMP AccessiblePart::get_accDescription(VARIANT child, BSTR* description) noexcept {
    return AnswerText(child, description, &IAccessible::get_accDescription,
                      [](const Control& control, const Part& part) { return DescriptionOf(control, part); });
}

STDMETHODIMP AccessiblePart::get_accDefaultAction(VARIANT child, BSTR* action) noexcept {
    return AnswerText(child, action, &IAccessible::get_accDefaultAction,
                      [](const Control&, const Part& part) { return DefaultActionOf(part); });
}

STDMETHODIMP AccessiblePart::get_accValue(VARIANT child, BSTR* value) noexcept {
    return AnswerText(child, value, &IAccessible::get_accValue,
                      [](const Control&, const Part&) { return std::u16string(); });
}

STDMETHODIMP AccessiblePart::get_accHelp(VARIANT child, BSTR* help) noexcept {
    return AnswerText(child, help, &IAccessible::get_accHelp,
                      [](const Control&, const Part&) { return std::u16string(); });
}

STDMETHODIMP AccessiblePart::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) noexcept {
    return AnswerText(child, shortcut, &IAccessible::get_accKeyboardShortcut,
                      [](const Control&, const Part&) { return std::u16string(); });
}

STDMETHODIMP AccessiblePart::get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) noexcept {
    if (!file || !topic) return E_INVALIDARG;
    *file = nullptr;
    *topic = 0;
    return Answer(child, [](const Connected&, const Subject&) { return S_FALSE; });
}

STDMETHODIMP AccessiblePart::get_accRole(VARIANT child, VARIANT* role) noexcept {
    if (!role) return E_INVALIDARG;
    *role = {};
    return Answer(child, [&](const Connected&, const Subject& subject) -> HRESULT {
        if (subject.Window) return subject.Window->get_accRole(Self(), role);
        *role = Number(RoleOf(*subject.OfControl));
        return S_OK;
    });
}

STDMETHODIMP AccessiblePart::get_accState(VARIANT child, VARIANT* state) noexcept {
    if (!state) return E_INVALIDARG;
    *state = {};
    return Answer(child, [&](const Connected& control, const Subject& subject) -> HRESULT {
        if (subject.Window) return subject.Window->get_accState(Self(), state);
        *state = Number(StateOf(*control, *subject.OfControl));
        return S_OK;
    });
}

AccessiblePart::Subject AccessiblePart::FocusIn(const Connected& control) const {
    const HWND focused = FocusedChild(control.Window());
    const Part activeTab = {PartKind::Tab, control.State().Properties.ActiveTab};
    const bool isOnRow = GetFocus() == control.Window();
    switch (part_.Kind) {
    case PartKind::Row:
        if (focused && Exists(control.State(), {PartKind::Page})) return {Part{PartKind::Page}, nullptr};
        if (!isOnRow) return {};
        return Exists(control.State(), activeTab) ? Subject{activeTab, nullptr}
                                                  : Subject{part_, nullptr, true};
    case PartKind::Tab: return isOnRow && part_ == activeTab ? Subject{part_, nullptr, true} : Subject{};
    case PartKind::Page: return focused ? Subject{std::nullopt, link_->System.Describe(focused)} : Subject{};
    default: return {};
    }
}

STDMETHODIMP AccessiblePart::get_accFocus(VARIANT* child) noexcept {
    return Guarded([&] {
        VARIANT& out = Emptied(child);
        GiveOut(FocusIn(Reach()), out);
    });
}

STDMETHODIMP AccessiblePart::get_accSelection(VARIANT* children) noexcept {
    return Guarded([&]() -> HRESULT {
        VARIANT& out = Emptied(children);
        const Connected control = Reach();
        if (part_.Kind != PartKind::Row) return DISP_E_MEMBERNOTFOUND;
        const Part activeTab = {PartKind::Tab, control.State().Properties.ActiveTab};
        if (Exists(control.State(), activeTab)) GiveOut({activeTab, nullptr}, out);
        return S_OK;
    });
}

STDMETHODIMP AccessiblePart::accSelect(LONG flags, VARIANT child) noexcept {
    return Answer(child, [&](const Connected& control, const Subject& subject) -> HRESULT {
        if (subject.Window) return subject.Window->accSelect(flags, Self());
        Select(*control, *subject.OfControl, flags);
        return S_OK;
    });
}

STDMETHODIMP AccessiblePart::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                         VARIANT child) noexcept {
    if (!left || !top || !width || !height) return E_INVALIDARG;
    *left = *top = *width = *height = 0;
    return Answer(child, [&](const Connected& control, const Subject& subject) -> HRESULT {
        if (subject.Window) return subject.Window->accLocation(left, top, width, height, Self());
        const LayoutRect area = AreaOf(control.State(), *subject.OfControl);
        if (area == LayoutRect()) return S_OK;
        const RECT place = OnScreen(control.Window(), area);
        *left = place.left;
        *top = place.top;
        *width = place.right - place.left;
        *height = place.bottom - place.top;
        return S_OK;
    });
}

// Along the children of the parent of whom is asked, or from a parent to its first or last.
AccessiblePart::Subject AccessiblePart::Neighbour(const Connected& control, LONG direction,
                                                  const VARIANT& start) const {
    const Subject from = SubjectOf(control, start);
    const auto child = [&](LONG number) -> Subject {
        const bool isThere = number >= 1 && number <= CountChildren(control);
        return isThere ? SubjectOf(control, Number(number)) : Subject{};
    };
    if (direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD) {
        if (!from.IsSelf) RaiseHostError(E_INVALIDARG);
        return child(direction == NAVDIR_FIRSTCHILD ? 1 : CountChildren(control));
    }
    const LONG step = direction == NAVDIR_NEXT ? 1 : direction == NAVDIR_PREVIOUS ? -1 : 0;
    const auto side = SideOf(direction);
    if (from.Window) return step ? child(start.lVal + step) : Subject{};
    const Part part = *from.OfControl;
    if (side) return {vantik::Neighbour(control.State(), part, *side), nullptr};
    return {ChildAt(control.State(), ParentOf(part), IndexOf(control.State(), part) + step), nullptr};
}

STDMETHODIMP AccessiblePart::accNavigate(LONG direction, VARIANT start, VARIANT* end) noexcept {
    return Guarded([&]() -> HRESULT {
        VARIANT& out = Emptied(end);
        const Connected control = Reach();
        if (direction <= NAVDIR_MIN || direction >= NAVDIR_MAX) return E_INVALIDARG;
        const bool isToChild = direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD;
        if (part_.Kind == PartKind::Row && !isToChild && SubjectOf(control, start).IsSelf) {
            const auto window = link_->System.Describe(control.Window()); // knows what stands beside
            return window ? window->accNavigate(direction, Number(OBJID_CLIENT), end) : S_FALSE;
        }
        GiveOut(Neighbour(control, direction, start), out);
        return out.vt == VT_EMPTY ? S_FALSE : S_OK;
    });
}

STDMETHODIMP AccessiblePart::accHitTest(LONG left, LONG top, VARIANT* child) noexcept {
    return Guarded([&] {
        VARIANT& out = Emptied(child);
        const Connected control = Reach();
        POINT point = {left, top};
        ScreenToClient(control.Window(), &point);
        const auto found = PartAt(control.State(), part_, {point.x, point.y});
        Subject subject = {found, nullptr, found == part_};
        if (found == Part{PartKind::Page} && subject.IsSelf)
            if (const HWND window = ShownChildAt(control.Window(), {left, top}))
                subject = {std::nullopt, link_->System.Describe(window)};
        GiveOut(subject, out);
        return out.vt == VT_EMPTY ? S_FALSE : S_OK;
    });
}

STDMETHODIMP AccessiblePart::accDoDefaultAction(VARIANT child) noexcept {
    return Answer(child, [&](const Connected& control, const Subject& subject) -> HRESULT {
        if (subject.Window) return subject.Window->accDoDefaultAction(Self());
        Act(*control, *subject.OfControl);
        return S_OK;
    });
}

// Names are the host's, and nothing has a value.
STDMETHODIMP AccessiblePart::put_accName(VARIANT, BSTR) noexcept { return DISP_E_MEMBERNOTFOUND; }
STDMETHODIMP AccessiblePart::put_accValue(VARIANT, BSTR) noexcept { return DISP_E_MEMBERNOTFOUND; }

STDMETHODIMP AccessiblePart::Next(ULONG count, VARIANT* items, ULONG* fetched) noexcept {
    if (fetched) *fetched = 0;
    if (!items || (!fetched && count != 1)) return E_INVALIDARG;
    ULONG copied = 0;
    const HRESULT result = Guarded([&] {
        const Connected control = Reach();
        for (; copied < count && next_ < CountChildren(control); ++copied) {
            items[copied] = {};
            GiveOut(SubjectOf(control, Number(++next_)), items[copied]);
        }
    });
    if (fetched) *fetched = copied;
    if (FAILED(result)) return result;
    return copied == count ? S_OK : S_FALSE;
}

STDMETHODIMP AccessiblePart::Skip(ULONG count) noexcept {
    return Guarded([&] {
        const auto left = static_cast<ULONG>(std::max<LONG>(CountChildren(Reach()) - next_, 0));
        next_ += static_cast<LONG>(std::min(count, left));
        return count <= left ? S_OK : S_FALSE;
    });
}

STDMETHODIMP AccessiblePart::Reset() noexcept {
    next_ = 0;
    return S_OK;
}

STDMETHODIMP AccessiblePart::Clone(IEnumVARIANT** copy) noexcept {
    return Guarded([&] {
        IEnumVARIANT*& out = Emptied(copy);
        auto* const part = new AccessiblePart(link_, part_);
        part->next_ = next_;
        out = part;
    });
}

STDMETHODIMP AccessiblePart::GetWindow(HWND* window) noexcept {
    return Guarded([&] { Emptied(window) = Reach().Window(); });
}

STDMETHODIMP AccessiblePart::ContextSensitiveHelp(BOOL) noexcept { return E_NOTIMPL; }

} // namespace vantik
