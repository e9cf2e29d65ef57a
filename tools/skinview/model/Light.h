// A piece in a colour of its own, so that it shows wherever the control draws it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "check/DefinitionText.h"
#include "tools/skinview/model/PixelImage.h"

namespace vantik {

inline constexpr std::uint32_t LightColour = 0xE0007A;
inline constexpr std::uint32_t KeyColour = 0xFF00FF; // transparent in pieces that are copied with a mask

struct LitSkin {
    std::string Definition;
    PixelImage Bitmap;
};

// The skin with a lit copy of the piece below the bitmap, to which the piece's line leads: pieces that share its pixels
// stay dark. Nothing of it is lit where the key colour is, and nothing of a piece that the control takes no pixels of.
// Empty for a piece that cannot be lit.
std::optional<LitSkin> Lit(const DefinitionText& definition, const PixelImage& bitmap, std::int32_t piece);

} // namespace vantik
