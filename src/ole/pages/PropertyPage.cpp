#include "ole/pages/PropertyPage.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "ole/com/ErrorInfo.h"
#include "ole/com/Identifiers.h"
#include "ole/com/TaskMemory.h"
#include "ole/pages/PageNumbers.h"
#include "platform/Module.h"

namespace vantik {

namespace {

SIZE SizeOf(const RECT& area) noexcept { return {area.right - area.left, area.bottom - area.top}; }

bool GetsFocus(WORD what) noexcept {
    return what == EN_SETFOCUS || what == CBN_SETFOCUS || what == BN_SETFOCUS;
}

bool IsEdit(FieldKind kind, WORD what) noexcept {
    switch (kind) {
    case FieldKind::Text: return what == EN_CHANGE || what == CBN_EDITCHANGE || what == CBN_SELCHANGE;
    case FieldKind::Choice: return what == CBN_SELCHANGE;
    default: return what == BN_CLICKED;
    }
}

// What is typed into, or lists what lies elsewhere, underlines nothing.
bool IsTypedInto(HWND item) noexcept { return SendMessageW(item, WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS; }

// Whether the letter is underlined in a text of the dialog.
bool HasMnemonic(HWND dialog, WPARAM letter) {
    const std::u16string mark = {u'&', static_cast<char16_t>(letter)};
    for (HWND item = GetWindow(dialog, GW_CHILD); item; item = GetWindow(item, GW_HWNDNEXT))
        if (!IsTypedInto(item) && UpperCase(WindowText(item)).find(UpperCase(mark)) != std::u16string::npos)
            return true;
    return false;
}

bool IsKey(UINT message) noexcept { return message >= WM_KEYFIRST && message <= WM_KEYLAST; }

} // namespace

PropertyPage::PropertyPage(WORD dialog, std::span<const Field> fields)
    : number_(dialog), fields_(fields), entered_(fields.size()) {}

template <class Body>
HRESULT PropertyPage::Guard(Body body) noexcept {
    const ComPtr<IUnknown> alive(this);
    return Reported(IID_IPropertyPage, body);
}

STDMETHODIMP PropertyPage::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IPropertyPage || iid == IID_IPropertyPage2;
    *object = known ? static_cast<IPropertyPage2*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) PropertyPage::Release() noexcept {
    const ULONG left = --references_;
    if (!left) delete this;
    return left;
}

STDMETHODIMP PropertyPage::SetPageSite(IPropertyPageSite* site) noexcept {
    if (site && site_) return E_UNEXPECTED;
    return Guard([&] { site_ = ComPtr<IPropertyPageSite>(site); });
}

STDMETHODIMP PropertyPage::Activate(HWND parent, LPCRECT place, BOOL) noexcept {
    if (!place) return E_POINTER;
    if (dialog_.Handle()) return E_UNEXPECTED;
    return Guard([&] { return dialog_.Create(number_, parent) ? Move(place) : E_FAIL; });
}

STDMETHODIMP PropertyPage::Deactivate() noexcept {
    if (!dialog_.Handle()) return E_UNEXPECTED;
    const ComPtr<IUnknown> alive(this);
    dialog_.Destroy();
    scratch_.reset();
    return S_OK;
}

STDMETHODIMP PropertyPage::GetPageInfo(PROPPAGEINFO* info) noexcept {
    if (!info) return E_POINTER;
    return Guard([&] {
        *info = {};
        auto title = TaskCopy(AsWide(ResourceText(number_)));
        auto purpose = TaskCopy(AsWide(ResourceText(number_ + 1u)));
        info->cb = sizeof *info;
        info->pszTitle = title.release();
        info->pszDocString = purpose.release();
        info->size = PageDialog::SizeOf(number_);
    });
}

// What was entered was meant for the objects before.
STDMETHODIMP PropertyPage::SetObjects(ULONG count, IUnknown** objects) noexcept {
    if (count && !objects) return E_POINTER;
    return Guard([&] {
        EditedObjects edited(std::span<IUnknown* const>(objects, count));
        std::vector<PropertyWatch> watches;
        watches.reserve(count);
        for (ULONG i = 0; i < count; ++i)
            watches.emplace_back(objects[i], static_cast<PropertyListener&>(*this));
        std::swap(objects_, edited);
        std::swap(watches_, watches);
        applyFault_.clear();
        Forget();
        if (dialog_.Handle()) Refresh();
    });
}

STDMETHODIMP PropertyPage::Show(UINT command) noexcept {
    if (!dialog_.Handle()) return E_UNEXPECTED;
    if (command != SW_SHOW && command != SW_SHOWNORMAL && command != SW_HIDE) return E_INVALIDARG;
    return Guard([&] {
        ShowWindow(dialog_.Handle(), static_cast<int>(command));
        if (command != SW_HIDE) FocusWanted();
    });
}

STDMETHODIMP PropertyPage::Move(LPCRECT place) noexcept {
    if (!place) return E_POINTER;
    if (!dialog_.Handle()) return E_UNEXPECTED;
    const SIZE size = SizeOf(*place);
    SetWindowPos(dialog_.Handle(), nullptr, place->left, place->top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return S_OK;
}

STDMETHODIMP PropertyPage::IsPageDirty() noexcept { return IsEdited() ? S_OK : S_FALSE; }

STDMETHODIMP PropertyPage::Apply() noexcept {
    return Guard([&] {
        try {
            ApplyWanted();
        } catch (const RunTimeError& error) {
            applyFault_ = error.Description();
            ShowStatus();
            throw;
        }
    });
}

// In the copy first: what that refuses no object has to be asked for.
void PropertyPage::ApplyWanted() {
    if (!IsEdited()) return;
    const auto wanted = Wanted();
    if (objects_.Count())
        if (const auto scratch = ScratchControl::CopyOf(objects_.At(0))) scratch->Assign(wanted);
    objects_.Assign(wanted);
    applyFault_.clear();
    Forget();
    dialog_.RefreshSoon();
}

STDMETHODIMP PropertyPage::Help(LPCOLESTR) noexcept {
    return Guard([&] {
        std::u16string text = ResourceText(number_ + 1u);
        for (const Field& field : fields_) text += u"\n\n" + ResourceText(field.Control);
        const HWND frame = dialog_.Handle() ? GetAncestor(dialog_.Handle(), GA_ROOT) : nullptr;
        MessageBoxW(frame, AsWide(text), AsWide(ResourceText(number_)), MB_OK);
    });
}

// What the page has no use for is the frame's: the keys of its buttons, and Tab on the way out.
STDMETHODIMP PropertyPage::TranslateAccelerator(MSG* message) noexcept {
    if (!message) return E_POINTER;
    return Guard([&]() -> HRESULT {
        const HWND dialog = dialog_.Handle();
        const bool isOurs = dialog && IsKey(message->message) && IsChild(dialog, message->hwnd);
        if (isOurs && !LeavesPage(*message) && IsDialogMessageW(dialog, message)) return S_OK;
        const auto site = site_;
        return site && site->TranslateAccelerator(message) == S_OK ? S_OK : S_FALSE;
    });
}

bool PropertyPage::LeavesPage(MSG& message) const {
    const HWND dialog = dialog_.Handle(), focus = message.hwnd;
    if (message.message == WM_SYSCHAR) return !HasMnemonic(dialog, message.wParam);
    if (message.message != WM_KEYDOWN) return false;
    if (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) // an open list wants them itself
        return !(SendMessageW(focus, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message)) &
                 DLGC_WANTMESSAGE);
    if (message.wParam != VK_TAB) return false;
    const bool back = GetKeyState(VK_SHIFT) < 0;
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    const HWND last = GetNextDlgTabItem(dialog, first, TRUE), end = back ? first : last;
    return focus == end || IsChild(end, focus);
}

STDMETHODIMP PropertyPage::EditProperty(DISPID property) noexcept {
    const auto found =
        std::ranges::find_if(fields_, [&](const Field& each) { return DispIdOf(each.Shown) == property; });
    if (found == fields_.end()) return DISP_E_MEMBERNOTFOUND;
    wanted_ = found->Control;
    return Guard([&] { FocusWanted(); });
}

// A page that does not show yet does so later.
void PropertyPage::FocusWanted() noexcept {
    if (!wanted_ || !IsWindowVisible(dialog_.Handle())) return;
    SetFocus(dialog_.Item(std::exchange(wanted_, WORD{0})));
}

std::size_t PropertyPage::IndexOf(Property property) const noexcept {
    const auto found = std::ranges::find(fields_, property, &Field::Shown);
    return static_cast<std::size_t>(found - fields_.begin());
}

const Field* PropertyPage::FieldOf(WORD control) const noexcept {
    const auto found = std::ranges::find(fields_, control, &Field::Control);
    return found == fields_.end() ? nullptr : &*found;
}

std::optional<std::u16string> PropertyPage::Entered(Property property) const {
    return entered_[IndexOf(property)];
}

std::optional<std::u16string> PropertyPage::Shown(Property property) const {
    const std::size_t index = IndexOf(property);
    return entered_[index] ? entered_[index] : objects_.Value(fields_[index].Name());
}

void PropertyPage::Enter(Property property, std::u16string value) {
    entered_[IndexOf(property)] = std::move(value);
    Edited();
}

void PropertyPage::Edited() noexcept {
    applyFault_.clear();
    dialog_.RefreshSoon();
    const auto site = site_;
    if (site) site->OnStatusChange(PROPPAGESTATUS_DIRTY);
}

std::vector<Assignment> PropertyPage::Wanted() const {
    std::vector<Assignment> wanted;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (entered_[i]) wanted.push_back({fields_[i].Name(), *entered_[i]});
    return wanted;
}

void PropertyPage::Forget() noexcept {
    for (auto& value : entered_) value.reset();
}

bool PropertyPage::IsEdited() const noexcept {
    return std::ranges::any_of(entered_, [](const auto& value) { return value.has_value(); });
}

// What the page does to its own fields is no edit.
class PropertyPage::Showing {
public:
    explicit Showing(PropertyPage& page) noexcept : page_(page) { page_.showing_ = true; }
    ~Showing() { page_.showing_ = false; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;

private:
    PropertyPage& page_;
};

void PropertyPage::Opened() {
    {
        const Showing showing(*this);
        FillLists();
    }
    Refresh();
}

void PropertyPage::Command(WORD control, WORD what) {
    if (showing_) return;
    const Field* const field = FieldOf(control);
    if (GetsFocus(what)) Focused(control);
    if (field && IsEdit(field->Kind, what)) TakeFrom(*field, what);
    if (!field) Beside(control, what);
}

void PropertyPage::Focused(WORD control) {
    focused_ = control;
    ShowStatus();
}

void PropertyPage::TakeFrom(const Field& field, WORD what) {
    if (field.Kind == FieldKind::Flag) Toggle(dialog_.Handle(), field);
    Enter(field.Shown, field.Kind == FieldKind::Text && what == CBN_SELCHANGE
                           ? ChosenText(dialog_.Handle(), field)
                           : EnteredValue(dialog_.Handle(), field));
    TextEntered(field.Shown);
}

void PropertyPage::Refresh() {
    const Showing showing(*this);
    ShowFields();
    ShowRest();
    ShowPicture();
    ShowStatus();
}

void PropertyPage::ShowFields() {
    for (const Field& field : fields_) ShowValue(dialog_.Handle(), field, Shown(field.Shown));
}

// Of the first object, as it would be with what was entered.
void PropertyPage::ShowPicture() {
    scratchFault_.clear();
    scratch_.reset();
    try {
        if (objects_.Count()) scratch_ = ScratchControl::CopyOf(objects_.At(0));
        const auto wanted = Wanted();
        if (scratch_) scratch_->Assign(wanted);
    } catch (const RunTimeError& error) {
        scratchFault_ = error.Description();
    }
    if (const HWND picture = dialog_.Item(PAGE_PICTURE)) InvalidateRect(picture, nullptr, FALSE);
}

void PropertyPage::Draw(WORD control, const DRAWITEMSTRUCT& item) {
    if (control == PAGE_PICTURE)
        DrawPicture(item.hDC, item.rcItem);
    else
        DrawBeside(control, item);
}

void PropertyPage::DrawPicture(HDC dc, const RECT& place) const {
    if (scratch_)
        scratch_->Draw(dc, place);
    else
        FillRect(dc, &place, GetSysColorBrush(COLOR_BTNFACE));
}

// What is wrong, else what the control with the keyboard is for.
void PropertyPage::ShowStatus() {
    const std::u16string& fault = applyFault_.empty() ? scratchFault_ : applyFault_;
    const std::u16string text = fault.empty() && focused_ ? ResourceText(focused_) : fault;
    ShowText(dialog_.Item(PAGE_STATUS), text);
}

} // namespace vantik
