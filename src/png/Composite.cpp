#include "png/Composite.h"

#include <emmintrin.h>

#include <array>
#include <bit>
#include <cstring>

#include "gfx/cHSV.h"
#include "png/OutOfMemory.h"

namespace vantik {

namespace {

constexpr std::uint8_t FirstHsvStyle = 4;
constexpr float DimmedValue = 80;

// What the styles make of a colour: blue in the low byte, green and red above it.

struct Unchanged {
    std::uint32_t operator()(std::uint32_t colour) const noexcept { return colour; }
};

// All three channels from the one that starts at this bit.
struct OneChannel {
    unsigned Shift;

    std::uint32_t operator()(std::uint32_t colour) const noexcept {
        return (colour >> Shift & 0xFF) * 0x010101;
    }
};

// Neighbours mostly have the same colour, and the next ones one of a few. Sixteen are remembered: no picture has more
// whose pixels share bytes, and other pictures have fewer pixels.
class Recolouring {
public:
    explicit Recolouring(std::uint8_t style) : value_(style == FirstHsvStyle ? DimmedValue : 0) {
        known_.fill(NoColour);
    }

    std::uint32_t operator()(std::uint32_t colour) {
        if (colour != known_[last_]) last_ = PlaceOf(colour);
        return converted_[last_];
    }

private:
    static constexpr std::size_t Remembered = 16;
    static constexpr std::uint32_t NoColour = 0xFFFFFFFF;

    std::size_t PlaceOf(std::uint32_t colour) {
        const __m128i wanted = _mm_set1_epi32(static_cast<int>(colour));
        const auto same = [&](std::size_t four) {
            return _mm_cmpeq_epi32(_mm_load_si128(reinterpret_cast<const __m128i*>(&known_[4 * four])),
                                   wanted);
        };
        const __m128i lower = _mm_packs_epi32(same(0), same(1)), upper = _mm_packs_epi32(same(2), same(3));
        // A bit for each place.
        const auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(lower, upper)));
        return found ? static_cast<std::size_t>(std::countr_zero(found)) : Remember(colour);
    }

    // In the place of the one that has been there longest.
    std::size_t Remember(std::uint32_t colour) {
        const std::size_t place = next_;
        next_ = (next_ + 1) % Remembered;
        converted_[place] = Convert(colour);
        known_[place] = colour;
        return place;
    }

    std::uint32_t Convert(std::uint32_t colour) const {
        cHSV hsv;
        hsv.B = static_cast<std::int16_t>(colour & 0xFF);
        hsv.G = static_cast<std::int16_t>(colour >> 8 & 0xFF);
        hsv.R = static_cast<std::int16_t>(colour >> 16);
        hsv.ToHsv();
        hsv.V = value_;
        hsv.ToRgb();
        return static_cast<std::uint32_t>(hsv.B | hsv.G << 8 | hsv.R << 16);
    }

    const float value_;
    alignas(16) std::array<std::uint32_t, Remembered> known_;
    std::array<std::uint32_t, Remembered> converted_;
    std::size_t last_ = 0; // the place of the last pixel's colour
    std::size_t next_ = 0; // the place of the next one to be remembered
};

std::uint32_t LoadColour(const std::uint8_t* from) noexcept {
    std::uint16_t low;
    std::memcpy(&low, from, sizeof low);
    return low | std::uint32_t{from[2]} << 16;
}

void StoreColour(std::uint8_t* to, std::uint32_t colour) noexcept {
    const auto low = static_cast<std::uint16_t>(colour);
    std::memcpy(to, &low, sizeof low);
    to[2] = static_cast<std::uint8_t>(colour >> 16);
}

// Most pixels of an icon are opaque or not there at all.
template <class Style>
void MixRow(const std::uint8_t* from, std::uint8_t* background, std::int32_t width, Style& style) {
    for (std::int32_t x = 0; x < width; ++x, from += 4, background += 3) {
        std::uint32_t pixel;
        std::memcpy(&pixel, from, sizeof pixel);
        const unsigned alpha = pixel >> 24;
        if (alpha == 0) continue;
        const std::uint32_t colour = style(pixel & 0xFFFFFF);
        StoreColour(background, alpha == 255 ? colour : MixColours(colour, LoadColour(background), alpha));
    }
}

template <class Style>
void MixRows(const DibImage& image, DibImage& mixed, Style style) {
    const std::uint8_t* from = image.Row(0);
    std::uint8_t* to = mixed.Row(0);
    const std::ptrdiff_t step = image.RowStep(), mixedStep = mixed.RowStep();
    const std::int32_t width = image.Width;
    for (std::int32_t y = image.Height; y > 0; --y, from += step, to += mixedStep) {
        MixRow(from, to, width, style);
    }
}

} // namespace

DibImage Composite(const DibImage& image, std::uint8_t style, BackgroundSource* background) {
    DibImage mixed;
    mixed.Width = image.Width;
    mixed.Height = image.Height;
    mixed.BitCount = 24;
    mixed.IsTopDown = false;
    mixed.Pixels = WithOutOfMemory(
        [&] { return ByteBuffer::Zeroed(mixed.Stride() * static_cast<std::size_t>(image.Height)); });
    if (background) background->ReadRows(image.Width, image.Height, mixed.Pixels.All());

    if (style < 3) {
        MixRows(image, mixed, OneChannel{8u * style});
    } else if (style < FirstHsvStyle) {
        MixRows(image, mixed, Unchanged());
    } else {
        MixRows(image, mixed, Recolouring(style));
    }
    return mixed;
}

} // namespace vantik
