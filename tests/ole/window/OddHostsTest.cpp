// Hosts that do less, or something else, than they should: none of it may bring the control down or lose its state.
#include <doctest/doctest.h>

#include <algorithm>

#include "ole/HostingLibrary.h"
#include "ole/LooseControl.h"
#include "ole/OddSite.h"

namespace vantik {

namespace {

using Calls = std::vector<std::string>;

struct PlacedControl : LooseControl {
    explicit PlacedControl(Oddities oddities = {}) : Site(MakeCom<OddSite>(oddities)) {
        REQUIRE(Object()->SetClientSite(Site.Get()) == S_OK);
    }
    ~PlacedControl() {
        if (Tab) Object()->SetClientSite(nullptr);
    }

    ComPtr<IOleObject> Object() { return As<IOleObject>(); }
    HRESULT Do(LONG verb) { return Object()->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr); }
    HWND Window() {
        HWND window = nullptr;
        As<IOleWindow>()->GetWindow(&window);
        return window;
    }
    SIZE Size() {
        RECT client = {};
        GetClientRect(Window(), &client);
        return {client.right, client.bottom};
    }

    ComPtr<OddSite> Site;
};

} // namespace

TEST_CASE("A plain site: activation, focus, and the way back, in the order that hosts expect") {
    PlacedControl control;
    CHECK(control.Do(OLEIVERB_UIACTIVATE) == S_OK);
    CHECK(control.Site->Calls ==
          Calls{"OnInPlaceActivate", "GetWindowContext", "ShowObject", "OnUIActivate", "OnFocus"});
    CHECK(GetParent(control.Window()) == control.Site->Window);
    CHECK(GetFocus() == control.Window());
    CHECK((GetWindowLongPtrW(control.Window(), GWL_STYLE) & (WS_TABSTOP | WS_GROUP)) == 0);
    control.Site->Calls.clear();
    CHECK(control.As<IOleInPlaceObject>()->InPlaceDeactivate() == S_OK);
    CHECK(control.Site->Calls == Calls{"OnUIDeactivate", "OnFocusLost", "OnInPlaceDeactivate"});
    CHECK(!control.Window());
    CHECK(control.Do(OLEIVERB_SHOW) == S_OK); // and again
    CHECK(control.Window());
}

TEST_CASE("Every verb is understood, unknown ones are answered") {
    PlacedControl control;
    CHECK(control.Do(OLEIVERB_INPLACEACTIVATE) == S_OK);
    CHECK(control.Do(OLEIVERB_DISCARDUNDOSTATE) == S_OK);
    CHECK(control.Do(OLEIVERB_PROPERTIES) == S_OK);
    CHECK(control.Site->Calls.back() == "ShowPropertyFrame");
    CHECK(control.Do(1) == S_OK);
    CHECK(control.Do(99) == OLEOBJ_S_INVALIDVERB);
    CHECK(control.Do(-99) == E_NOTIMPL);
}

TEST_CASE("One verb hides the control, another one shows it again") {
    PlacedControl control;
    CHECK(control.Do(OLEIVERB_SHOW) == S_OK);
    CHECK(control.Do(OLEIVERB_HIDE) == S_OK);
    CHECK((GetWindowLongPtrW(control.Window(), GWL_STYLE) & WS_VISIBLE) == 0);
    CHECK(control.Do(OLEIVERB_SHOW) == S_OK);
    CHECK((GetWindowLongPtrW(control.Window(), GWL_STYLE) & WS_VISIBLE) != 0);
}

