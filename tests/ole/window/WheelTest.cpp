// The wheel over the control: how many steps it takes, and who else sees it.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/Input.h"

namespace vantik {

namespace {

using Lines = std::vector<std::wstring>;

// A form that does something of its own with the wheel, which reaches it after the control.
class FormWithWheel {
public:
    using Deed = std::function<LRESULT(WPARAM, LPARAM)>;
    explicit FormWithWheel(Deed deed = nullptr) : deed_(std::move(deed)) { test_.OpenWithTabs(6); }

    void Turn(int notches) { TurnWheel(test_.Form(), notches); }
    HostForm& Form() { return test_.Form(); }
    const Lines& Events() { return test_.Events; }
    int Seen() const { return seen_; } // by the form
    void Do(Deed deed) { deed_ = std::move(deed); }

private:
    FormHandlers Handlers() {
        FormHandlers handlers;
        handlers.Message = [this](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
            if (message != WM_MOUSEWHEEL) return std::nullopt;
            ++seen_;
            return deed_ ? deed_(wParam, lParam) : 0;
        };
        return handlers;
    }

    Deed deed_;
    int seen_ = 0;
    ControlOnForm test_{{}, Handlers()};
};

Lines StepsTo(std::vector<int> tabs) {
    Lines lines;
    for (const int tab : tabs) lines.push_back(L"TabDown(Index=" + std::to_wstring(tab) + L", Button=0)");
    return lines;
}

constexpr int Enough = 5; // a form that would go on for ever stops after so many times

} // namespace

TEST_CASE("The wheel has switched tabs before the form gets its turn") {
    FormWithWheel form;
    form.Do([&](WPARAM, LPARAM) {
        CHECK(form.Events() == StepsTo({1}));
        return 0;
    });
    form.Turn(1);
    CHECK(form.Seen() == 1);
}

TEST_CASE("A wheel message that the form returns to the window under the pointer is one step") {
    FormWithWheel form;
    form.Do([&](WPARAM wParam, LPARAM lParam) {
        return form.Seen() < Enough ? SendMessageW(form.Form().ControlWindow(), WM_MOUSEWHEEL, wParam, lParam)
                                    : 0;
    });
    form.Turn(1);
    CHECK(form.Events() == StepsTo({1}));
    CHECK(form.Seen() == 1); // it does not go round
    form.Turn(1);
    form.Turn(-1);
    CHECK(form.Events() == StepsTo({1, 2, 1}));
}

TEST_CASE("Notches that follow each other at once are steps of their own") {
    FormWithWheel form;
    for (int notch = 0; notch < 3; ++notch)
        SendMessageW(form.Form().ControlWindow(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    CHECK(form.Events() == StepsTo({1, 2, 3}));
}

TEST_CASE("A notch that comes while another one is with the form is a step of its own") {
    FormWithWheel form;
    form.Do([&](WPARAM wParam, LPARAM lParam) {
        if (form.Seen() > 1) return 0;
        Sleep(20); // the user's next notch
        PostMessageW(form.Form().ControlWindow(), WM_MOUSEWHEEL, wParam, lParam);
        PumpMessages(form.Form());
        return 0;
    });
    form.Turn(1);
    CHECK(form.Events() == StepsTo({1, 2}));
    CHECK(form.Seen() == 2);
}

TEST_CASE("A turn of the wheel that the form makes out of another one is a step of its own") {
    FormWithWheel form;
    form.Do([&](WPARAM, LPARAM lParam) {
        return form.Seen() > 1 ? 0
                               : SendMessageW(form.Form().ControlWindow(), WM_MOUSEWHEEL,
                                              MAKEWPARAM(0, -WHEEL_DELTA), lParam);
    });
    form.Turn(1);
    CHECK(form.Events() == StepsTo({1, 0}));
}

} // namespace vantik
