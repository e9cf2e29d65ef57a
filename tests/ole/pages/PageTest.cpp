// The page "General", and what all pages have in common.
#include <doctest/doctest.h>

#include <algorithm>
#include <functional>

#include "host/NumberedDispatch.h"
#include "ole/pages/PageUnderTest.h"
#include "ole/window/WindowedControl.h"

namespace vantik {

namespace {

// A second control of the module that a LooseControl has loaded.
ComPtr<IDispatch> AnotherOf(LooseControl& control) {
    return QueryFor<IDispatch>(control.Module().Create().Get());
}

int Number(IDispatch& object, const wchar_t* property) { return Get(object, property).Number(); }

class ChangeLog final : public ComObject<IPropertyNotifySink> {
public:
    std::vector<DISPID> Changed;
    STDMETHODIMP OnChanged(DISPID id) noexcept override {
        Changed.push_back(id);
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }
};

void Watch(IUnknown* object, ChangeLog& log) {
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    REQUIRE(QueryFor<IConnectionPointContainer>(object)->FindConnectionPoint(IID_IPropertyNotifySink,
                                                                             point.Put()) == S_OK);
    REQUIRE(point->Advise(&log, &cookie) == S_OK);
}

// Knows any property, and does with calls what the test wants.
class OddObject final : public ComObject<NumberedDispatch, IConnectionPointContainer> {
public:
    std::function<HRESULT(WORD flags)> During = [](WORD) { return E_FAIL; };
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) noexcept override {
        *ids = 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override {
        if (result) result->vt = VT_I4, result->lVal = 7;
        return During(flags);
    }
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID, IConnectionPoint** point) noexcept override {
        *point = nullptr;
        return S_OK; // which is a lie
    }
};

} // namespace

TEST_CASE("A page says what it is called, what it is for and how large it is") {
    const LooseControl control;
    const auto page = NewPage(GeneralPageId);
    PROPPAGEINFO info = {};
    info.cb = sizeof info;
    REQUIRE(page->GetPageInfo(&info) == S_OK);
    CHECK(std::wstring(info.pszTitle) == L"General");
    CHECK(std::wstring(info.pszDocString).find(L"row of bars") != std::wstring::npos);
    CHECK(info.pszHelpFile == nullptr);
    const LONG units = LOWORD(GetDialogBaseUnits());
    CHECK(info.size.cx >=
          250 * units / 4 * 3 / 4); // 250 dialog units of a font about as large as the system's
    CHECK(info.size.cy > 110);
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    CHECK(page->GetPageInfo(nullptr) == E_POINTER);
}

// 250 dialog units of the font that the dialogs name, which grows with the screen's scale.
TEST_SUITE_BEGIN("scaled");
TEST_CASE("A page grows with the dots per inch") {
    const LooseControl control;
    const auto page = NewPage(GeneralPageId);
    PROPPAGEINFO info = {};
    info.cb = sizeof info;
    REQUIRE(page->GetPageInfo(&info) == S_OK);
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    const HDC screen = GetDC(nullptr);
    const int scale = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    CHECK(scale == 168);
    CHECK(info.size.cx >= 330 * scale / 96); // about 375 pixels at 96 dots per inch
    CHECK(info.size.cx <= 420 * scale / 96);
}
TEST_SUITE_END();

