// What every sample with a form does for its user, in the same words on the same pages.
#include <doctest/doctest.h>

#include "acctree/TreeCheck.h"
#include "host/OleApartment.h"
#include "samples/RunningSample.h"

namespace vantik {

namespace {

// Each with the fields on its pages, as readers find them; those of a dialog stand where its font has them.
struct PlainWindow {
    static constexpr const wchar_t* Program = L"plain-window\\plain-window.exe";
    static constexpr const wchar_t* Title = L"Plain window";
    static constexpr const char* Mail = "editable text \"Mail:\" [focusable] 90,88 210x22";
    static constexpr const char* Notes = "editable text \"Notes:\" [focusable] 90,58 410x182";
};

struct AtlWindow : PlainWindow {
    static constexpr const wchar_t* Program = L"atl-window\\atl-window.exe";
    static constexpr const wchar_t* Title = L"ATL window";
};

struct FreePascal : PlainWindow {
    static constexpr const wchar_t* Program = L"..\\tests\\samples\\free-pascal\\free-pascal.exe";
    static constexpr const wchar_t* Title = L"Free Pascal";
};

struct PlainDialog : PlainWindow {
    static constexpr const wchar_t* Program = L"plain-dialog\\plain-dialog.exe";
    static constexpr const wchar_t* Title = L"Plain dialog";
    static constexpr const char* Mail = "editable text \"Mail:\" [focusable] ";
    static constexpr const char* Notes = "editable text \"Notes:\" [focusable] ";
};

} // namespace

} // namespace vantik

TYPE_TO_STRING(vantik::PlainWindow);
TYPE_TO_STRING(vantik::AtlWindow);
TYPE_TO_STRING(vantik::PlainDialog);
TYPE_TO_STRING(vantik::FreePascal);

namespace vantik {

namespace {

// A constructor that does not throw leaves the form behind it, but not everything on it.
template <class Form>
struct Running {
    RunningSample Sample{Form::Program, Form::Title};

    Running() { REQUIRE(Sample.Shows("\"Ready\"")); }

    bool Lacks(const std::string& text) const { return !Sample.Has(text); }
};

// A test begins as the first user does: without what samples keep.
struct FirstUser {
    OleApartment Apartment;

    FirstUser() { Forget(); }
    ~FirstUser() { Forget(); }
    FirstUser(const FirstUser&) = delete;
    FirstUser& operator=(const FirstUser&) = delete;