TEST_CASE(
    "Without a site, or with one that has no place for windows, nothing is activated and all else works") {
    LooseControl unsited;
    CHECK(FAILED(unsited.As<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
    for (Oddities oddities :
         {Oddities{.InPlace = false}, Oddities{.CanActivate = S_FALSE}, Oddities{.Activate = E_FAIL}}) {
        PlacedControl control(oddities);
        CHECK(FAILED(control.Do(OLEIVERB_UIACTIVATE)));
        CHECK(!control.Window());
        CHECK(control.Tab->put_TabCount(3) == S_OK);
        CHECK(control.Tab->put_ActiveTab(1) == S_OK);
    }
}

TEST_CASE("A host that fails half-way through activation is left as if it had not begun") {
    PlacedControl control({.ParentWindow = E_FAIL});
    CHECK(FAILED(control.Do(OLEIVERB_SHOW)));
    CHECK(control.Site->Calls == Calls{"OnInPlaceActivate", "OnInPlaceDeactivate"});
}

TEST_CASE("A host that knows no place gets the control in its own size") {
    PlacedControl control({.WindowContext = E_FAIL});
    CHECK(control.Do(OLEIVERB_SHOW) == S_OK);
    CHECK(control.Size().cx == 320);
    CHECK(control.Size().cy == 240);
}

TEST_CASE("A site that wants no focus keeps the control active in place") {
    PlacedControl control({.UIActivate = E_FAIL});
    CHECK(control.Do(OLEIVERB_UIACTIVATE) == E_FAIL);
    CHECK(control.Window());
}

namespace {

// The two places where a form may have put the focus.
HWND MakeField(HWND parent) {
    return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 20, 60, 50, 20, parent, nullptr, nullptr,
                           nullptr);
}

// As the system does it, to whatever window has the focus.
void Type(wchar_t letter) { SendMessageW(GetFocus(), WM_CHAR, letter, 0); }

} // namespace

TEST_CASE("Wherever a host left the focus, the control takes it when it is pressed or UI-activated again") {
    const std::function<void(PlacedControl&)> wishes[] = {
        [](PlacedControl& c) { SendMessageW(c.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5)); },
        [](PlacedControl& c) { CHECK(c.Do(OLEIVERB_UIACTIVATE) == S_OK); },
        [](PlacedControl& c) { CHECK(c.Do(OLEIVERB_PRIMARY) == S_OK); },
    };
    for (const auto& wish : wishes) {
        for (const bool onControl : {true, false}) {
            CAPTURE(onControl);
            PlacedControl control;
            control.Do(OLEIVERB_UIACTIVATE); // and no UIDeactivate follows
            const HWND field = MakeField(onControl ? control.Window() : control.Site->Window);
            SetFocus(field);
            control.Site->Calls.clear();
            wish(control);
            CHECK(GetFocus() == control.Window());
            Type(L'x');
            CHECK(GetWindowTextLengthW(field) == 0);
            CHECK(std::ranges::count(control.Site->Calls, "OnUIActivate") == 0); // it is active already
        }
    }
}

TEST_CASE("A press takes the focus from a window on the control even where the site wants no UI activation") {
    for (const bool onControl : {true, false}) {
        CAPTURE(onControl);
        PlacedControl control({.UIActivate = E_FAIL});
        control.Do(OLEIVERB_SHOW);
        const HWND field = MakeField(onControl ? control.Window() : control.Site->Window);
        SetFocus(field);
        SendMessageW(control.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        CHECK(GetFocus() == (onControl ? control.Window() : field));
    }
}

TEST_CASE("A host that hides the control because it is pressed sees no switch") {
    PlacedControl control;
    control.Do(OLEIVERB_SHOW);
    control.Tab->put_BarWidth(60);
    control.Tab->put_TabCount(3);
    control.Tab->put_ActiveTab(0);
    control.Site->During = [&](const std::string& call) {
        if (call == "OnUIActivate") ShowWindow(control.Site->Window, SW_HIDE);
    };
    SendMessageW(control.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(85, 10));
    SendMessageW(control.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(85, 10));
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 0);
    CHECK(GetCapture() == nullptr);
}

TEST_CASE("A host that answers the control's focus by giving it to a field keeps it there") {
    PlacedControl control;
    control.Do(OLEIVERB_SHOW);
    const HWND field = MakeField(control.Window());
    control.Site->During = [&](const std::string& call) {
        if (call == "OnFocus") SetFocus(field);
    };
    SetFocus(control.Window());
    CHECK(GetFocus() == field);
    control.Site->Calls.clear();
    CHECK(control.Do(OLEIVERB_UIACTIVATE) == S_OK);
    CHECK(GetFocus() == field);
    CHECK(control.Site->Calls == Calls{"OnFocus", "OnFocusLost"}); // asked once
}

TEST_CASE("Taking the site away without closing ends the window and keeps the state") {
    PlacedControl control;
    control.Do(OLEIVERB_UIACTIVATE);
    control.Tab->put_TabCount(3);
    CHECK(control.Object()->SetClientSite(nullptr) == S_OK);
    CHECK(!control.Window());
    CHECK(control.Site->Calls.back() == "OnInPlaceDeactivate");
    CHECK(control.Object()->Close(OLECLOSE_SAVEIFDIRTY) == S_OK); // there is nobody any more who could save
    CHECK(Get(control.Dispatch(), L"TabCount").Number() == 3);
    const auto other = MakeCom<OddSite>();
    CHECK(control.Object()->SetClientSite(other.Get()) == S_OK);
    CHECK(control.Do(OLEIVERB_SHOW) == S_OK);
    CHECK(GetParent(control.Window()) == other->Window);
}

TEST_CASE("A host that destroys the window first finds the control alive, and can activate it again") {
    PlacedControl control;
    control.Do(OLEIVERB_SHOW);
    control.Tab->put_TabCount(3);
    DestroyWindow(control.Site->Window);
    CHECK(!control.Window());
    CHECK(control.Tab->put_ActiveTab(1) == S_OK);
    control.Site->Window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    CHECK(control.Do(OLEIVERB_SHOW) == S_OK);
    CHECK(control.Window());
    CHECK(control.As<IOleInPlaceObject>()->InPlaceDeactivate() == S_OK);
}

