// The command line of the program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantik {

struct CommandLine {
    std::filesystem::path Definition; // empty: none is opened
    bool IsNew = false;               // it is to be made
    bool Help = false;
};

// Empty for a command line that it does not know.
std::optional<CommandLine> ParseCommandLine(const std::vector<std::wstring>& arguments);

inline constexpr const char* UsageText =
#include "Usage.txt"
    ;

} // namespace vantik
