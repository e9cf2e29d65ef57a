#include <doctest/doctest.h>

#include "acctree/TreeCheck.h"
#include "host/OleApartment.h"
#include "samples/RunningSample.h"

namespace vantik {

namespace {

// A constructor that does not throw leaves the form behind it, but not everything on it.
struct PlainWindow {
    OleApartment Apartment;
    RunningSample Sample{L"plain-window\\plain-window.exe", L"Plain window"};

    PlainWindow() {
        REQUIRE(RunningSample::Becomes([&] { return Shows("\"Ready\""); }));
    }

    bool Shows(const std::string& text) const { return Sample.Tree().find(text) != std::string::npos; }
};

} // namespace

TEST_CASE(
    "the sample in a plain window has on each page what was put there, and its one fixed window on all") {
    const PlainWindow test;
    CHECK(test.Shows("page tab \"Person\" (1 of 3) [selected"));
    CHECK(test.Shows("page tab \"Locked\" (3 of 3) [unavailable"));
    CHECK(test.Shows("editable text \"Mail:\" [focusable] 90,78 210x22"));
    CHECK_FALSE(test.Shows("Notes:"));
    CHECK(FaultsOf(*Node::OfWindow(test.Sample.Tabs())).empty());

    test.Sample.Press(VK_RIGHT);
    CHECK(RunningSample::Becomes([&] { return test.Shows("\"Page 2\""); }));
    CHECK(test.Shows("page tab \"Notes\" (2 of 3) [selected"));
    CHECK(test.Shows("editable text \"Notes:\" [focusable] 90,48 290x132"));
    CHECK_FALSE(test.Shows("Mail:"));
}

TEST_CASE("the sample in a plain window refuses its locked page, and ends well") {
    const PlainWindow test;
    test.Sample.Press(VK_RIGHT);
    test.Sample.Press(VK_RIGHT);
    CHECK(RunningSample::Becomes([&] { return test.Shows("\"That page is locked\""); }));
    CHECK(test.Shows("page tab \"Notes\" (2 of 3) [selected"));
    CHECK(test.Sample.Close() == 0);
}

} // namespace vantik
