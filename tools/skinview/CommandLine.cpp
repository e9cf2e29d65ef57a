#include "CommandLine.h"

namespace vantik {

namespace {

bool IsOption(const std::wstring& argument) { return argument.starts_with(L"-"); }

} // namespace

std::optional<CommandLine> ParseCommandLine(const std::vector<std::wstring>& arguments) {
    if (arguments.empty()) return CommandLine{};
    const std::wstring& first = arguments.front();
    if (arguments.size() == 1 && (first == L"--help" || first == L"-h")) return CommandLine{{}, false, true};
    if (arguments.size() == 1 && !IsOption(first)) return CommandLine{first, false, false};
    if (arguments.size() == 2 && first == L"--new" && !IsOption(arguments[1]))
        return CommandLine{arguments[1], true, false};
    return std::nullopt;
}

} // namespace vantik
