// The About card: a picture, modal to the form, gone at the first press.
#include <doctest/doctest.h>

#include <cstdlib>

#include "host/ControlOnForm.h"
#include "host/Snapshot.h"

namespace vantik {

namespace {

constexpr int CardWidth = 400, CardHeight = 300;

// The forms of these tests have another title than the card.
BOOL CALLBACK AddIfCard(HWND window, LPARAM list) {
    wchar_t title[16] = {};
    GetWindowTextW(window, title, 16);
    if (std::wstring(title) == L"Form1") reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> Cards() {
    std::vector<HWND> cards;
    EnumThreadWindows(GetCurrentThreadId(), AddIfCard, reinterpret_cast<LPARAM>(&cards));
    return cards;
}

// The picture is a JPEG: no colour is exact.
bool IsAbout(std::uint32_t colour, std::uint32_t wanted) {
    for (int shift = 0; shift < 24; shift += 8)
        if (std::abs(static_cast<int>(colour >> shift & 0xFF) - static_cast<int>(wanted >> shift & 0xFF)) >
            16)
            return false;
    return true;
}

// Steps that are taken one by one while modal loops run, each as soon as the one before it is done.
class WhileModal {
public:
    using Step = std::function<void()>;
    explicit WhileModal(std::vector<Step> steps) : steps_(std::move(steps)) {
        current_ = this;
        timer_ = SetTimer(nullptr, 0, 10, Next);
    }
    ~WhileModal() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
        CHECK(taken_ == steps_.size());
    }
    WhileModal(const WhileModal&) = delete;
    WhileModal& operator=(const WhileModal&) = delete;

private:
    static constexpr int Patience = 300;

    static void CALLBACK Next(HWND, UINT, UINT_PTR, DWORD) {
        if (current_) current_->TakeStep();
    }

    // A card that should have gone long since is closed, so that the test fails instead of waiting for ever.
    void TakeStep() {
        if (taken_ < steps_.size()) return steps_[taken_++]();
        if (++idle_ < Patience) return;
        idle_ = 0;
        for (const HWND card : Cards()) {
            CHECK_MESSAGE(false, "the card is still up");
            PostMessageW(card, WM_CLOSE, 0, 0);
        }
    }

    static inline WhileModal* current_ = nullptr;
    std::vector<Step> steps_;
    std::size_t taken_ = 0;
    int idle_ = 0;
    UINT_PTR timer_;
};

struct FormWithControl : ControlOnForm {
    explicit FormWithControl(FormHandlers handlers = {}) : ControlOnForm({}, std::move(handlers)) {
        SetWindowTextW(Owner(), L"The form");
        SetWindowPos(Owner(), nullptr, 60, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        OpenWithTabs(2);
    }
    HWND Owner() { return Form().Window().Handle(); }
    void About() { Call(Control(), L"About"); }
};

// Asked for inside callbacks of the system, which no exception may leave.
HWND OnlyCard() {
    const auto cards = Cards();
    CHECK(cards.size() == 1);
    return cards.empty() ? nullptr : cards.front();
}

// About is on its own until somebody closes the card: the test's step does.
void ShowThen(FormWithControl& test, std::vector<WhileModal::Step> steps) {
    const WhileModal during(std::move(steps));
    test.About();
    CHECK(Cards().empty());
    CHECK(IsWindowEnabled(test.Owner()));
}

// Closes a form whose card is up from a thread of its own, so that no message is left for the card's loop.
class ClosingFromOutside {
public:
    explicit ClosingFromOutside(HWND form) : form_(form) {
        thread_ = CreateThread(nullptr, 0, Run, this, 0, nullptr);
    }
    ~ClosingFromOutside() {
        SetEvent(returned_);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        CloseHandle(returned_);
        CHECK_FALSE(hadToWake_);
    }
    ClosingFromOutside(const ClosingFromOutside&) = delete;
    ClosingFromOutside& operator=(const ClosingFromOutside&) = delete;

private:
    static DWORD WINAPI Run(void* self) {
        static_cast<ClosingFromOutside*>(self)->Close();
        return 0;
    }
    void Close() {
        while (IsWindowEnabled(form_)) Sleep(5);
        Sleep(100); // the loop has shown the card and waits
        SendMessageW(form_, WM_CLOSE, 0, 0);
        hadToWake_ = WaitForSingleObject(returned_, 3000) == WAIT_TIMEOUT;
        if (hadToWake_) PostThreadMessageW(waiting_, WM_NULL, 0, 0);
    }

