// What every sample with a form does for its user, in the same words on the same pages.
#include <doctest/doctest.h>

#include <array>

#include "acctree/TreeCheck.h"
#include "host/OleApartment.h"
#include "samples/RunningSample.h"

namespace vantik {

namespace {

struct SampleForm {
    const char* Name;
    const wchar_t* Program;
    const wchar_t* Title;
    const char *Mail, *Notes; // the fields, as readers find them on their pages
};

constexpr std::array Forms = {
    SampleForm{"plain-window", L"plain-window\\plain-window.exe", L"Plain window",
               "editable text \"Mail:\" [focusable] 90,88 210x22",
               "editable text \"Notes:\" [focusable] 90,58 410x182"},
};

// What the samples keep for their user; a test begins as the first user does.
void Forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VantikFrameTab samples"); }

// A constructor that does not throw leaves the form behind it, but not everything on it.
struct Running {
    RunningSample Sample;

    explicit Running(const SampleForm& form) : Sample(form.Program, form.Title) {
        REQUIRE(Sample.Shows("\"Ready\""));
    }

    bool Lacks(const std::string& text) const { return Sample.Tree().find(text) == std::string::npos; }
};

template <class Check>
void ForEachForm(Check&& check) {
    const OleApartment apartment;
    for (const SampleForm& form : Forms) {
        CAPTURE(form.Name);
        Forget();
        check(form);
    }
    Forget();
}

} // namespace

TEST_CASE("a sample's pages have what was put there, its one fixed window is on all, and its skin is on") {
    ForEachForm([](const SampleForm& form) {
        const Running test(form);
        CHECK(test.Sample.Shows("page tab \"Person\" (1 of 40) [selected"));
        CHECK(test.Sample.Shows("130x32 -> Switch")); // as wide and high as the skin's values and pieces say
        CHECK(test.Sample.Shows(form.Mail));
        CHECK(test.Lacks("Notes:"));
        CHECK(FaultsOf(*Node::OfWindow(test.Sample.Tabs())).empty());

        test.Sample.Press(VK_RIGHT);
        CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
        CHECK(test.Sample.Shows(form.Notes));
        CHECK(test.Sample.Shows("\"Notes is open\""));
        CHECK(test.Lacks("Mail:"));
    });
}

TEST_CASE("a sample refuses its locked page to keys and presses, and keeps it from being closed") {
    ForEachForm([](const SampleForm& form) {
        const Running test(form);
        CHECK(test.Sample.Shows("page tab \"Locked\" (3 of 40) [unavailable"));
        test.Sample.Click(L"Locked");
        CHECK(test.Sample.Shows("\"That page is locked\""));
        CHECK(test.Sample.Shows("page tab \"Person\" (1 of 40) [selected"));
        test.Sample.Press(VK_RIGHT);
        CHECK(test.Sample.Shows("\"Notes is open\""));
        test.Sample.Press(VK_RIGHT);
        CHECK(test.Sample.Shows("\"That page is locked\""));
        CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
        CHECK(test.Sample.Shows(form.Notes));
        test.Sample.Click(L"Close Locked");
        CHECK(test.Sample.Shows("\"That page stays\""));
        CHECK(test.Sample.Shows("page tab \"Locked\" (3 of 40)"));
    });
}

TEST_CASE("a sample closes a tab only when its user says so, and stays on the page that shows") {
    ForEachForm([](const SampleForm& form) {
        const Running test(form);
        test.Sample.Click(L"Notes");
        CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
        test.Sample.Click(L"Close Person");
        REQUIRE(test.Sample.Answer(IDNO));
        CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
        test.Sample.Click(L"Close Person");
        REQUIRE(test.Sample.Answer(IDYES));
        CHECK(test.Sample.Shows("page tab \"Notes\" (1 of 39) [selected"));
        CHECK(test.Sample.Shows(form.Notes));
        CHECK(test.Sample.Shows("\"Notes is open\"")); // the fixed window does not go with the first tab
        CHECK(test.Lacks("Person"));
    });
}

TEST_CASE("a sample's menu goes to tabs beyond the row, and the one that was left open is open next time") {
    ForEachForm([](const SampleForm& form) {
        {
            const Running test(form);
            test.Sample.Click(L"Tab menu");
            test.Sample.ChooseFromMenu(30);
            CHECK(test.Sample.Shows(
                "page tab \"Sheet 30\" (30 of 40) [selected, focused, focusable, selectable] "));
            CHECK(test.Sample.Shows("\"This is Sheet 30.\""));
            CHECK(test.Sample.Close() == 0);
        }
        const Running again(form);
        CHECK(again.Sample.Shows("page tab \"Sheet 30\" (30 of 40) [selected"));
        CHECK(again.Sample.Shows("\"This is Sheet 30.\""));
        CHECK(again.Lacks("[selected, focused, off-screen"));
    });
}

} // namespace vantik
