// A small skin without faults, to plant some in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/MadeSkin.h"
#include "tests/skin/BitmapFile.h"

namespace vantik {

inline constexpr int SkinWidth = 60, SkinHeight = 30;

inline std::vector<std::string> LinesWithoutFaults() {
    return {"Start",               // 1
            "[Tab]",               // 2
            "File: skin.bmp",      // 3
            "0: 0,9,0,9",          // 4
            "1: 0,9,0,9",          // 5
            "2: 2,2,0,9",          // 6
            "3: 12,12,0,9",        // 7
            "4: 22,22,0,9",        // 8
            "5: 0,1,0,9",          // 9
            "6: 10,11,0,9",        // 10
            "7: 20,21,0,9",        // 11
            "8: 3,4,0,9",          // 12
            "9: 13,14,0,9",        // 13
            "10: 23,24,0,9",       // 14
            "11: 30,30,0,9",       // 15
            "12: 31,31,0,9",       // 16
            "13: 32,32,0,9",       // 17
            "14: 0,3,20,23",       // 18
            "15: 6,9,20,23",       // 19
            "16: 0,3,26,29",       // 20
            "17: 6,9,26,29",       // 21
            "18: 5,5,25,25",       // 22
            "19: 5,5,20,20",       // 23
            "20: 5,5,29,29",       // 24
            "21: 0,0,25,25",       // 25
            "22: 9,9,25,25",       // 26
            "[Icon]",              // 27
            "DeleteButton: a.png", // 28
            "LeftButton: b.png",   // 29
            "RightButton: c.png",  // 30
            "MenuBar: d.png",      // 31
            "Home: home.png",      // 32
            "End"};                // 33
}

inline std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

inline BitmapFile BitmapOfDepth(std::uint16_t bits) {
    const std::size_t stride = (SkinWidth * bits + 31u) / 32 * 4;
    const std::size_t colours = bits <= 8 ? std::size_t{1} << bits : 0;
    return {.Width = SkinWidth,
            .Height = SkinHeight,
            .Bits = bits,
            .TableSize = 4 * colours,
            .Pixels = Bytes(stride * SkinHeight, 0x55)};
}

inline Bytes PngOfSize(std::uint32_t width, std::uint32_t height) {
    const Bytes rows((1 + 3 * std::size_t{width}) * height, 0);
    return PngBytes().Header({.Width = width, .Height = height}).StoredImage(rows).End();
}

// The files of the skin above.
inline MadeSkin SkinWithFiles(std::string definition) {
    MadeSkin skin(std::move(definition));
    skin.With(u"Skin.BMP", BitmapOfDepth(24).File());
    for (const char16_t* name : {u"a.png", u"b.png", u"c.png", u"d.png", u"home.png"})
        skin.With(name, PngOfSize(16, 16));
    return skin;
}

} // namespace vantik
