// The pointer over the control's window: who has it, and when the hovering ends.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/Input.h"
#include "host/Snapshot.h"

namespace vantik {

namespace {

using Lines = std::vector<std::wstring>;

POINT OnBar(int tab) noexcept { return {tab * 60 + 25, 10}; }
POINT OnCloseButton(int tab) noexcept { return {6 + (tab + 1) * 60 - 12, 11}; } // of the built-in skin
constexpr POINT OnPage = {100, 150};

// Four tabs without close buttons.
void Open(ControlOnForm& test) {
    test.OpenWithTabs(4);
    Put(test.Control(), L"DelButton", false);
}

} // namespace

TEST_CASE("Over the strip the control has the pointer, elsewhere it has not") {
    ControlOnForm test;
    Open(test);
    MovePointer(test.Form(), OnPage);
    CHECK(GetCapture() == nullptr);
    MovePointer(test.Form(), OnBar(1));
    CHECK(GetCapture() == test.Form().ControlWindow());
    MovePointer(test.Form(), OnPage);
    CHECK(GetCapture() == nullptr);
    MovePointer(test.Form(), OnBar(1));
    CHECK(test.Events == Lines{L"TabMove(Index=1)", L"TabMove(Index=1)"});
}

TEST_CASE("A pointer that another window has is not taken away from it") {
    ControlOnForm test;
    Open(test);
    SetCapture(test.Form().Window().Handle());
    MovePointer(test.Form(), OnBar(1));
    CHECK(GetCapture() == test.Form().Window().Handle());
    ReleaseCapture();
}

TEST_CASE("Losing the pointer, being hidden and being disabled end the hovering without an event") {
    ControlOnForm test;
    Open(test);
    const HWND window = test.Form().ControlWindow();
    const std::function<void()> losses[] = {
        [&] { SetCapture(test.Form().Window().Handle()), ReleaseCapture(); },
        [&] { ShowWindow(window, SW_HIDE), ShowWindow(window, SW_SHOW); },
        [&] { EnableWindow(window, FALSE), EnableWindow(window, TRUE); },
    };
    for (const auto& lose : losses) {
        MovePointer(test.Form(), OnBar(2));
        lose();
        ReleaseCapture();
        CHECK(test.Events == Lines{L"TabMove(Index=2)"});
        MovePointer(test.Form(), OnBar(2)); // it is a new bar again
        CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabMove(Index=2)"});
        MovePointer(test.Form(), OnPage);
        test.Events.clear();
    }
}

namespace {

// The form stands in a frame, which the form's program can hide and disable as well.
class FormInFrame : public ControlOnForm {
public:
    FormInFrame() {
        const HWND form = Form().Window().Handle();
        SetWindowLongPtrW(form, GWL_STYLE, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN);
        SetParent(form, frame_);
    }
    ~FormInFrame() {
        Form().Close();
        DestroyWindow(frame_);
    }
    FormInFrame(const FormInFrame&) = delete;
    FormInFrame& operator=(const FormInFrame&) = delete;

    // From the control upwards.
    std::vector<HWND> Windows() { return {Form().ControlWindow(), Form().Window().Handle(), frame_}; }

private:
    HWND frame_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 500, 400,
                                  nullptr, nullptr, nullptr, nullptr);
};

struct Obstacle {
    const char* Name;
    void (*Raise)(HWND);
    void (*Lift)(HWND);
};

const Obstacle Obstacles[] = {
    {"hidden", [](HWND w) { ShowWindow(w, SW_HIDE); }, [](HWND w) { ShowWindow(w, SW_SHOWNA); }},
    {"disabled", [](HWND w) { EnableWindow(w, FALSE); }, [](HWND w) { EnableWindow(w, TRUE); }},
};

} // namespace

TEST_CASE("A control that is hidden or disabled, itself or by a window that it stands on, acts on no input") {
    FormInFrame test;
    for (std::size_t level = 0; level < 3; ++level) {
        for (const Obstacle& obstacle : Obstacles) {
            CAPTURE(level);
            CAPTURE(std::string(obstacle.Name));
            Open(test);
            const HWND window = test.Windows()[level];
            MovePointer(test.Form(), OnBar(2));
            REQUIRE(GetCapture() == test.Form().ControlWindow());
            obstacle.Raise(window);
            MovePointer(test.Form(), OnBar(3));
            CHECK(GetCapture() == nullptr);
            PressButton(test.Form(), OnBar(1));
            ReleaseButton(test.Form(), OnBar(1));
            CHECK(GetCapture() == nullptr);
            PressKey(test.Form(), VK_RIGHT);
            SendMessageW(test.Form().ControlWindow(), WM_KEYDOWN, VK_RIGHT, 0);
            TurnWheel(test.Form(), 1);
            CHECK(test.Events == Lines{L"TabMove(Index=2)"});
            CHECK(test.Number(L"ActiveTab") == 0);
            obstacle.Lift(window);
            MovePointer(test.Form(), OnBar(2)); // the hovering had ended, so this is a new bar again
            PressButton(test.Form(), OnBar(2));
            CHECK(test.Events ==
                  Lines{L"TabMove(Index=2)", L"TabMove(Index=2)", L"TabDown(Index=2, Button=1)"});
            MovePointer(test.Form(), OnPage); // the next control does not come up under the pointer
        }
    }
}

