// A property page of the built control by itself: on a plain window, with a site that keeps what it is told.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gfx/TestSurface.h"
#include "host/ComObject.h"
#include "ole/LooseControl.h"
#include "ole/pages/PageNumbers.h"

namespace vantik {

inline constexpr CLSID GeneralPageId = {
    0x2A268946, 0x78E0, 0x4DFB, {0xBF, 0x3D, 0xC9, 0xDB, 0x8C, 0x26, 0xF5, 0x5B}};
inline constexpr CLSID SkinPageId = {
    0x8B514BAB, 0x4522, 0x4613, {0x9D, 0xD6, 0x5C, 0x73, 0x61, 0x47, 0xA3, 0x3D}};

class PageSite final : public ComObject<IPropertyPageSite> {
public:
    std::vector<DWORD> Told; // flags
    int KeysOffered = 0;
    std::function<void()> WhenTold;

    STDMETHODIMP OnStatusChange(DWORD flags) noexcept override {
        Told.push_back(flags);
        if (WhenTold) WhenTold();
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override {
        ++KeysOffered;
        return S_FALSE;
    }
};

inline ComPtr<IPropertyPage2> NewPage(REFCLSID id) {
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get = reinterpret_cast<Function>(
        GetProcAddress(GetModuleHandleW(L"VantikFrameTab.ocx"), "DllGetClassObject"));
    ComPtr<IClassFactory> factory;
    REQUIRE(get(id, IID_IClassFactory, factory.PutVoid()) == S_OK);
    ComPtr<IPropertyPage2> page;
    REQUIRE(factory->CreateInstance(nullptr, IID_IPropertyPage2, page.PutVoid()) == S_OK);
    return page;
}

// The page shows, and edits nothing yet.
class PageUnderTest {
public:
    explicit PageUnderTest(REFCLSID id) : Page(NewPage(id)) {
        REQUIRE(Page->SetPageSite(Site.Get()) == S_OK);
        const RECT place = {0, 0, 500, 250};
        REQUIRE(Page->Activate(Frame, &place, FALSE) == S_OK);
        REQUIRE(Page->Show(SW_SHOW) == S_OK);
    }
    ~PageUnderTest() {
        Page.Reset();
        DestroyWindow(Frame);
    }
    PageUnderTest(const PageUnderTest&) = delete;
    PageUnderTest& operator=(const PageUnderTest&) = delete;

    void Edit(std::vector<IUnknown*> objects) const {
        REQUIRE(Page->SetObjects(static_cast<ULONG>(objects.size()), objects.data()) == S_OK);
    }

    HWND Window() const { return GetWindow(Frame, GW_CHILD); }
    HWND Item(int control) const { return GetDlgItem(Window(), control); }
    std::wstring Text(int control) const {
        wchar_t text[512] = {};
        GetWindowTextW(Item(control), text, 512);
        return text;
    }
    int Choice(int control) const {
        return static_cast<int>(SendMessageW(Item(control), CB_GETCURSEL, 0, 0));
    }
    int Check(int control) const { return static_cast<int>(SendMessageW(Item(control), BM_GETCHECK, 0, 0)); }
    std::vector<std::wstring> List(int control) const {
        std::vector<std::wstring> entries;
        const LRESULT count = SendMessageW(Item(control), CB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            wchar_t text[256] = {};
            SendMessageW(Item(control), CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            entries.emplace_back(text);
        }
        return entries;
    }
    bool IsDirty() const { return Page->IsPageDirty() == S_OK; }

    // What the user does: the window tells its dialog.
    void Type(int control, const wchar_t* text) const {
        SetWindowTextW(Item(control), text);
        if (IsList(control)) Tell(control, CBN_EDITCHANGE);
        Pump();
    }
    void Choose(int control, int entry) const {
        SendMessageW(Item(control), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        Tell(control, CBN_SELCHANGE);
        Pump();
    }
    void Press(int control) const {
        Tell(control, BN_CLICKED);
        Pump();
    }

    static void Pump() {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
    }

    // The picture on the page, within its edge.
    test::Pixels Picture() const {
        RECT client = {};
        GetClientRect(Item(PAGE_PICTURE), &client);
        const test::TestSurface surface(client.right, client.bottom);
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_STATIC;
        item.hDC = surface.DC();
        item.rcItem = client;
        SendMessageW(Window(), WM_DRAWITEM, PAGE_PICTURE, reinterpret_cast<LPARAM>(&item));
        return surface.Read();
    }

    HWND Frame = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 520, 280, nullptr, nullptr,
                                 nullptr, nullptr);
    ComPtr<PageSite> Site = MakeCom<PageSite>();
    ComPtr<IPropertyPage2> Page;

private:
    bool IsList(int control) const {
        wchar_t name[32] = {};
        GetClassNameW(Item(control), name, 32);
        return lstrcmpiW(name, L"ComboBox") == 0;
    }
    void Tell(int control, int what) const {
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(control, what),
                     reinterpret_cast<LPARAM>(Item(control)));
    }
};

} // namespace vantik
