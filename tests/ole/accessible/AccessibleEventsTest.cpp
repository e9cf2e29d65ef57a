// What those are told who listen to the control's window (SetWinEventHook), in the order in which they are told it.
#include <doctest/doctest.h>

#include <map>

#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

// Records as text; one at a time.
class Listener {
public:
    // To one window, or to any.
    explicit Listener(HWND window = nullptr)
        : hook_(SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, Hear, GetCurrentProcessId(), 0,
                                WINEVENT_OUTOFCONTEXT)) {
        window_ = window;
        Heard();
    }
    ~Listener() { UnhookWinEvent(hook_); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    // What was told since the last question: "event child, event child", the children of the row counted from 1.
    std::string Heard() {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
        return std::exchange(text_, {});
    }

private:
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                              DWORD) {
        static const std::map<DWORD, const char*> names = {
            {EVENT_OBJECT_FOCUS, "focus"},
            {EVENT_OBJECT_SELECTION, "selection"},
            {EVENT_OBJECT_SELECTIONREMOVE, "none selected"},
            {EVENT_OBJECT_NAMECHANGE, "name"},
            {EVENT_OBJECT_STATECHANGE, "state"},
            {EVENT_OBJECT_REORDER, "reorder"},
            {EVENT_OBJECT_SHOW, "show"},
            {EVENT_OBJECT_HIDE, "hide"},
            {EVENT_OBJECT_LOCATIONCHANGE, "location"},
        };
        if ((window_ && window != window_) || object != OBJID_CLIENT) return;
        if (!text_.empty()) text_ += ", ";
        text_ += names.at(event) + (' ' + std::to_string(child));
    }

    static inline HWND window_;
    static inline std::string text_;
    HWINEVENTHOOK hook_;
};

struct HeardControl : ReadControl {
    explicit HeardControl(short tabs = 3) : ReadControl(tabs) {}
    Listener Listens{Window()};

    std::string Heard() { return Listens.Heard(); }
    void Key(WPARAM key) const { SendMessageW(Window(), WM_KEYDOWN, key, 0); }
};

} // namespace

