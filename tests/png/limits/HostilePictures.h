// Small files that say large pictures.
#pragma once

#include "tests/png/PngBytes.h"

namespace vantik {

// What any one picture may take of memory, with an allowance for the rest of the process.
inline constexpr std::uint64_t MaxBytes = (std::uint64_t{11} << 30) / 10;

// The longest runs that deflate can say, of one to four bytes again and again: two bits for 258 bytes.
Bytes LongRun(std::size_t streamSize, const Bytes& unit = {0});

// A picture with all that its pixels may need, whose scanlines come from a stream of this size.
PngBytes HostilePicture(const HeaderFields& fields, std::size_t streamSize = 64000, const Bytes& unit = {0});

} // namespace vantik