TEST_CASE("A control that is hidden or disabled while it has the pointer gives it up at the next input") {
    FormInFrame test;
    for (std::size_t level = 0; level < 3; ++level) {
        for (const Obstacle& obstacle : Obstacles) {
            for (const int input : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_KEYDOWN, WM_MOUSEWHEEL}) {
                CAPTURE(level);
                CAPTURE(std::string(obstacle.Name));
                CAPTURE(input);
                test.OpenWithTabs(4);
                const HWND control = test.Form().ControlWindow();
                const Snapshot before = TakeSnapshot(control);
                MovePointer(test.Form(), OnCloseButton(1));
                REQUIRE(TakeSnapshot(control).Pixels != before.Pixels);
                obstacle.Raise(test.Windows()[level]);
                SendMessageW(control, static_cast<UINT>(input), 0,
                             MAKELPARAM(OnCloseButton(1).x, OnCloseButton(1).y));
                CHECK(GetCapture() == nullptr);
                obstacle.Lift(test.Windows()[level]);
                CHECK(TakeSnapshot(control).Pixels == before.Pixels);
                MovePointer(test.Form(), OnPage);
            }
        }
    }
}

TEST_CASE("A form that a handler hides gets no pointer captured by what it hid") {
    ControlOnForm test;
    Open(test);
    test.DuringEvent = [&](EventCall&) { ShowWindow(test.Form().Window().Handle(), SW_HIDE); };
    SendMessageW(test.Form().ControlWindow(), WM_MOUSEMOVE, 0, MAKELPARAM(OnBar(1).x, OnBar(1).y));
    CHECK(test.Events == Lines{L"TabMove(Index=1)"});
    CHECK(GetCapture() == nullptr);
}

TEST_CASE("A window that is made anew takes the pointer as the first one did") {
    ControlOnForm test;
    Open(test);
    MovePointer(test.Form(), OnBar(1));
    REQUIRE(GetCapture() == test.Form().ControlWindow());
    const auto object = QueryFor<IOleObject>(test.Form().ControlObject());
    QueryFor<IOleInPlaceObject>(object.Get())->InPlaceDeactivate();
    CHECK(GetCapture() == nullptr);
    ComPtr<IOleClientSite> site;
    object->GetClientSite(site.Put());
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, nullptr, nullptr);
    REQUIRE(test.Form().ControlWindow() != nullptr);
    MovePointer(test.Form(), OnBar(2));
    CHECK(GetCapture() == test.Form().ControlWindow());
}

TEST_CASE("A press gives the control the focus") {
    ControlOnForm test;
    Open(test);
    const HWND other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 200, 50, 20,
                                       test.Form().Window().Handle(), nullptr, nullptr, nullptr);
    SetFocus(other);
    PressButton(test.Form(), OnBar(1));
    CHECK(GetFocus() == test.Form().ControlWindow());
    CHECK(test.Form().IsUIActive());
}

TEST_CASE("A key typed after a press on a bar never lands in a field of the page that it hid") {
    ControlOnForm test;
    Open(test);
    const HWND control = test.Form().ControlWindow();
    const HWND field = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 20, 60, 50, 20, control,
                                       nullptr, nullptr, nullptr);
    test.Form().Add(L"Text1", field);
    PressButton(test.Form(), OnBar(1)); // now the control is UI-active
    PressButton(test.Form(), OnBar(0));
    SetFocus(field);
    PressButton(test.Form(), OnBar(1));
    PostMessageW(GetFocus(), WM_CHAR, L'x', 0);
    PumpMessages(test.Form());
    CHECK(GetFocus() == control);
    CHECK(GetWindowTextLengthW(field) == 0);
}

TEST_CASE("A handler that takes the pointer away, as a menu does, still gets what was pressed") {
    ControlOnForm test;
    Open(test);
    test.DuringEvent = [&](EventCall& event) {
        if (event.Name() != L"TabDown") return;
        SetCapture(test.Form().Window().Handle());
        CHECK(event.Argument(0) == 2); // the hover state is the argument
        ReleaseCapture();
    };
    PressButton(test.Form(), OnBar(2));
    CHECK(test.Number(L"ActiveTab") == 2);
    MovePointer(test.Form(), OnBar(2)); // the hovering had ended, so this is a new bar again
    CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabDown(Index=2, Button=1)", L"TabMove(Index=2)"});
}

TEST_CASE("While the form is designed, presses, moves and keys are not the control's") {
    HostSwitches switches;
    switches.UserMode = false;
    ControlOnForm test(switches);
    Open(test);
    PressButton(test.Form(), OnBar(1));
    PressKey(test.Form(), VK_RIGHT);
    CHECK(test.Events.empty());
    CHECK(test.Number(L"ActiveTab") == 0);
}

TEST_CASE("What the host says of its ambient properties counts from when it says that they changed") {
    for (const DISPID changed : {DISPID_AMBIENT_UIDEAD, DISPID_UNKNOWN}) {
        ControlOnForm test;
        Open(test);
        const auto control = QueryFor<IOleControl>(test.Form().ControlObject());
        PressKey(test.Form(), VK_RIGHT);
        CHECK(test.Number(L"ActiveTab") == 1);
        MovePointer(test.Form(), OnBar(2));
        test.Form().Site().Ambients().UIDead = true;
        CHECK(control->OnAmbientPropertyChange(changed) == S_OK);
        MovePointer(test.Form(), OnBar(3));
        CHECK(GetCapture() == nullptr);
        PressKey(test.Form(), VK_RIGHT);
        PressButton(test.Form(), OnBar(3));
        TurnWheel(test.Form(), 1);
        CHECK(test.Number(L"ActiveTab") == 1);
        test.Form().Site().Ambients().UIDead = false;
        CHECK(control->OnAmbientPropertyChange(changed) == S_OK);
        PressKey(test.Form(), VK_RIGHT);
        CHECK(test.Number(L"ActiveTab") == 2);
    }
}

} // namespace vantik
