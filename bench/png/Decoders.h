// The decoders that are compared: ours and the libraries people would pick.
#pragma once

#include <cstdint>
#include <vector>

namespace vantik::bench {

using Bytes = std::vector<std::uint8_t>;

struct Decoder {
    const char* Name;
    // Decodes the file into pixels of its own kind (palette images to indexes where the library can) and returns how
    // many bytes of pixels there were; 0 when it fails.
    std::size_t (*Decode)(const Bytes& file);
};

// Ours comes first.
const std::vector<Decoder>& AllDecoders();

} // namespace vantik::bench