TEST_CASE("a switch is told as a selection, a focus where the row has it, and the page's new name") {
    HeardControl control;
    SUBCASE("by the host") {
        control.Tab->put_ActiveTab(2);
        CHECK(control.Heard() == "selection 3, name 7");
        control.Tab->put_ActiveTab(2);
        CHECK(control.Heard() == ""); // nothing has changed
    }
    SUBCASE("by a key") {
        SetFocus(control.Window());
        CHECK(control.Heard() == "focus 0, focus 1"); // the system's own first
        control.Key(VK_RIGHT);
        CHECK(control.Heard() == "selection 2, focus 2, name 7");
        control.Key(VK_LEFT);
        control.Key(VK_LEFT);
        CHECK(control.Heard() == "selection 1, focus 1, name 7");
    }
    SUBCASE("by a press") {
        SendMessageW(control.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(90, 10));
        CHECK(control.Heard() == ""); // of the pointer's way nobody is told
        SendMessageW(control.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(90, 10));
        SendMessageW(control.Window(), WM_LBUTTONUP, 0, MAKELPARAM(90, 10));
        CHECK(control.Heard() == "focus 0, focus 1, selection 2, focus 2, name 7");
    }
    SUBCASE("by a reader") {
        CHECK(control.Child(1)->accDoDefaultAction(ChildId(CHILDID_SELF)) == S_OK);
        CHECK(control.Heard() == "selection 2, name 7");
    }
    SUBCASE("by the wheel") {
        SendMessageW(control.Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        CHECK(control.Heard() == "selection 2, name 7");
    }
    SUBCASE("without the focus that it had") {
        SetFocus(control.Window());
        SetFocus(GetParent(control.Window()));
        control.Heard();
        control.Tab->put_ActiveTab(1);
        CHECK(control.Heard() == "selection 2, name 7");
    }
    SUBCASE("to a tab of the same name") {
        control.Caption(1, L"Tab0");
        control.Heard();
        control.Tab->put_ActiveTab(1);
        CHECK(control.Heard() == "selection 2");
    }
}

TEST_CASE("a row that loses its active tab is told to have another child less, and nothing selected") {
    HeardControl control;
    SetFocus(control.Window());
    control.Heard();
    control.Enable(0, false);
    CHECK(control.Heard() == "state 1, reorder 0, none selected 1, focus 0");
    control.Enable(0, false);
    CHECK(control.Heard() == "");
    control.Tab->put_ActiveTab(1);
    CHECK(control.Heard() == "reorder 0, selection 2, focus 2");
    control.Tab->RemoveTab(1); // the next one takes its place, as the first one is disabled
    CHECK(control.Heard() == "reorder 0, selection 2, focus 2");
    control.Tab->RemoveTab(1);
    CHECK(control.Heard() == "reorder 0, focus 0"); // what was selected is not there any more
}

TEST_CASE("captions and disabled tabs are told with the tab") {
    HeardControl control;
    control.Caption(1, L"Mail");
    CHECK(control.Heard() == "name 2");
    control.Caption(1, L"Mail");
    CHECK(control.Heard() == "");
    control.Caption(0, L"News");
    CHECK(control.Heard() == "name 1, name 7"); // the page is called like its tab
    control.Enable(2, false);
    CHECK(control.Heard() == "state 3");
    control.Enable(2, true);
    CHECK(control.Heard() == "state 3");
    control.Enable(99, true);
    control.Caption(-1, L"Nobody");
    CHECK(control.Heard() == "");
}

TEST_CASE("tabs that come and go are told as another order, and what is selected then") {
    HeardControl control;
    BSTR caption = SysAllocString(L"New");
    control.Tab->InsertTab(0, &caption);
    SysFreeString(caption);
    CHECK(control.Heard() == "reorder 0, selection 2");
    control.Tab->RemoveTab(2);
    CHECK(control.Heard() == "reorder 0, selection 1");
    control.Tab->RemoveTab(0); // the next one is the first now, and active
    CHECK(control.Heard() == "reorder 0, selection 1");
    control.Tab->RemoveTab(1);
    CHECK(control.Heard() == "reorder 0"); // the active one stays
    control.Tab->put_TabCount(5);
    CHECK(control.Heard() == "reorder 0");
    control.Tab->put_TabCount(5);
    CHECK(control.Heard() == "");
}

TEST_CASE("what scrolls is told to come, go and move, and buttons to be of use or not") {
    HeardControl control(7);
    const auto press = [&](std::size_t child) {
        CHECK(control.Child(child)->accDoDefaultAction(ChildId(CHILDID_SELF)) == S_OK);
    };
    constexpr std::size_t previous = 7, next = 8;
    press(next);
    CHECK(control.Heard() == "hide 1, show 6, location 2, location 3, location 4, location 5, state 8");
    press(next);
    CHECK(control.Heard() == "hide 2, show 7, location 3, location 4, location 5, location 6, state 9");
    press(previous);
    CHECK(control.Heard() == "hide 7, show 2, location 3, location 4, location 5, location 6, state 9");
}

TEST_CASE("a new layout is told with whatever stands elsewhere") {
    HeardControl control;
    control.Tab->put_BarWidth(70);
    CHECK(control.Heard() == "location 1, location 2, location 3, location 4, location 5, location 6");
    control.Tab->put_BarWidth(70);
    CHECK(control.Heard() == "");
    MoveWindow(control.Window(), 0, 0, 380, 300, TRUE);
    CHECK(control.Heard() == "location 7"); // the page
    control.Tab->put_DelButton(VARIANT_FALSE);
    CHECK(control.Heard() == "reorder 0");
    control.Tab->put_CaptionColor1(0x123456);
    control.Tab->put_CaptionXjust(7);
    CHECK(control.Heard() == "");
}

TEST_CASE("marks in captions that become letters change all names") {
    HeardControl control;
    ::FontPos position = {};
    REQUIRE(control.Tab->get_CaptionPos(&position) == S_OK);
    control.Tab->put_CaptionPos(static_cast<::FontPos>(position | DT_NOPREFIX));
    CHECK(control.Heard() == "reorder 0");
    control.Tab->put_CaptionPos(static_cast<::FontPos>(position | DT_NOPREFIX | DT_RIGHT));
    CHECK(control.Heard() == "");
}

TEST_CASE("a new window tells of what changes from then on, not of what it has not shown") {
    ReadControl control;
    const auto place = control.As<IOleInPlaceObject>();
    Listener listens;
    REQUIRE(place->InPlaceDeactivate() == S_OK);
    control.Tab->put_ActiveTab(1);
    REQUIRE(control.InWindow->Object().DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &control.InWindow->Site(), 0,
                                              nullptr, nullptr) == S_OK);
    CHECK(listens.Heard() == "");
    control.Tab->put_ActiveTab(2);
    CHECK(listens.Heard() == "selection 3, name 7");
}

TEST_CASE("saved tabs that take the place of others are told as others, also when they are as many") {
    HeardControl control;
    const auto stream = control.As<IPersistStreamInit>();
    ComPtr<IStream> saved;
    REQUIRE(CreateStreamOnHGlobal(nullptr, TRUE, saved.Put()) == S_OK);
    REQUIRE(stream->Save(saved.Get(), FALSE) == S_OK);
    control.Caption(2, L"Changed");
    control.Heard();
    REQUIRE(saved->Seek({}, STREAM_SEEK_SET, nullptr) == S_OK);
    REQUIRE(stream->Load(saved.Get()) == S_OK);
    CHECK(control.Heard() == "reorder 0");
}

namespace {

// Switches on whenever it hears of a switch, and takes the window away in the end.
struct Meddler {
    explicit Meddler(ReadControl& control) {
        control_ = &control;
        heard_ = 0;
        hook_ = SetWinEventHook(EVENT_OBJECT_SELECTION, EVENT_OBJECT_SELECTION, GetModuleHandleW(nullptr),
                                Hear, GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_INCONTEXT);
    }
    ~Meddler() { UnhookWinEvent(hook_); }
    Meddler(const Meddler&) = delete;
    Meddler& operator=(const Meddler&) = delete;

    int Heard() const noexcept { return heard_; }

private:
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD, HWND, LONG, LONG child, DWORD, DWORD) {
        if (++heard_ < 6)
            control_->Tab->put_ActiveTab(static_cast<short>(child % 3));
        else
            control_->InWindow.reset();
    }

    static inline ReadControl* control_;
    static inline int heard_;
    HWINEVENTHOOK hook_;
};

} // namespace

TEST_CASE("who listens from inside the control's own thread may do anything with it at once") {
    ReadControl control;
    const Meddler meddler(control);
    control.Tab->put_ActiveTab(1);
    CHECK(meddler.Heard() == 6);
    CHECK_FALSE(control.InWindow);
    CHECK(control.Active() == 0);
}

} // namespace vantik
