// A form under design and a frame with the property pages of its control, as designers have one: a button for each page,
// one that applies. Prints a line of properties whenever one of them changes. With --system the control's own verb shows
// the system's frame.
#include <cstdio>

#include "host/BuiltControl.h"
#include "host/HostForm.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"
#include "host/ProgramArguments.h"

namespace vantik {

namespace {

constexpr int ApplyButton = 100;
constexpr LONG ButtonHeight = 26;

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

class PageFrame final : public ComObject<IPropertyPageSite> {
public:
    explicit PageFrame(IUnknown* control) : pages_(PagesOf(control)) {
        for (std::size_t i = 0; i < pages_.size(); ++i) Add(*pages_[i].Get(), control, static_cast<int>(i));
        apply_ = AddButton(L"&Apply", ApplyButton);
        EnableWindow(apply_, FALSE);
        for (const auto& page : pages_) FitInto(*page.Get());
        window_.Show();
        Turn(0);
    }

    // Page and frame keep each other until then.
    void End() {
        for (const auto& page : pages_) {
            page->Deactivate();
            page->SetObjects(0, nullptr);
            page->SetPageSite(nullptr);
        }
        pages_.clear();
    }

    // What a message loop does with a message before it is dispatched.
    bool Translate(MSG& message) {
        return IsChild(window_.Handle(), message.hwnd) &&
               (pages_[shown_]->TranslateAccelerator(&message) == S_OK ||
                IsDialogMessageW(window_.Handle(), &message));
    }

    STDMETHODIMP OnStatusChange(DWORD flags) noexcept override {
        EnableWindow(apply_, flags & PROPPAGESTATUS_DIRTY);
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }

private:
    HWND AddButton(const wchar_t* text, int id) {
        const HWND button = CreateWindowExW(
            0, L"BUTTON", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, left_, 2, 80, ButtonHeight - 4,
            window_.Handle(), reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)), nullptr, nullptr);
        left_ += 84;
        return button;
    }

    void Add(IPropertyPage& page, IUnknown* control, int number) {
        Check(page.SetPageSite(this), "SetPageSite");
        Check(page.SetObjects(1, &control), "SetObjects");
        PROPPAGEINFO info = {};
        info.cb = sizeof info;
        Check(page.GetPageInfo(&info), "GetPageInfo");
        AddButton(info.pszTitle, number + 1);
        size_ = {std::max(size_.cx, info.size.cx), std::max(size_.cy, info.size.cy)};
        CoTaskMemFree(info.pszTitle);
        CoTaskMemFree(info.pszDocString);
    }

    void FitInto(IPropertyPage& page) {
        const RECT place = {0, ButtonHeight, size_.cx, ButtonHeight + size_.cy};
        window_.ResizeClient({place.right, place.bottom});
        Check(page.Activate(window_.Handle(), &place, FALSE), "Activate");
    }

    void Turn(std::size_t page) {
        pages_[shown_]->Show(SW_HIDE);
        shown_ = page;
        pages_[shown_]->Show(SW_SHOW);
        FocusPage();
    }

    void FocusPage() { SetFocus(GetNextDlgTabItem(window_.Handle(), apply_, FALSE)); }

    void Apply() {
        bool isDirty = false;
        for (const auto& page : pages_) isDirty |= FAILED(page->Apply());
        FocusPage();
        EnableWindow(apply_, isDirty);
    }

    std::optional<LRESULT> Handle(UINT message, WPARAM wParam) {
        if (message == WM_CLOSE) PostQuitMessage(0);
        if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED) return std::nullopt;
        const int button = LOWORD(wParam);
        if (button == ApplyButton) Apply();
        if (button > 0 && button <= static_cast<int>(pages_.size()))
            Turn(static_cast<std::size_t>(button) - 1);
        return 0;
    }

    FormWindow window_{L"Properties", {300, 100}, [this](UINT message, WPARAM wParam, LPARAM) {
                           return Handle(message, wParam);
                       }};
    std::vector<ComPtr<IPropertyPage>> pages_;
    std::size_t shown_ = 0;
    HWND apply_ = nullptr;
    int left_ = 4;
    SIZE size_ = {};
};

void Print(HostForm& form) {
    for (const wchar_t* property : {L"BarWidth", L"TabPos", L"TabBorder", L"SkinPath", L"SkinFile"})
        std::printf("%s=%s ", ToUtf8(property).c_str(),
                    ToUtf8(Get(form.Control(), property).As(VT_BSTR).Text()).c_str());
    std::puts("");
    std::fflush(stdout);
}

void ShowSystemsFrame(HostForm& form) {
    const RECT place = {};
    QueryFor<IOleObject>(form.ControlObject())
        ->DoVerb(OLEIVERB_PROPERTIES, nullptr, &form.Site(), 0, form.Window().Handle(), &place);
}

void ShowOwnFrame(HostForm& form) {
    const auto frame = MakeCom<PageFrame>(form.ControlObject());
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
        if (frame->Translate(message) || form.TranslateMessage(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    frame->End();
}

void Run(bool system) {
    const OleApartment apartment;
    ControlModule module(FindBuiltControl());
    HostForm* opened = nullptr;
    FormHandlers handlers;
    handlers.PropertyChanged = [&](DISPID) {
        if (opened) Print(*opened);
    };
    HostSwitches underDesign;
    underDesign.UserMode = false;
    HostForm form(module, {}, underDesign, handlers);
    form.Window().Show();
    form.OpenNew();
    Put(form.Control(), L"BarWidth", std::int16_t{60});
    Put(form.Control(), L"TabCount", std::int16_t{3});
    Put(form.Control(), L"ActiveTab", std::int16_t{0});
    PumpMessages(form);
    opened = &form;
    system ? ShowSystemsFrame(form) : ShowOwnFrame(form);
    opened = nullptr;
}

} // namespace

} // namespace vantik

int main() {
    try {
        const auto arguments = vantik::ProgramArguments();
        vantik::Run(!arguments.empty() && arguments[0] == L"--system");
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "designer: %s\n", error.what());
        return 1;
    }
}
