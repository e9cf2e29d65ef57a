// The command line of pngprobe.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantik {

struct Options {
    std::u16string File;
    std::u16string Output;
    bool WritesRgba = false;
    std::optional<std::uint32_t> Over; // 0xRRGGBB
    std::uint8_t Style = 3;
};

// Nothing when the usage is wrong.
std::optional<Options> ParseCommandLine(const std::vector<std::u16string>& arguments);

} // namespace vantik