TEST_CASE("A page shows what the object has") {
    LooseControl control;
    control.Tab->put_TabPos(WindowBottom);
    control.Tab->put_TabBarPos(TabMiddle);
    control.Tab->put_BarWidth(61);
    control.Tab->put_TabToTab(-3);
    control.Tab->put_FrameDist(5);
    control.Tab->put_TabBorder(VARIANT_TRUE);
    control.Tab->put_DelButton(VARIANT_FALSE);
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    CHECK(test.Choice(GENERAL_SIDE) == 3);
    CHECK(test.Choice(GENERAL_PLACE) == 1);
    CHECK(test.Text(GENERAL_WIDTH) == L"61");
    CHECK(test.Text(GENERAL_GAP) == L"-3");
    CHECK(test.Text(GENERAL_MARGIN) == L"5");
    CHECK(test.Check(GENERAL_EDGES) == BST_CHECKED);
    CHECK(test.Check(GENERAL_CLOSE) == BST_UNCHECKED);
    CHECK(!test.IsDirty());
    CHECK(test.Site->Told.empty());
    CHECK(test.List(GENERAL_SIDE) == std::vector<std::wstring>{L"Left", L"Right", L"Top", L"Bottom"});
    CHECK(test.List(GENERAL_PLACE).size() == 4);
    Put(control.Dispatch(), L"TabPos", std::int32_t{17}); // stored as it is; the list has no such entry
    test.Pump();
    CHECK(test.Choice(GENERAL_SIDE) == -1);
}

TEST_CASE("Only what was edited is applied") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    const auto log = MakeCom<ChangeLog>();
    Watch(control.Object(), *log.Get());
    test.Type(GENERAL_WIDTH, L"77");
    test.Press(GENERAL_CLOSE);
    CHECK(test.IsDirty());
    CHECK(test.Site->Told == std::vector<DWORD>{PROPPAGESTATUS_DIRTY, PROPPAGESTATUS_DIRTY});
    CHECK(Number(control.Dispatch(), L"BarWidth") == 20);
    CHECK(log->Changed.empty());
    CHECK(test.Page->Apply() == S_OK);
    CHECK(Number(control.Dispatch(), L"BarWidth") == 77);
    CHECK(!Get(control.Dispatch(), L"DelButton").Flag());
    CHECK(log->Changed == std::vector<DISPID>{14, 27});
    CHECK(!test.IsDirty());
    CHECK(test.Page->Apply() == S_OK); // nothing is left
    CHECK(log->Changed.size() == 2);
}

TEST_CASE("Of several objects a page shows what they share, and gives all of them what is edited") {
    LooseControl control;
    const auto other = AnotherOf(control);
    Put(*other.Get(), L"BarWidth", std::int16_t{44});
    Put(*other.Get(), L"TabPos", std::int32_t{0});
    Put(*other.Get(), L"TabBorder", true);
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object(), other.Get()});
    CHECK(test.Text(GENERAL_WIDTH).empty());
    CHECK(test.Choice(GENERAL_SIDE) == -1);
    CHECK(test.Check(GENERAL_EDGES) == BST_INDETERMINATE);
    CHECK(test.Text(GENERAL_GAP) == L"0");
    test.Type(GENERAL_GAP, L"4");
    test.Press(GENERAL_EDGES);
    CHECK(test.Check(GENERAL_EDGES) == BST_CHECKED); // from "differ" to a value, and no way back
    test.Press(GENERAL_EDGES);
    CHECK(test.Check(GENERAL_EDGES) == BST_UNCHECKED);
    CHECK(test.Page->Apply() == S_OK);
    for (IDispatch* each : {&control.Dispatch(), other.Get()}) {
        CHECK(Number(*each, L"TabToTab") == 4);
        CHECK(!Get(*each, L"TabBorder").Flag());
    }
    CHECK(Number(control.Dispatch(), L"BarWidth") == 20);
    CHECK(Number(*other.Get(), L"BarWidth") == 44);
    CHECK(Number(*other.Get(), L"TabPos") == 0);
}