    HWND form_;
    DWORD waiting_ = GetCurrentThreadId();
    HANDLE returned_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread_ = nullptr;
    bool hadToWake_ = false;
};

void Send(UINT message, WPARAM wParam = 0) {
    SendMessageW(OnlyCard(), message, wParam, MAKELPARAM(200, 150));
}

} // namespace

TEST_CASE("The About card is modal to the form's window and stands in the middle of it") {
    FormWithControl test;
    ShowThen(test, {[&] {
                        const HWND card = OnlyCard();
                        CHECK(GetWindow(card, GW_OWNER) == test.Owner());
                        CHECK(!IsWindowEnabled(test.Owner()));
                        CHECK(IsWindowVisible(card));
                        RECT place = {}, around = {};
                        GetWindowRect(card, &place);
                        GetWindowRect(test.Owner(), &around);
                        CHECK(std::abs((place.left + place.right) - (around.left + around.right)) <= 1);
                        CHECK(std::abs((place.top + place.bottom) - (around.top + around.bottom)) <= 1);
                    },
                    [] { Send(WM_LBUTTONDOWN); }});
}

TEST_CASE("The About card shows nothing but its picture of 400 x 300") {
    FormWithControl test;
    Snapshot shown;
    ShowThen(test, {[&] {
                 shown = TakeSnapshot(OnlyCard());
                 Send(WM_LBUTTONDOWN);
             }});
    REQUIRE(shown.Width == CardWidth);
    REQUIRE(shown.Height == CardHeight);
    // As the artwork has it: the sky reaches from corner to corner, the drawn control is in the middle.
    CHECK(IsAbout(shown.At(0, 0), 0x123A78));
    CHECK(IsAbout(shown.At(CardWidth - 1, CardHeight - 1), 0x0A84FF));
    CHECK(IsAbout(shown.At(48, 120), 0xF0F0F0));
}

TEST_CASE("Any mouse button closes the About card, a right click as a left click does") {
    FormWithControl test;
    for (const UINT button :
         {UINT{WM_LBUTTONDOWN}, UINT{WM_RBUTTONDOWN}, UINT{WM_MBUTTONDOWN}, UINT{WM_XBUTTONDOWN}}) {
        CAPTURE(button);
        ShowThen(test, {[button] { Send(button); }});
    }
}

TEST_CASE("Esc closes the About card, no other key does") {
    FormWithControl test;
    ShowThen(test, {[] {
                        Send(WM_KEYDOWN, VK_RETURN);
                        Send(WM_KEYDOWN, VK_SPACE);
                        CHECK(Cards().size() == 1);
                    },
                    [] { PostMessageW(OnlyCard(), WM_KEYDOWN, VK_ESCAPE, 0); }});
}

TEST_CASE("Calling About while the card is up replaces it with a fresh one") {
    FormWithControl test;
    HWND first = nullptr;
    ShowThen(test, {[&] {
                        first = OnlyCard();
                        test.About(); // returns when the second card is gone
                        CHECK(Cards().empty());
                    },
                    [&] {
                        CHECK(OnlyCard() != first);
                        CHECK(!IsWindowEnabled(test.Owner()));
                        Send(WM_LBUTTONDOWN);
                    }});
    CHECK(!IsWindow(first));
}

TEST_CASE("A form that was disabled before the About card is still disabled after it") {
    FormWithControl test;
    EnableWindow(test.Owner(), FALSE);
    {
        const WhileModal during({[] { Send(WM_LBUTTONDOWN); }});
        test.About();
    }
    CHECK(!IsWindowEnabled(test.Owner()));
}

TEST_CASE("A form that goes takes its About card with it, and About returns") {
    FormWithControl test;
    {
        const WhileModal during({[&] { DestroyWindow(test.Owner()); }});
        test.About();
    }
    CHECK(Cards().empty());
    test.Form().Close();
    CHECK(test.Module().CanUnload());
}

TEST_CASE("A form that another thread closes takes its About card with it, and About returns") {
    FormWithControl test;
    {
        const ClosingFromOutside during(test.Owner());
        test.About();
    }
    CHECK(Cards().empty());
}

TEST_CASE("The control may be closed while its About card is up") {
    FormWithControl test;
    {
        const WhileModal during({[&] { test.Form().Close(); }, [] { Send(WM_LBUTTONDOWN); }});
        test.About();
    }
    CHECK(Cards().empty());
    CHECK(IsWindowEnabled(test.Owner()));
    CHECK(test.Module().CanUnload());
}

namespace {

// One thread that shows its card again and again over a form of its own; the form closes each from inside the card's loop.
class AboutApartment {
public:
    static constexpr int Showings = 60;