TEST_CASE("The control may be closed, deactivated or robbed of its site in any call to its host") {
    for (const char* call : {"OnInPlaceActivate", "GetWindowContext", "ShowObject", "OnUIActivate", "OnFocus",
                             "OnUIDeactivate", "OnInPlaceDeactivate", "OnFocusLost"}) {
        for (const int deed : {0, 1, 2}) {
            CAPTURE(call);
            CAPTURE(deed);
            PlacedControl control;
            bool done = false;
            control.Site->During = [&](const std::string& now) {
                if (now != call || std::exchange(done, true)) return;
                if (deed == 0) control.Object()->Close(OLECLOSE_NOSAVE);
                if (deed == 1) control.As<IOleInPlaceObject>()->InPlaceDeactivate();
                if (deed == 2) control.Object()->SetClientSite(nullptr);
            };
            control.Do(OLEIVERB_UIACTIVATE);
            control.As<IOleInPlaceObject>()->InPlaceDeactivate();
            CHECK(done);
            control.Site->During = nullptr;
            CHECK(!control.Window());
            CHECK(control.Tab->put_TabCount(2) == S_OK);
        }
    }
}

TEST_CASE("The last reference may go inside a window message") {
    PlacedControl control({.PreFilter = S_OK});
    control.Do(OLEIVERB_SHOW);
    control.Tab->put_TabCount(2);
    const HWND window = control.Window();
    auto site = control.Site;
    site->During = [&](const std::string& call) {
        if (call != "OnFocus") return;
        control.As<IOleObject>()->SetClientSite(nullptr);
        control.Release();
    };
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    CHECK(!IsWindow(window));
    CHECK(control.Module().CanUnload());
}

TEST_CASE("The last reference may go while the control is active") {
    LooseControl control;
    const auto site = MakeCom<OddSite>();
    control.As<IOleObject>()->SetClientSite(site.Get());
    control.As<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    control.Release();
    CHECK(control.Module().CanUnload());
    CHECK(!::GetWindow(site->Window, GW_CHILD));
}

TEST_CASE("A host whose ambient properties are a success without a value is one that has none") {
    PlacedControl control(Oddities{.SaysNothing = true});
    control.Tab->put_TabCount(3);
    control.Tab->put_ActiveTab(0);
    REQUIRE(control.Do(OLEIVERB_INPLACEACTIVATE) == S_OK);
    SendMessageW(control.Window(), WM_KEYDOWN, VK_RIGHT, 0);
    short active = -1;
    control.Tab->get_ActiveTab(&active);
    CHECK(active == 1); // it is used, not designed
}

TEST_CASE("A filter that takes a message answers it in the control's place") {
    for (const HRESULT filter : {S_FALSE, S_OK}) {
        PlacedControl control({.PreFilter = filter});
        control.Do(OLEIVERB_SHOW);
        CHECK(SendMessageW(control.Window(), WM_USER, 0, 0) == (filter == S_FALSE ? 4711 : 0));
    }
}

TEST_CASE("Moving and sizing: the rectangles decide, and a wish for another size is put to the host") {
    PlacedControl control;
    control.Do(OLEIVERB_SHOW);
    CHECK(control.Size().cx == 200);
    const RECT larger = {0, 0, 300, 150}, clip = {50, 0, 300, 150};
    CHECK(control.As<IOleInPlaceObject>()->SetObjectRects(&larger, &clip) == S_OK);
    CHECK(control.Size().cx == 300);
    SIZEL size = {};
    control.Object()->GetExtent(DVASPECT_CONTENT, &size);
    CHECK(size.cx == MulDiv(300, 2540, 96));
    CHECK(control.As<IOleInPlaceObject>()->SetObjectRects(nullptr, nullptr) == E_POINTER);
    size = {MulDiv(100, 2540, 96), MulDiv(80, 2540, 96)};
    CHECK(control.Object()->SetExtent(DVASPECT_CONTENT, &size) == S_OK);
    CHECK(control.Site->Calls.back() == "OnPosRectChange");
    CHECK(control.Site->Asked.right - control.Site->Asked.left == 100);
    CHECK(control.Size().cx == 300); // the host did not agree
}

