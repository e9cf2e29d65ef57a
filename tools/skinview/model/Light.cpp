#include "tools/skinview/model/Light.h"

#include "model/Skin.h"
#include "tools/skinview/model/Piece.h"

namespace vantik {

namespace {

constexpr std::uint32_t Mixed(std::uint32_t from, std::uint32_t light, int shift) noexcept {
    const std::uint32_t a = from >> shift & 0xFF, b = light >> shift & 0xFF;
    return (a + 4 * b) / 5 << shift;
}

// A little of the pixel shines through, so that its shape is still seen.
constexpr std::uint32_t LitPixel(std::uint32_t pixel) noexcept {
    if (pixel == KeyColour) return pixel;
    return Mixed(pixel, LightColour, 16) | Mixed(pixel, LightColour, 8) | Mixed(pixel, LightColour, 0);
}

bool IsInside(const PixelBox& box, const PixelImage& image) noexcept {
    return box.Left >= 0 && box.Top >= 0 && box.Right <= image.Width() && box.Bottom <= image.Height();
}

// The first two are measures only, and nothing is drawn of the last three.
bool HasPixels(std::int32_t piece) noexcept { return piece >= FillPic0 && piece <= FRightLine; }

bool IsInOrder(const EdgeNumbers& numbers) noexcept {
    return numbers[LeftEdge] <= numbers[RightEdge] && numbers[TopEdge] <= numbers[BottomEdge];
}

PixelImage WithLitCopy(const PixelImage& bitmap, const PixelBox& box) {
    PixelImage lit = bitmap;
    lit.AddRows(box.Height(), KeyColour);
    for (std::int32_t y = 0; y < box.Height(); ++y)
        for (std::int32_t x = 0; x < box.Width(); ++x)
            lit.At(x, bitmap.Height() + y) = LitPixel(bitmap.At(box.Left + x, box.Top + y));
    return lit;
}

} // namespace

std::optional<LitSkin> Lit(const DefinitionText& definition, const PixelImage& bitmap, std::int32_t piece) {
    const auto pieces = PiecesOf(definition);
    const Piece* found = FindPiece(pieces, piece);
    if (!HasPixels(piece) || !found || !IsInOrder(found->Numbers) || !IsInside(found->Box(), bitmap))
        return std::nullopt;
    const PixelBox box = found->Box();
    const EdgeNumbers copy = {0, box.Width() - 1, bitmap.Height(), bitmap.Height() + box.Height() - 1};
    return LitSkin{WithNumbers(definition, piece, copy), WithLitCopy(bitmap, box)};
}

} // namespace vantik
