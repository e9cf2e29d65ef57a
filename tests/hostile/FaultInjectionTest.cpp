// Calls of the system that fail, one at a time and in bursts, from the first use of the module on: whoever asked is told,
// nothing breaks, and when the failing is over the control looks as if there had been none.
#include <doctest/doctest.h>

#include <cmath>
#include <set>

#include "host/ControlOnForm.h"
#include "host/Input.h"
#include "host/Snapshot.h"
#include "hostile/FaultInjector.h"
#include "hostile/Rounds.h"

namespace vantik {

namespace {

constexpr std::int16_t Tabs = 6, Width = 70;
constexpr POINT OnPage = {200, 200};

POINT OnBar(int index) { return {index * Width + 12, 12}; }

// Tooltips come by the clock: without them every life makes the same calls, however busy the machine is.
UINT WINAPI LongDoubleClick() { return 60'000; }

// The control's file, loaded anew, and a form for a control of it.
class Stage {
public:
    Stage() { form_.Window().Show(); }
    ~Stage() { form_.Close(); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    HMODULE Handle() const { return GetModuleHandleW(L"VantikFrameTab.ocx"); }
    bool CanUnload() const { return module_.CanUnload(); }

    // All that a form does with a control, as far as it gets.
    void Live() {
        const std::function<void()> steps[] = {
            [&] { Open(); },
            [&] { SetTabs(); },
            [&] { Put(Control(), L"TabPos", std::int32_t{0}), PumpMessages(form_); },
            [&] { Put(Control(), L"TabPos", std::int32_t{2}), PumpMessages(form_); },
            [&] { MovePointer(form_, OnBar(2)), MovePointer(form_, OnBar(3)); },
            [&] { PressButton(form_, OnBar(1)), ReleaseButton(form_, OnBar(1)); },
            [&] { PressKey(form_, VK_RIGHT), TurnWheel(form_, -1); },
            [&] {
                Call(Control(), L"InsertTab", {std::int16_t{2}, L"new"});
            },
            [&] { Call(Control(), L"RemoveTab", {std::int16_t{1}}); },
            [&] {
                Call(Control(), L"SetBarEnable", {std::int16_t{4}, false}), PumpMessages(form_);
            },
            [&] {
                form_.MoveControl({0, 0, 470, 300}), PumpMessages(form_);
            },
            [&] { form_.SaveTo(*MakeCom<TextPropertyBag>().Get()); },
            [&] { TakeSnapshot(form_.ControlWindow()); },
        };
        for (const auto& step : steps) {
            try {
                step();
            } catch (const HostError&) { // it says that it failed, which is all that is asked of it
            }
        }
    }

    // How the control looks once everything was set again, with nothing failing any more.
    Snapshot Recovered() {
        LockWindowUpdate(nullptr); // what could not be unlocked would stay so for all windows
        SetFocus(nullptr);         // which shows, and which not every life takes
        if (!opened_) Open();
        form_.MoveControl({0, 0, 480, 320});
        Put(Control(), L"TabPos", std::int32_t{2});
        Put(Control(), L"SkinFile", L"skin.ini");
        SetTabs();
        MovePointer(form_, OnPage);
        Put(Control(), L"BarWidth", Width);
        PumpMessages(form_);
        return TakeSnapshot(form_.ControlWindow());
    }

    void Close() { form_.Close(); }

private:
    IDispatch& Control() { return form_.Control(); }

    void Open() {
        opened_ = false;
        form_.Close();
        const auto bag = MakeCom<TextPropertyBag>();
        bag->Parse("TabCount = 6\nActiveTab = 0\nBarWidth = 70\nDelButton = True\n");
        form_.OpenFrom(*bag.Get());
        PumpMessages(form_);
        opened_ = true;
    }

    void SetTabs() {
        Put(Control(), L"TabCount", Tabs);
        for (std::int16_t index = 0; index < Tabs; ++index) {
            Call(Control(), L"SetBarCaption", {index, L"Tab" + std::to_wstring(index), true});
            Call(Control(), L"SetBarIco", {index, index % 2 ? L"sun" : L"HandNo"});
            if (!Call(Control(), L"GetTabEnable", {index}).Flag())
                Call(Control(), L"SetBarEnable", {index, true});
        }
        Put(Control(), L"ActiveTab", std::int16_t{0});
        PumpMessages(form_);
    }

    ControlModule module_{FindBuiltControl()};
    PatchedImport noTips_{Handle(), "GetDoubleClickTime", reinterpret_cast<const void*>(&LongDoubleClick)};
    HostForm form_{module_, {}};
    bool opened_ = false;
};

// So many of the calls, the first ones closest together.
std::set<long> CallsToFail(long count, int wanted) {
    std::set<long> calls;
    for (int i = 0; i < wanted; ++i) {
        const double share = wanted > 1 ? double(i) / (wanted - 1) : 0;
        calls.insert(1 + std::lround(double(count - 1) * share * share));
    }
    return calls;
}

std::vector<long> CallsOfALife() {
    Stage stage;
    const FaultInjector injector(stage.Handle());
    stage.Live();
    std::vector<long> calls;
    for (const FaultyImport& import : FaultyImports()) calls.push_back(import.Calls);
    return calls;
}

void CheckThatItRecovers(FaultyImport& import, long from, long length, const Snapshot& expected) {
    Stage stage;
    {
        const FaultInjector injector(stage.Handle());
        import.FailsFrom = from;
        import.FailsTo = from + length - 1;
        stage.Live();
        CHECK(import.Calls >= from);
    }
    CHECK(stage.Recovered() == expected);
    stage.Close();
    CHECK(stage.CanUnload());
}

} // namespace

TEST_CASE(
    "every function that the control imports is known here, as one that can be made to fail or that cannot "
    "fail") {
    const OleApartment apartment;
    const Stage stage;
    std::set<std::string> known;
    for (const FaultyImport& import : FaultyImports()) known.insert(import.Name);
    for (const std::string& import : ImportsOf(stage.Handle())) {
        CAPTURE(import);
        CHECK(known.count(import) + CannotFail(import) == 1);
    }
}

TEST_CASE("whichever call of the system fails, the control looks afterwards as a fresh one does") {
    const OleApartment apartment;
    const Snapshot expected = Stage().Recovered();
    const std::vector<long> calls = CallsOfALife();
    for (std::size_t row = 0; row < calls.size(); ++row) {
        FaultyImport& import = FaultyImports()[row];
        const std::string name = import.Name;
        CAPTURE(name);
        if (calls[row] == 0) continue;
        for (const long from : CallsToFail(calls[row], Rounds(4)))
            for (const long length : {1, 50}) {
                CAPTURE(from);
                CAPTURE(length);
                CheckThatItRecovers(import, from, length, expected);
            }
    }
}

// A surface whose bitmap was taken out to be read, and is not taken back, is no surface any more.
TEST_CASE("each of the first objects that a context refuses leaves nothing behind") {
    const OleApartment apartment;
    const Snapshot expected = Stage().Recovered();
    for (FaultyImport& import : FaultyImports()) {
        if (import.Name != std::string_view("SelectObject")) continue;
        for (long from = 1; from <= 16; ++from) {
            CAPTURE(from);
            CheckThatItRecovers(import, from, 1, expected);
        }
    }
}

} // namespace vantik
