#include "check/Fault.h"

#include <algorithm>
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

const char* NameOf(Severity severity) noexcept { return severity == Severity::Error ? "error" : "warning"; }

std::string Format(const Fault& fault) {
    std::string text = fault.File + ":" + std::to_string(fault.Line) + ":" + std::to_string(fault.Column) +
                       ": " + NameOf(fault.Severity) + ": " + fault.What;
    if (!fault.Meant.empty()) text += "; did you mean " + fault.Meant + "?";
    if (!fault.Effect.empty()) text += "\n    " + fault.Effect;
    return text;
}

std::string ToJson(std::span<const Fault> faults) {
    std::string json;
    for (const Fault& fault : faults) json += (json.empty() ? "\n  " : ",\n  ") + ToJson(fault);
    return "[" + json + (json.empty() ? "]" : "\n]");
}

bool HasErrors(std::span<const Fault> faults) noexcept {
    return std::any_of(faults.begin(), faults.end(),
                       [](const Fault& each) { return each.Severity == Severity::Error; });
}

} // namespace vantik
