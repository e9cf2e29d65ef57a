// What the chunks of a PNG said.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "png/MemoryLimit.h"
#include "png/PngFormat.h"

namespace vantik {

struct PngContents {
    ImageHeader Header;
    std::vector<std::uint8_t> ImageData; // of all IDAT chunks, in file order
    std::vector<std::uint8_t> Palette;
    std::vector<std::uint8_t> Transparency; // tRNS
    bool HasTransparency = false;
    bool HasBackground = false;
    std::int32_t BackgroundColour = 0; // red in the low byte
    std::u16string Text;
    std::u16string CompressedText;
    std::u16string ModificationTime;
    std::int32_t Gamma = 0; // times 100000

    // As new, but with the memory of small buffers.
    void Clear() noexcept {
        PngContents cleared;
        cleared.ImageData = Emptied(std::move(ImageData));
        cleared.Palette = Emptied(std::move(Palette));
        cleared.Transparency = Emptied(std::move(Transparency));
        std::swap(*this, cleared);
    }

    std::int64_t Memory() const noexcept {
        return HeldBytes(ImageData) + HeldBytes(Palette) + HeldBytes(Transparency) + HeldBytes(Text) +
               HeldBytes(CompressedText);
    }
};

} // namespace vantik
