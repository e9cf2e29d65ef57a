#include "tools/skincheck/Json.h"

#include <cstdio>
#include <string_view>

namespace vantik {

namespace {

void AppendEscaped(std::string& json, char character) {
    if (character == '"' || character == '\\') json += '\\';
    if (static_cast<unsigned char>(character) >= 0x20) {
        json += character;
        return;
    }
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character));
    json += escape;
}

std::string Quote(std::string_view text) {
    std::string json = "\"";
    for (const char character : text) AppendEscaped(json, character);
    return json + '"';
}

std::string ToJson(const Fault& fault) {
    return "{\"severity\": " + Quote(NameOf(fault.Severity)) + ", \"file\": " + Quote(fault.File) +
           ", \"line\": " + std::to_string(fault.Line) + ", \"column\": " + std::to_string(fault.Column) +
           ", \"what\": " + Quote(fault.What) + ", \"meant\": " + Quote(fault.Meant) +
           ", \"effect\": " + Quote(fault.Effect) + "}";
}

} // namespace

std::string ToJson(std::span<const Fault> faults) {
    std::string json;
    for (const Fault& fault : faults) json += (json.empty() ? "\n  " : ",\n  ") + ToJson(fault);
    return "[" + json + (json.empty() ? "]" : "\n]");
}

} // namespace vantik
