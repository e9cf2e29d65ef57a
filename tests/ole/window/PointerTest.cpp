// The pointer over the control's window: who has it, and when the hovering ends.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/ControlOnForm.h"
#include "host/Input.h"
#include "host/Snapshot.h"

namespace vantik {

namespace {

using Lines = std::vector<std::wstring>;

POINT OnBar(int tab) noexcept { return {tab * 60 + 25, 10}; }
POINT OnCloseButton(int tab) noexcept { return {6 + (tab + 1) * 60 - 12, 11}; } // of the built-in skin
constexpr POINT OnPage = {100, 150};

// Bars begin behind the corner of the built-in skin, which is 6 wide and high, and are 22 thick.
constexpr LONG FirstBar = 6;
constexpr LONG RowEnd = FirstBar + 4 * 60;

// A side that carries the bars. Positions by their distance along the row and across it, from the control's edge.
struct Side {
    const wchar_t* Name;
    std::int32_t Pos;
    POINT (*At)(LONG along, LONG across);

    // 14 wide; it ends where the bar's right end piece begins, which is 5 wide.
    POINT CloseButton(int tab) const { return At(FirstBar + (tab + 1) * 60 - 5 - 7, 11); }
};

constexpr LONG Width = 480, Height = 320; // of the control
constexpr Side Sides[] = {
    {L"WindowLeft", 0,
     [](LONG along, LONG across) {
         return POINT{across, along};
     }},
    {L"WindowRight", 1,
     [](LONG along, LONG across) {
         return POINT{Width - 1 - across, along};
     }},
    {L"Windowtop", 2,
     [](LONG along, LONG across) {
         return POINT{along, across};
     }},
    {L"WindowBottom", 3,
     [](LONG along, LONG across) {
         return POINT{along, Height - 1 - across};
     }},
};
constexpr const Side& Top = Sides[2];

std::vector<std::uint32_t> LookOfCloseButton(ControlOnForm& test, const Side& side, int tab) {
    const Snapshot shown = TakeSnapshot(test.Form().ControlWindow());
    const POINT centre = side.CloseButton(tab);
    std::vector<std::uint32_t> look;
    for (int y = -5; y < 5; ++y)
        for (int x = -5; x < 5; ++x) look.push_back(shown.At(centre.x + x, centre.y + y));
    return look;
}

// One position and no more: a moved pointer of the system may be reported again.
void Report(ControlOnForm& test, POINT at) {
    SendMessageW(test.Form().ControlWindow(), WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
}

void PressWithoutMove(ControlOnForm& test, POINT at) {
    SendMessageW(test.Form().ControlWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
}

// The built-in skin, which stands beside the program since it was first shown, with bars 8 thick.
void UseSkinOfThinBars(ControlOnForm& test) {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const auto folder = std::filesystem::path(program).parent_path() / "Temp";
    std::ifstream builtIn(folder / "skin.ini", std::ios::binary);
    std::string definition((std::istreambuf_iterator<char>(builtIn)), std::istreambuf_iterator<char>());
    const std::string thickness = "1: 13,0,0,21";
    definition.replace(definition.find(thickness), thickness.size(), "1: 13,0,0,7");
    std::ofstream(folder / "thin.ini", std::ios::binary) << definition;
    Put(test.Control(), L"SkinPath", L"Temp");
    Put(test.Control(), L"SkinFile", L"thin.ini");
}

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

TEST_CASE("The pixels behind the row's far edges are on no bar") {
    for (const Side& side : Sides) {
        CAPTURE(side.Name);
        ControlOnForm test;
        Open(test);
        Put(test.Control(), L"TabPos", side.Pos);
        for (const POINT outside :
             {side.At(RowEnd, 10), side.At(100, 22), side.At(100, -1), side.At(RowEnd, 22)}) {
            MovePointer(test.Form(), side.At(100, 10));
            test.Events.clear();
            PressButton(test.Form(), outside);
            ReleaseButton(test.Form(), outside);
            CHECK(test.Events.empty());
            CHECK(GetCapture() == nullptr);
            CHECK(test.Number(L"ActiveTab") == 0);
        }
        MovePointer(test.Form(), side.At(RowEnd - 1, 21));
        CHECK(test.Events == Lines{L"TabMove(Index=3)"});
    }
}

TEST_CASE("A row button that is shifted onto the row's far edge is pressed there") {
    ControlOnForm test;
    test.OpenWithTabs(40);
    Put(test.Control(), L"NavBtnXjust", std::int16_t{-8});
    const LONG rowEnd = FirstBar + 7 * 60;
    PressButton(test.Form(), {rowEnd + 15, 11}); // the next button: now there is a previous tab
    test.Events.clear();
    PressButton(test.Form(), {rowEnd, 11});
    CHECK(test.Events == Lines{L"PreTabDown(FirstPos=0)"});
}

TEST_CASE("Without tabs the row's place is no bar") {
    for (const bool loaded : {false, true}) {
        CAPTURE(loaded);
        ControlOnForm test;
        const auto bag = MakeCom<TextPropertyBag>();
        bag->Parse("TabCount = 0\nBarWidth = 60\n");
        if (loaded)
            test.Form().OpenFrom(*bag.Get());
        else
            test.Form().OpenNew();
        for (const POINT point : {POINT{0, 0}, POINT{FirstBar, 0}, POINT{FirstBar, 10}, POINT{FirstBar, 22}})
            PressButton(test.Form(), point);
        CHECK(test.Events.empty());
        CHECK(test.Number(L"ActiveTab") == -1);
    }
}

TEST_CASE(
    "From one close button straight to another, the second lights up alone and is the one that is pressed") {
    for (const Side& side : Sides) {
        CAPTURE(side.Name);
        ControlOnForm test;
        test.OpenWithTabs(4);
        Put(test.Control(), L"TabPos", side.Pos);
        Put(test.Control(), L"ActiveTab", std::int16_t{3}); // the others look alike
        MovePointer(test.Form(), side.CloseButton(0));
        test.Events.clear();
        MovePointer(test.Form(), side.CloseButton(2));
        CHECK(LookOfCloseButton(test, side, 0) == LookOfCloseButton(test, side, 1));
        CHECK(LookOfCloseButton(test, side, 2) != LookOfCloseButton(test, side, 1));
        PressWithoutMove(test, side.CloseButton(2));
        CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabClose(Index=2)"});
    }
}

TEST_CASE(
    "A close button that the pointer jumps onto stays lit when the host repaints the bars as it hears of the "
    "bar") {
    ControlOnForm test;
    test.OpenWithTabs(4);
    Put(test.Control(), L"ActiveTab", std::int16_t{3});
    test.DuringEvent = [&](EventCall&) { Put(test.Control(), L"CaptionColor0", std::int32_t{0x800000}); };
    MovePointer(test.Form(), Top.CloseButton(2));
    const auto lit = LookOfCloseButton(test, Top, 2);
    MovePointer(test.Form(), OnBar(2)); // repaints the close button alone
    CHECK(LookOfCloseButton(test, Top, 2) != lit);
}

TEST_CASE("A handler that sends the hovering elsewhere is asked once for a jump, and its answer stands") {
    for (const std::int16_t answer : {std::int16_t{3}, std::int16_t{-1}}) {
        CAPTURE(answer);
        ControlOnForm test;
        test.OpenWithTabs(4);
        test.DuringEvent = [&](EventCall& event) {
            if (event.Name() == L"TabMove") event.Argument(0) = answer;
        };
        Report(test, Top.CloseButton(0));
        test.Events.clear();
        Report(test, Top.CloseButton(2));
        CHECK(test.Events == Lines{L"TabMove(Index=2)"});
        Report(test, OnBar(2)); // which is not the hovered one
        CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabMove(Index=2)"});
        Report(test, Top.CloseButton(0));
        Report(test, Top.CloseButton(2));
        test.Events.clear();
        PressWithoutMove(test, Top.CloseButton(2));
        CHECK(test.Events == Lines{L"TabClose(Index=2)"});
    }
}

TEST_CASE("A handler that moves the tabs during a jump hears of the bar that is under the pointer then") {
    ControlOnForm test;
    test.OpenWithTabs(4);
    Report(test, Top.CloseButton(0));
    test.Events.clear();
    test.DuringEvent = [&](EventCall& event) {
        if (event.Argument(0) == 2) Put(test.Control(), L"BarWidth", std::int16_t{90});
    };
    Report(test, Top.CloseButton(2)); // which is on the second bar, now that they are wider
    CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabMove(Index=1)"});
}

TEST_CASE("A jump onto the close button of the bar that a handler called the hovered one lights it") {
    ControlOnForm test;
    test.OpenWithTabs(4);
    test.DuringEvent = [](EventCall& event) {
        if (event.Name() == L"TabMove") event.Argument(0) = 3;
    };
    Report(test, Top.CloseButton(0));
    Report(test, Top.CloseButton(3));
    PressWithoutMove(test, Top.CloseButton(3));
    CHECK(test.Events == Lines{L"TabMove(Index=0)", L"TabClose(Index=3)"});
}

TEST_CASE("Where a handler scrolled the row past its end, the pointer finds no bar") {
    ControlOnForm test;
    test.OpenWithTabs(40);
    test.DuringEvent = [](EventCall& event) {
        if (event.Name() == L"NextTabDown") event.Argument(0) = 38;
    };
    PressButton(test.Form(), {FirstBar + 7 * 60 + 8 + 15 + 7, 11});
    ReleaseButton(test.Form(), OnPage);
    REQUIRE(test.Events == Lines{L"NextTabDown(FirstPos=1)"});
    test.Events.clear();
    PressButton(test.Form(), OnBar(2));
    MovePointer(test.Form(), OnBar(1));
    CHECK(test.Events == Lines{L"TabMove(Index=39)"});
}

// Bars of 12 x 8 under close buttons of 14 x 14.
TEST_CASE("Where close buttons cover their bars, a jump from one to another presses the second, too") {
    ControlOnForm test;
    test.OpenWithTabs(4);
    UseSkinOfThinBars(test);
    Put(test.Control(), L"BarWidth", std::int16_t{12});
    Put(test.Control(), L"DelBtnXJust", std::int16_t{5});
    MovePointer(test.Form(), {FirstBar + 6, 4});
    test.Events.clear();
    MovePointer(test.Form(), {FirstBar + 2 * 12 + 6, 4});
    PressWithoutMove(test, {FirstBar + 2 * 12 + 6, 4});
    CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabClose(Index=2)"});
}

} // namespace vantik