TEST_CASE("What the control refuses stays to be corrected, with the control's own words") {
    LooseControl control;
    control.Tab->put_TabCount(3);
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    struct {
        const wchar_t *Text, *Said;
    } const refused[] = {
        {L"0", L"No layout for BarWidth = 0"}, {L"wide", L"ype mismatch"}, {L"70000", L"verflow"}};
    for (const auto& each : refused) {
        CAPTURE(each.Text);
        test.Type(GENERAL_WIDTH, each.Text);
        test.Type(GENERAL_GAP, L"9");
        CHECK(test.Text(PAGE_STATUS).find(each.Said) != std::wstring::npos); // before it is tried
        CHECK(FAILED(test.Page->Apply()));
        CHECK(test.Text(PAGE_STATUS).find(each.Said) != std::wstring::npos);
        CHECK(test.IsDirty());
        CHECK(test.Text(GENERAL_WIDTH) == each.Text);
        CHECK(Number(control.Dispatch(), L"BarWidth") == 20);
        CHECK(Number(control.Dispatch(), L"TabToTab") == 0); // all or nothing
    }
    test.Type(GENERAL_WIDTH, L"30");
    CHECK(test.Page->Apply() == S_OK);
    CHECK(Number(control.Dispatch(), L"BarWidth") == 30);
    CHECK(Number(control.Dispatch(), L"TabToTab") == 9);
    CHECK(test.Text(PAGE_STATUS).find(L"No layout") == std::wstring::npos);
}

TEST_CASE("Where a later object refuses, the earlier ones get back what they had") {
    LooseControl control;
    const auto odd = MakeCom<OddObject>();
    odd->During = [](WORD flags) { return flags & DISPATCH_PROPERTYPUT ? E_ACCESSDENIED : S_OK; };
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object(), static_cast<NumberedDispatch*>(odd.Get())});
    test.Type(GENERAL_WIDTH, L"50");
    CHECK(test.Page->Apply() == E_ACCESSDENIED);
    CHECK(Number(control.Dispatch(), L"BarWidth") == 20);
    CHECK(test.IsDirty());
    CHECK(!test.Text(PAGE_STATUS).empty());
}

TEST_CASE("Changes made elsewhere show, but not over what is being edited") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    control.Tab->put_BarWidth(99);
    test.Pump();
    CHECK(test.Text(GENERAL_WIDTH) == L"99");
    test.Type(GENERAL_WIDTH, L"50");
    control.Tab->put_BarWidth(88);
    control.Tab->put_TabToTab(6);
    test.Pump();
    CHECK(test.Text(GENERAL_WIDTH) == L"50");
    CHECK(test.Text(GENERAL_GAP) == L"6");
    test.Edit({});
    control.Tab->put_TabToTab(7); // is not edited any more
    test.Pump();
    CHECK(test.Text(GENERAL_GAP).empty());
    CHECK(!test.IsDirty());
}

TEST_CASE("What was edited outlives the page's window") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    test.Type(GENERAL_WIDTH, L"50");
    REQUIRE(test.Page->Deactivate() == S_OK);
    CHECK(test.Window() == nullptr);
    CHECK(test.IsDirty());
    const RECT place = {10, 20, 400, 200};
    REQUIRE(test.Page->Activate(test.Frame, &place, FALSE) == S_OK);
    CHECK(test.Text(GENERAL_WIDTH) == L"50");
    CHECK(test.Page->Apply() == S_OK);
    CHECK(Number(control.Dispatch(), L"BarWidth") == 50);
}

// The control that it is compared with has a window, and is set through its interface.
TEST_CASE("The picture shows the control as it would be with what was entered") {
    LooseControl control;
    control.Tab->put_TabCount(4);
    control.Tab->put_ActiveTab(1);
    control.Tab->put_BarWidth(40);
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    const test::Pixels before = test.Picture();
    test.Type(GENERAL_WIDTH, L"55");
    test.Choose(GENERAL_SIDE, 3);
    const test::Pixels picture = test.Picture();
    CHECK(!(picture == before));
    CHECK(Number(control.Dispatch(), L"BarWidth") == 40);
    CHECK(Number(control.Dispatch(), L"TabPos") == 2);

    LooseControl compared;
    const WindowedControl shown(compared.As<IUnknown>(), {0, 0, picture.Width, picture.Height});
    compared.Tab->put_TabCount(4);
    compared.Tab->put_ActiveTab(1);
    compared.Tab->put_BarWidth(55);
    compared.Tab->put_TabPos(WindowBottom);
    CHECK(test::Difference(picture, shown.Picture()) == "same");
}

