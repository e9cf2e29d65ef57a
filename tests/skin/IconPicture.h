// Icons with alpha made up by a test, as PNG files and mixed by plain loops.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/gfx/TestSurface.h"

namespace vantik::test {

using Rgba = std::array<std::uint8_t, 4>;

struct IconPicture {
    std::int32_t Width = 0, Height = 0;
    std::vector<Rgba> Values; // rows from the top

    const Rgba& At(std::int32_t x, std::int32_t y) const {
        return Values[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                      static_cast<std::size_t>(x)];
    }
};

// Opaque, transparent and half-transparent pixels of all colours.
IconPicture RandomIcon(std::int32_t width, std::int32_t height, std::uint32_t seed);
IconPicture FlatIcon(std::int32_t width, std::int32_t height, Rgba value);

std::string AsPng(const IconPicture& icon);

// An opaque picture of one grey.
std::string FlatPng(std::uint32_t width, std::uint32_t height);

// Mixes the icon over the picture at (x, y), inside the bounds only. Style 0: grey from blue, 1: grey from green, 3: own
// colours, 4: 80 percent value, for grey icons only.
void Mix(Pixels& onto, const IconPicture& icon, std::int32_t x, std::int32_t y, int style,
         const RECT& bounds);

} // namespace vantik::test
