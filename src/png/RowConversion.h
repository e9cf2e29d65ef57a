// Rewrites one row of samples as one row of a bitmap.
#pragma once

#include <array>
#include <cstdint>

#include "png/PngContents.h"

namespace vantik {

// Pixels of 32 bits: blue in the low byte, then green, red and alpha.
using ColourMap = std::array<std::uint32_t, 256>;

class RowConverter {
public:
    // `isTransparent`: to 32 bits with an alpha. `sampleBits`: what a sample takes in the rows, which is not its depth where
    // it was unpacked or cut already.
    RowConverter(const PngContents& png, bool isTransparent, std::int32_t sampleBits);

    void Convert(const std::uint8_t* samples, std::uint8_t* row) const { (this->*convert_)(samples, row); }

private:
    using Conversion = void (RowConverter::*)(const std::uint8_t*, std::uint8_t*) const;

    Conversion Choose(bool isTransparent) const;
    Conversion ChooseForIndexes(bool isTransparent) const;

    void CopyRow(const std::uint8_t* samples, std::uint8_t* row) const;
    void ExpandTwoBit(const std::uint8_t* samples, std::uint8_t* row) const;
    void ReduceSixteen(const std::uint8_t* samples, std::uint8_t* row) const;
    template <unsigned Bits>
    void MapToColours(const std::uint8_t* samples, std::uint8_t* row) const;
    void GreySixteenWithKey(const std::uint8_t* samples, std::uint8_t* row) const;
    template <std::size_t SampleSize>
    void RgbToBgr(const std::uint8_t* samples, std::uint8_t* row) const;
    template <std::size_t SampleSize>
    void RgbWithKey(const std::uint8_t* samples, std::uint8_t* row) const;
    template <std::size_t SampleSize>
    void GreyAlphaToBgra(const std::uint8_t* samples, std::uint8_t* row) const;
    template <std::size_t SampleSize>
    void RgbaToBgra(const std::uint8_t* samples, std::uint8_t* row) const;

    const PngContents& png_;
    const std::size_t width_;
    const std::int32_t sampleBits_; // below 8 when samples still share bytes
    ColourMap colours_ = {};
    Conversion convert_;
};

} // namespace vantik
