#include "host/PropertyFrame.h"

#include "host/HostError.h"

namespace vantik {

namespace {

enum Id : int { ApplyButton = 100, FirstPage = 200 };

int Scaled(int length) { return MulDiv(length, ScreenResolution(), 96); }

int ButtonHeight() { return Scaled(26); }

// A page of the module itself, which need not be registered.
ComPtr<IPropertyPage> NewPage(REFCLSID id) {
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get = reinterpret_cast<Function>(
        GetProcAddress(GetModuleHandleW(L"VantikFrameTab.ocx"), "DllGetClassObject"));
    ComPtr<IClassFactory> factory;
    ComPtr<IPropertyPage> page;
    if (SUCCEEDED(get(id, __uuidof(IClassFactory), factory.PutVoid())))
        factory->CreateInstance(nullptr, __uuidof(IPropertyPage), page.PutVoid());
    return page;
}

// Those of the system are left out: not every system has them.
std::vector<ComPtr<IPropertyPage>> PagesOf(IUnknown* control) {
    CAUUID ids = {};
    Check(QueryFor<ISpecifyPropertyPages>(control)->GetPages(&ids), "GetPages");
    std::vector<ComPtr<IPropertyPage>> pages;
    for (ULONG i = 0; i < ids.cElems; ++i)
        if (auto page = NewPage(ids.pElems[i])) pages.push_back(std::move(page));
    CoTaskMemFree(ids.pElems);
    return pages;
}

} // namespace

PropertyFrame::PropertyFrame(IUnknown* control, std::function<void()> closed)
    : window_(L"Properties", {300, 100},
              [this](UINT message, WPARAM wParam, LPARAM) { return OnMessage(message, wParam); }),
      closed_(std::move(closed)),
      pages_(PagesOf(control)),
      left_(Scaled(4)) {
    for (std::size_t i = 0; i < pages_.size(); ++i)
        Add(*pages_[i].Get(), control, FirstPage + static_cast<int>(i));
    apply_ = AddButton(L"&Apply", ApplyButton);
    EnableWindow(apply_, FALSE);
    for (const auto& page : pages_) FitInto(*page.Get());
    window_.Show();
    Turn(0);
}

void PropertyFrame::End() noexcept {
    for (const auto& page : std::exchange(pages_, {})) {
        page->Deactivate();
        page->SetObjects(0, nullptr);
        page->SetPageSite(nullptr);
    }
    ShowWindow(window_.Handle(), SW_HIDE);
}

void PropertyFrame::ComeToFront() {
    SetForegroundWindow(window_.Handle());
    FocusPage();
}

bool PropertyFrame::TranslateMessage(MSG& message) {
    if (pages_.empty() || !IsChild(window_.Handle(), message.hwnd)) return false;
    const ComPtr<IPropertyPage> page = pages_[shown_];
    return page->TranslateAccelerator(&message) == S_OK || IsDialogMessageW(window_.Handle(), &message);
}

HRESULT PropertyFrame::OnStatusChange(DWORD flags) noexcept {
    EnableWindow(apply_, (flags & PROPPAGESTATUS_DIRTY) != 0);
    return S_OK;
}

HRESULT PropertyFrame::GetLocaleID(LCID* locale) noexcept {
    if (!locale) return E_POINTER;
    *locale = LOCALE_USER_DEFAULT;
    return S_OK;
}

HWND PropertyFrame::AddButton(const wchar_t* text, int id) {
    const Box place = {left_, Scaled(2), Scaled(80), ButtonHeight() - Scaled(4)};
    left_ = place.Right() + Scaled(4);
    return MakeWidget(window_.Handle(), L"BUTTON", text, WS_TABSTOP, place, id, font_);
}

void PropertyFrame::Add(IPropertyPage& page, IUnknown* control, int id) {
    Check(page.SetPageSite(this), "SetPageSite");
    Check(page.SetObjects(1, &control), "SetObjects");
    PROPPAGEINFO info = {};
    info.cb = sizeof info;
    Check(page.GetPageInfo(&info), "GetPageInfo");
    AddButton(info.pszTitle, id);
    size_ = {std::max(size_.cx, info.size.cx), std::max(size_.cy, info.size.cy)};
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    CoTaskMemFree(info.pszHelpFile);
}

void PropertyFrame::FitInto(IPropertyPage& page) {
    const RECT place = {0, ButtonHeight(), size_.cx, ButtonHeight() + size_.cy};
    window_.ResizeClient({place.right, place.bottom});
    Check(page.Activate(window_.Handle(), &place, FALSE), "Activate");
}

void PropertyFrame::Turn(std::size_t page) {
    if (page >= pages_.size()) return;
    pages_[shown_]->Show(SW_HIDE);
    shown_ = page;
    pages_[shown_]->Show(SW_SHOW);
    FocusPage();
}

void PropertyFrame::FocusPage() { SetFocus(GetNextDlgTabItem(window_.Handle(), apply_, FALSE)); }

void PropertyFrame::Apply() {
    bool isDirty = false;
    const auto pages = pages_; // what is applied may end the frame
    for (const auto& page : pages) isDirty |= FAILED(page->Apply());
    FocusPage();
    EnableWindow(apply_, isDirty);
}

std::optional<LRESULT> PropertyFrame::OnMessage(UINT message, WPARAM wParam) {
    if (message != WM_CLOSE && (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED)) return std::nullopt;
    const int id = message == WM_CLOSE ? int{IDCANCEL} : LOWORD(wParam);
    if (id == ApplyButton) Apply();
    if (id >= FirstPage) Turn(static_cast<std::size_t>(id - FirstPage));
    if (id == IDCANCEL) closed_();
    return 0;
}

} // namespace vantik