    AboutApartment() = default;
    ~AboutApartment() { CloseHandle(thread_); }
    AboutApartment(const AboutApartment&) = delete;
    AboutApartment& operator=(const AboutApartment&) = delete;

    void Start() { thread_ = CreateThread(nullptr, 0, Run, this, 0, nullptr); }
    bool Ended() const { return thread_ && WaitForSingleObject(thread_, 60000) == WAIT_OBJECT_0; }

    int Shown = 0;    // cards that were there, alone, over the disabled form
    int Returned = 0; // forms that took input again, without a card
    std::string Error;

private:
    static DWORD WINAPI Run(void* self) {
        auto& apartment = *static_cast<AboutApartment*>(self);
        try {
            apartment.Live();
        } catch (const std::exception& error) {
            apartment.Error = error.what();
        }
        return 0;
    }
    void Live() {
        FormHandlers handlers;
        handlers.Message = [this](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
            if (message != WM_APP) return std::nullopt;
            CloseCard();
            return 0;
        };
        FormWithControl test(handlers);
        owner_ = test.Owner();
        for (int showing = 0; showing < Showings; ++showing) {
            PostMessageW(owner_, WM_APP, 0, 0);
            test.About();
            Returned += Cards().empty() && IsWindowEnabled(owner_);
            PumpMessages(test.Form());
        }
    }
    void CloseCard() {
        const auto cards = Cards();
        Shown +=
            cards.size() == 1 && GetWindow(cards.front(), GW_OWNER) == owner_ && !IsWindowEnabled(owner_);
        for (const HWND card : cards) PostMessageW(card, WM_LBUTTONDOWN, 0, 0);
    }

    HANDLE thread_ = nullptr;
    HWND owner_ = nullptr;
};

} // namespace

TEST_CASE("Every apartment has an About card of its own and gives its own form back") {
    FormWithControl first; // leaves the built-in skin and the system's first window behind for the others
    AboutApartment apartments[3];
    for (auto& each : apartments) each.Start();
    for (auto& each : apartments) {
        REQUIRE(each.Ended());
        CHECK(each.Error == "");
        CHECK(each.Shown == AboutApartment::Showings);
        CHECK(each.Returned == AboutApartment::Showings);
    }
    first.Form().Close();
    CHECK(first.Module().CanUnload());
}

TEST_CASE("The About card's window class goes with the module") {
    const OleApartment apartment;
    HMODULE module = nullptr;
    WNDCLASSW unused = {};
    const auto isRegistered = [&] { return GetClassInfoW(module, L"VantikFrameTab.frmAbout", &unused) != 0; };
    {
        FormWithControl test;
        module = GetModuleHandleW(L"VantikFrameTab.ocx");
        ShowThen(test, {[] { Send(WM_LBUTTONDOWN); }});
        CHECK(isRegistered());
    }
    REQUIRE(!GetModuleHandleW(L"VantikFrameTab.ocx"));
    CHECK(!isRegistered());
}

TEST_CASE("Without a form the About card comes up all the same") {
    const OleApartment apartment;
    const ControlModule module(FindBuiltControl());
    const auto control = module.Create();
    const auto tab = QueryFor<IDispatch>(control.Get());
    const WhileModal during({[] {
        CHECK(IsWindowVisible(OnlyCard()));
        Send(WM_RBUTTONDOWN);
    }});
    Call(*tab.Get(), L"About");
    CHECK(Cards().empty());
}

} // namespace vantik
