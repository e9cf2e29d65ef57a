#include "tools/skincheck/Json.h"

#include <doctest/doctest.h>

#include <vector>

using namespace vantik;

TEST_CASE("Faults are an array of objects in JSON, whatever stands in their texts") {
    CHECK(ToJson({}) == "[]");
    const Fault odd = {Severity::Warning, "a.ini",  3, 7, "a \"b\" \\ \t\x01 \x7F caf\xC3\xA9",
                       "meant",           "Effect."};
    const Fault plain = {Severity::Error, "a.ini", 3, 7, "what", "meant", "Effect."};
    const std::vector<Fault> faults = {odd, plain};
    CHECK(ToJson(faults) ==
          "[\n  {\"severity\": \"warning\", \"file\": \"a.ini\", \"line\": 3, \"column\": 7, "
          "\"what\": \"a \\\"b\\\" \\\\ \\u0009\\u0001 \x7F caf\xC3\xA9\", \"meant\": \"meant\", \"effect\": "
          "\"Effect.\"},"
          "\n  {\"severity\": \"error\", \"file\": \"a.ini\", \"line\": 3, \"column\": 7, "
          "\"what\": \"what\", \"meant\": \"meant\", \"effect\": \"Effect.\"}\n]");
}