TEST_CASE("A control without tabs has some in the picture") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    const test::Pixels three = test.Picture();
    control.Tab->put_TabCount(3);
    control.Tab->put_ActiveTab(0);
    test.Pump();
    CHECK(test::Difference(test.Picture(), three) == "same");
    CHECK(std::ranges::adjacent_find(three.Values, std::ranges::not_equal_to()) != three.Values.end());
}

TEST_CASE("The line below tells what the field with the keyboard is for") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    SetFocus(test.Item(GENERAL_GAP));
    CHECK(test.Text(PAGE_STATUS).find(L"(TabToTab)") != std::wstring::npos);
    SetFocus(test.Item(GENERAL_CLOSE));
    CHECK(test.Text(PAGE_STATUS).find(L"(DelButton)") != std::wstring::npos);
}

TEST_CASE("A page leads to the field of a property") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    CHECK(test.Page->EditProperty(33) == S_OK); // TabToTab
    CHECK(GetFocus() == test.Item(GENERAL_GAP));
    CHECK(test.Page->EditProperty(36) == DISP_E_MEMBERNOTFOUND); // SkinFile
    const PageUnderTest skin(SkinPageId);
    skin.Page->Show(SW_HIDE);
    CHECK(skin.Page->EditProperty(36) == S_OK);
    CHECK(!IsChild(skin.Window(), GetFocus()));
    skin.Page->Show(SW_SHOW);
    CHECK(IsChild(skin.Item(SKIN_FILE), GetFocus()));
}

TEST_CASE("Tab stays on the page up to its end; the keys of the frame's buttons are the frame's") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    const auto send = [&](UINT kind, WPARAM key) {
        MSG message = {GetFocus(), kind, key, 1 << 29, 0, {}};
        return test.Page->TranslateAccelerator(&message);
    };
    const auto press = [&](WPARAM key) { return send(WM_KEYDOWN, key); };
    SetFocus(test.Item(GENERAL_WIDTH));
    CHECK(press(VK_TAB) == S_OK);
    CHECK(GetFocus() == test.Item(GENERAL_GAP));
    CHECK(test.Site->KeysOffered == 0);
    CHECK(press(VK_RETURN) == S_FALSE);
    CHECK(press(VK_ESCAPE) == S_FALSE);
    CHECK(test.Site->KeysOffered == 2);
    SetFocus(test.Item(GENERAL_CLOSE));
    CHECK(press(VK_TAB) == S_FALSE);
    CHECK(test.Site->KeysOffered == 3);
    CHECK(send(WM_SYSCHAR, 'g') == S_OK);
    CHECK(GetFocus() == test.Item(GENERAL_GAP));
    CHECK(send(WM_SYSCHAR, 'a') == S_FALSE); // of a button beside the page
    CHECK(test.Site->KeysOffered == 4);
    SetFocus(test.Frame); // not on the page
    CHECK(press(VK_TAB) == S_FALSE);
    CHECK(test.Page->TranslateAccelerator(nullptr) == E_POINTER);
}

TEST_CASE("A page that is asked at the wrong time, or for nothing, refuses") {
    LooseControl control;
    const auto page = NewPage(GeneralPageId);
    const RECT place = {0, 0, 100, 100};
    CHECK(page->Deactivate() == E_UNEXPECTED);
    CHECK(page->Show(SW_SHOW) == E_UNEXPECTED);
    CHECK(page->Move(&place) == E_UNEXPECTED);
    CHECK(page->Move(nullptr) == E_POINTER);
    CHECK(page->Activate(nullptr, nullptr, FALSE) == E_POINTER);
    CHECK(page->SetObjects(1, nullptr) == E_POINTER);
    CHECK(page->IsPageDirty() == S_FALSE);
    CHECK(page->Apply() == S_OK);
    const PageUnderTest test(GeneralPageId);
    CHECK(test.Page->Activate(test.Frame, &place, FALSE) == E_UNEXPECTED);
    CHECK(test.Page->Show(SW_MAXIMIZE) == E_INVALIDARG);
    CHECK(test.Page->SetPageSite(test.Site.Get()) == E_UNEXPECTED);
    CHECK(test.Page->SetPageSite(nullptr) == S_OK);
    test.Edit({control.Object()});
    test.Type(GENERAL_WIDTH, L"31"); // without a site
    CHECK(test.Page->Apply() == S_OK);
    ComPtr<IUnknown> aggregated;
    CHECK(page->QueryInterface(IID_IDispatch, aggregated.PutVoid()) == E_NOINTERFACE);
}

