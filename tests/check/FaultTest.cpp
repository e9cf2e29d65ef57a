#include "check/Fault.h"

#include <doctest/doctest.h>

#include <vector>

using namespace vantik;

namespace {

Fault Of(vantik::Severity severity) { return {severity, "a.ini", 3, 7, "what", "meant", "Effect."}; }

} // namespace

TEST_CASE("A fault is a line that editors know, and its effect below it") {
    Fault fault = Of(Severity::Error);
    CHECK(Format(fault) == "a.ini:3:7: error: what; did you mean meant?\n    Effect.");
    fault.Meant.clear();
    fault.Severity = Severity::Warning;
    CHECK(Format(fault) == "a.ini:3:7: warning: what\n    Effect.");
}

TEST_CASE("Warnings alone are no errors") {
    const std::vector<Fault> warnings(2, Of(Severity::Warning));
    CHECK_FALSE(HasErrors({}));
    CHECK_FALSE(HasErrors(warnings));
    const std::vector<Fault> both = {Of(Severity::Warning), Of(Severity::Error)};
    CHECK(HasErrors(both));
}