TEST_CASE("Left and Right are the control's own keys, the host decides about the others") {
    PlacedControl control;
    control.Do(OLEIVERB_UIACTIVATE);
    control.Tab->put_BarWidth(30);
    control.Tab->put_TabCount(3);
    control.Tab->put_ActiveTab(0);
    const auto keys = control.As<IOleInPlaceActiveObject>();
    const auto press = [&](WPARAM key, HWND window) {
        MSG message = {window, WM_KEYDOWN, key, 0, 0, {0, 0}};
        return keys->TranslateAccelerator(&message);
    };
    CHECK(press(VK_RIGHT, control.Window()) == S_OK);
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 1);
    CHECK(press(VK_LEFT, control.Window()) == S_OK);
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 0);
    CHECK(press(VK_DOWN, control.Window()) == S_FALSE);
    CHECK(press(VK_TAB, control.Window()) == S_OK);          // the host's answer
    CHECK(press(VK_RIGHT, control.Site->Window) == S_FALSE); // a key of a window on the control
    CHECK(keys->TranslateAccelerator(nullptr) == E_POINTER);
    SendMessageW(control.Window(), WM_KEYDOWN, VK_RIGHT, 0);
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 1);
    CHECK((SendMessageW(control.Window(), WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS) != 0);
}

TEST_CASE("An error in a window message ends the operation and nothing else") {
    PlacedControl control;
    control.Do(OLEIVERB_UIACTIVATE);
    SendMessageW(control.Window(), WM_KEYDOWN, VK_RIGHT, 0); // there are no tabs
    CHECK(control.Window());
    CHECK(control.Tab->put_TabCount(1) == S_OK);
}

namespace {

int commandsSeen;

LRESULT CALLBACK CountCommands(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) ++commandsSeen;
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

TEST_CASE("Notifications of windows on the control go to the host's window") {
    PlacedControl control;
    control.Do(OLEIVERB_SHOW);
    SetWindowLongPtrW(control.Site->Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountCommands));
    const HWND button = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 0, 0, 10, 10, control.Window(), nullptr,
                                        nullptr, nullptr);
    commandsSeen = 0;
    SendMessageW(button, BM_CLICK, 0, 0);
    CHECK(commandsSeen > 0);
}

TEST_CASE(
    "The system's own hosting library shows the control, passes input, and lets go of it with its window") {
    LooseControl control;
    const HostingLibrary library;
    const HWND host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                      nullptr, nullptr, nullptr);
    REQUIRE(library.Attach(control.Object(), host) == S_OK);
    const HWND window = ::GetWindow(host, GW_CHILD);
    REQUIRE(window);
    RECT client = {};
    GetClientRect(window, &client);
    CHECK(client.right == 300);
    CHECK(client.bottom == 200);
    control.Tab->put_BarWidth(60);
    control.Tab->put_TabCount(3);
    control.Tab->put_ActiveTab(0);
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(85, 10));
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(85, 10));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(85, 10));
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 1);
    SendMessageW(window, WM_KEYDOWN, VK_RIGHT, 0);
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 2);
    DestroyWindow(host);
    CHECK(!IsWindow(window));
    CHECK(Get(control.Dispatch(), L"TabCount").Number() == 3);
    control.Release();
    CHECK(control.Module().CanUnload());
}

TEST_CASE("A host that activates quickly gets its sinks connected in the one call") {
    LooseControl control;
    const auto site = MakeCom<OddSite>();
    QACONTAINER container = {};
    container.cbSize = sizeof container;
    container.pClientSite = site.Get();
    QACONTROL answer = {};
    answer.cbSize = sizeof answer;
    const auto quick = control.As<IQuickActivate>();
    REQUIRE(quick->QuickActivate(&container, &answer) == S_OK);
    CHECK(answer.dwMiscStatus ==
          (OLEMISC_SIMPLEFRAME | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_INSIDEOUT |
           OLEMISC_SETCLIENTSITEFIRST | OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE));
    CHECK(answer.dwViewStatus == VIEWSTATUS_OPAQUE);
    DWORD status = 0;
    CHECK(control.As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status) == S_OK);
    CHECK(status == answer.dwMiscStatus);
    SIZEL size = {1000, 2000}, back = {};
    CHECK(quick->SetContentExtent(&size) == S_OK);
    CHECK(quick->GetContentExtent(&back) == S_OK);
    CHECK(back.cy == 2000);
    CHECK(quick->QuickActivate(nullptr, &answer) == E_POINTER);
    control.As<IOleObject>()->SetClientSite(nullptr);
}

TEST_CASE("The control's own property pages are offered before the stock ones") {
    LooseControl control;
    CAUUID pages = {};
    REQUIRE(control.As<ISpecifyPropertyPages>()->GetPages(&pages) == S_OK);
    CHECK(pages.cElems == 5);
    CHECK(pages.pElems[3] == CLSID_CFontPropPage);
    CoTaskMemFree(pages.pElems);
    CHECK(control.As<ISpecifyPropertyPages>()->GetPages(nullptr) == E_POINTER);
}

} // namespace vantik