    static void Forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VantikFrameTab samples"); }
};

} // namespace

TEST_CASE_TEMPLATE(
    "a sample's pages have what was put there, its one fixed window is on all, and its skin is on", Form,
    PlainWindow, AtlWindow, PlainDialog, FreePascal) {
    const FirstUser user;
    const Running<Form> test;
    CHECK(test.Sample.Shows("page tab \"Person\" (1 of 40) [selected"));
    CHECK(test.Sample.Shows("130x32 -> Switch")); // as wide and high as the skin's values and pieces say
    CHECK(test.Sample.Shows(Form::Mail));
    CHECK(test.Lacks("Notes:"));
    CHECK(FaultsOf(*Node::OfWindow(test.Sample.Tabs())).empty());

    test.Sample.Press(VK_RIGHT);
    CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
    CHECK(test.Sample.Shows(Form::Notes));
    CHECK(test.Sample.Shows("\"Notes is open\""));
    CHECK(test.Lacks("Mail:"));
    CHECK_FALSE(test.Sample.HasBesideIt(L"Temp")); // the built-in skin, written out for want of another
}

TEST_CASE_TEMPLATE("a sample refuses its locked page to keys and presses, and keeps it from being closed",
                   Form, PlainWindow, AtlWindow, PlainDialog, FreePascal) {
    const FirstUser user;
    const Running<Form> test;
    CHECK(test.Sample.Shows("page tab \"Locked\" (3 of 40) [unavailable"));
    test.Sample.Click(L"Locked");
    CHECK(test.Sample.Shows("\"That page is locked\""));
    CHECK(test.Sample.Shows("page tab \"Person\" (1 of 40) [selected"));
    test.Sample.Press(VK_RIGHT);
    CHECK(test.Sample.Shows("\"Notes is open\""));
    test.Sample.Press(VK_RIGHT);
    CHECK(test.Sample.Shows("\"That page is locked\""));
    CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
    CHECK(test.Sample.Shows(Form::Notes));
    test.Sample.Click(L"Close Locked");
    CHECK(test.Sample.Shows("\"That page stays\""));
    CHECK(test.Sample.Shows("page tab \"Locked\" (3 of 40)"));
}

TEST_CASE_TEMPLATE("a sample closes a tab only when its user says so, and stays on the page that shows", Form,
                   PlainWindow, AtlWindow, PlainDialog, FreePascal) {
    const FirstUser user;
    const Running<Form> test;
    test.Sample.Click(L"Notes");
    CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
    test.Sample.Click(L"Close Person");
    REQUIRE(test.Sample.Answer(IDNO));
    CHECK(test.Sample.Shows("page tab \"Notes\" (2 of 40) [selected"));
    test.Sample.Click(L"Close Person");
    REQUIRE(test.Sample.Answer(IDYES));
    CHECK(test.Sample.Shows("page tab \"Notes\" (1 of 39) [selected"));
    CHECK(test.Sample.Shows(Form::Notes));
    CHECK(test.Sample.Shows("\"Notes is open\"")); // the fixed window does not go with the first tab
    CHECK(test.Lacks("Person"));
}

TEST_CASE_TEMPLATE(
    "a sample's menu goes to tabs beyond the row, and the one that was left open is open next time", Form,
    PlainWindow, AtlWindow, PlainDialog, FreePascal) {
    const FirstUser user;
    {
        const Running<Form> test;
        test.Sample.Click(L"Tab menu");
        test.Sample.ChooseFromMenu(30);
        CHECK(test.Sample.Shows("page tab \"Sheet 30\" (30 of 40) [selected"));
        CHECK(RunningSample::Becomes([&] { return test.Sample.HasInView(L"Sheet 30"); }));
        CHECK(test.Sample.Shows("\"This is Sheet 30.\""));
        CHECK(test.Sample.Shows("\"Sheet 30 is open\""));
        test.Sample.Click(L"Tab menu");
        test.Sample.ChooseFromMenu(1);
        CHECK(test.Sample.Shows(Form::Mail)); // however far away it was
        test.Sample.Click(L"Tab menu");
        test.Sample.ChooseFromMenu(30);
        CHECK(test.Sample.Shows("page tab \"Sheet 30\" (30 of 40) [selected"));
        CHECK(test.Sample.Close() == 0);
    }
    const Running<Form> again;
    CHECK(again.Sample.Shows("page tab \"Sheet 30\" (30 of 40) [selected"));
    CHECK(again.Sample.Shows("\"This is Sheet 30.\""));
    CHECK(RunningSample::Becomes([&] { return again.Sample.HasInView(L"Sheet 30"); }));
}

TEST_CASE("the sample dialog goes by the keyboard: onto the page, on to its buttons, and Enter ends it") {
    const FirstUser user;
    const Running<PlainDialog> test;
    test.Sample.Press(VK_TAB);
    CHECK(test.Sample.Shows("editable text \"Name:\" [focused"));
    test.Sample.Press(VK_TAB);
    CHECK(test.Sample.Shows("editable text \"Mail:\" [focused"));
    test.Sample.Press(VK_TAB);
    CHECK(test.Sample.Shows("editable text \"Mail:\" [focusable]")); // the focus is on OK
    test.Sample.Press(VK_RETURN);
    CHECK(test.Sample.ExitCode() == 0);
}

} // namespace vantik