TEST_CASE("Whatever goes first, the page, its window or its objects, nothing stays behind") {
    LooseControl control;
    {
        PageUnderTest test(GeneralPageId);
        test.Edit({control.Object()});
        test.Page.Reset(); // still active
        CHECK(test.Window() == nullptr);
        control.Tab->put_BarWidth(33);
    }
    {
        const PageUnderTest test(GeneralPageId);
        test.Edit({control.Object()});
        DestroyWindow(test.Frame);
        control.Tab->put_BarWidth(34);
        test.Pump();
        CHECK(test.Page->Deactivate() == E_UNEXPECTED);
    }
    const PageUnderTest test(GeneralPageId);
    test.Edit({control.Object()});
    control.Release();
    test.Pump();
    CHECK(!control.Module().CanUnload());
    test.Edit({});
    test.Page->SetPageSite(nullptr);
    PageUnderTest& last = const_cast<PageUnderTest&>(test);
    last.Page.Reset();
    CHECK(control.Module().CanUnload());
}

TEST_CASE("Objects that are no control, or lie, break nothing") {
    LooseControl control;
    const PageUnderTest test(GeneralPageId);
    IUnknown* nothing[] = {nullptr};
    CHECK(test.Page->SetObjects(1, nothing) == E_NOINTERFACE);
    const auto sink = MakeCom<ChangeLog>();
    IUnknown* noAutomation[] = {control.Object(), sink.Get()};
    CHECK(test.Page->SetObjects(2, noAutomation) == E_NOINTERFACE);

    const auto odd = MakeCom<OddObject>();
    test.Edit({static_cast<NumberedDispatch*>(odd.Get())});
    CHECK(test.Text(GENERAL_WIDTH).empty());
    test.Type(GENERAL_WIDTH, L"5");
    CHECK(test.Page->Apply() == E_FAIL);
    odd->During = [](WORD) { return S_OK; };
    CHECK(test.Page->Apply() == S_OK);
    test.Pump();
    CHECK(test.Text(GENERAL_WIDTH) == L"7"); // it says so
    const test::Pixels picture = test.Picture();
    CHECK(std::ranges::adjacent_find(picture.Values, std::ranges::not_equal_to()) == picture.Values.end());
}

TEST_CASE("A site or an object that takes the page away in the middle of a call finds it still whole") {
    LooseControl control;
    {
        PageUnderTest test(GeneralPageId);
        test.Edit({control.Object()});
        test.Site->WhenTold = [&] { test.Page.Reset(); };
        const HWND window = test.Window();
        SetWindowTextW(test.Item(GENERAL_WIDTH), L"12");
        CHECK(!IsWindow(window));
    }
    PageUnderTest test(GeneralPageId);
    const auto odd = MakeCom<OddObject>();
    odd->During = [](WORD) { return S_OK; };
    test.Edit({static_cast<NumberedDispatch*>(odd.Get())});
    test.Type(GENERAL_WIDTH, L"5");
    odd->During = [&](WORD) {
        test.Page->Deactivate();
        test.Page->SetObjects(0, nullptr);
        return S_OK;
    };
    CHECK(test.Page->Apply() == S_OK);
    CHECK(!test.IsDirty());
}

} // namespace vantik
