#include "check/Fault.h"

#include <algorithm>

namespace vantik {

const char* NameOf(Severity severity) noexcept { return severity == Severity::Error ? "error" : "warning"; }

std::string Describe(const Fault& fault) {
    std::string text = NameOf(fault.Severity) + (": " + fault.What);
    if (!fault.Meant.empty()) text += "; did you mean " + fault.Meant + "?";
    if (!fault.Effect.empty()) text += "\n    " + fault.Effect;
    return text;
}

std::string Format(const Fault& fault) {
    return fault.File + ":" + std::to_string(fault.Line) + ":" + std::to_string(fault.Column) + ": " +
           Describe(fault);
}

bool HasErrors(std::span<const Fault> faults) noexcept {
    return std::any_of(faults.begin(), faults.end(),
                       [](const Fault& each) { return each.Severity == Severity::Error; });
}

} // namespace vantik
