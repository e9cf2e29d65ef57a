// Pictures as arrays of pixels, and a surface that GDI draws on and a test reads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gfx/Handles.h"
#include "platform/ComPtr.h"

namespace vantik::test {

// 0xRRGGBB, rows from the top.
struct Pixels {
    std::int32_t Width = 0, Height = 0;
    std::vector<std::uint32_t> Values;

    Pixels() = default;
    Pixels(std::int32_t width, std::int32_t height, std::uint32_t colour = 0);

    bool Has(std::int32_t x, std::int32_t y) const { return x >= 0 && y >= 0 && x < Width && y < Height; }
    std::uint32_t At(std::int32_t x, std::int32_t y) const;         // 0 outside
    void Set(std::int32_t x, std::int32_t y, std::uint32_t colour); // nothing outside

    // A part, for comparisons; what lies outside reads 0.
    Pixels Cut(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) const;

    friend bool operator==(const Pixels&, const Pixels&) = default;
};

// "same", or the first pixel that differs and how many do.
std::string Difference(const Pixels& actual, const Pixels& expected);

// A picture in which no two neighbours are alike and none has the key colour.
Pixels Patterned(std::int32_t width, std::int32_t height, std::uint32_t seed);

class TestSurface {
public:
    TestSurface(std::int32_t width, std::int32_t height);
    explicit TestSurface(const Pixels& content);

    HDC DC() const noexcept { return dc_.Get(); }
    HBITMAP Bitmap() const noexcept { return bitmap_.Get(); }
    Pixels Read() const;
    Pixels ReadPart(const RECT& area) const; // what lies outside reads 0
    void Write(const Pixels& content);
    void Clear(std::uint32_t colour);

private:
    std::int32_t width_, height_;
    std::uint32_t* bits_ = nullptr;
    MemoryDC dc_;
    OwnedBitmap bitmap_;
    Selection selection_;
};

// A picture object that holds the pixels as a bitmap.
ComPtr<IPictureDisp> PictureOf(const Pixels& content);

} // namespace vantik::test
