// The command line of skincheck.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace vantik {

struct Options {
    std::vector<std::filesystem::path> Definitions;
    bool Help = false;
    bool Json = false;
};

// Nothing when the usage is wrong.
std::optional<Options> ParseCommandLine(const std::vector<std::filesystem::path>& arguments);

} // namespace vantik
