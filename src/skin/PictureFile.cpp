#include "skin/PictureFile.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace vantik {

namespace {

using File = std::span<const std::uint8_t>;

constexpr std::int64_t MaxPixels = 64'000'000;

// Of a bitmap file: the offset of the pixels, and where the bitmap's own header begins with its size.
constexpr std::int64_t PixelOffsetAt = 10;
constexpr std::int64_t HeaderAt = 14;

enum HeaderSize : std::int64_t {
    Core = 12,
    Info = 40,
    InfoV2 = 52,
    InfoV3 = 56,
    Os2 = 64,
    V4 = 108,
    V5 = 124
};
enum Compression : std::int64_t { Rgb = 0, Rle8 = 1, Rle4 = 2, BitFields = 3 };

bool IsOneOf(std::int64_t value, std::initializer_list<std::int64_t> values) noexcept {
    return std::find(values.begin(), values.end(), value) != values.end();
}

bool Begins(File file, std::string_view magic) noexcept {
    return file.size() >= magic.size() && std::memcmp(file.data(), magic.data(), magic.size()) == 0;
}

// The number at an offset that is known to be in the file, low byte first.
template <class Number>
Number At(File file, std::int64_t offset) noexcept {
    Number number;
    std::memcpy(&number, file.data() + offset, sizeof number);
    return number;
}

struct Bitmap {
    std::int64_t HeaderSize = 0, Width = 0, Height = 0, Planes = 0, Bits = 0;
    std::int64_t Compression = Rgb, ImageSize = 0, ColoursUsed = 0;
    bool IsTopDown = false;
    File Pixels;

    std::int64_t Stride() const noexcept { return (Width * Bits + 31) / 32 * 4; }

    // Behind the header: the masks of the older headers and the colours.
    std::int64_t TableSize() const noexcept {
        const std::int64_t all = Bits <= 8 ? std::int64_t{1} << Bits : 0;
        const std::int64_t colours = ColoursUsed ? ColoursUsed : all;
        const std::int64_t masks = HeaderSize == Info && Compression == BitFields ? 12 : 0;
        return masks + colours * (HeaderSize == Core ? 3 : 4);
    }
};

void ReadCoreHeader(File header, Bitmap& bitmap) noexcept {
    bitmap.Width = At<std::uint16_t>(header, 4);
    bitmap.Height = At<std::uint16_t>(header, 6);
    bitmap.Planes = At<std::uint16_t>(header, 8);
    bitmap.Bits = At<std::uint16_t>(header, 10);
}

void ReadInfoHeader(File header, Bitmap& bitmap) noexcept {
    const std::int64_t height = At<std::int32_t>(header, 8);
    bitmap.Width = At<std::int32_t>(header, 4);
    bitmap.Height = height < 0 ? -height : height;
    bitmap.IsTopDown = height < 0;
    bitmap.Planes = At<std::uint16_t>(header, 12);
    bitmap.Bits = At<std::uint16_t>(header, 14);
    bitmap.Compression = At<std::uint32_t>(header, 16);
    bitmap.ImageSize = At<std::uint32_t>(header, 20);
    bitmap.ColoursUsed = At<std::uint32_t>(header, 32);
}

// Nothing when the file ends before the header, the colours or the place of the pixels.
std::optional<Bitmap> ReadBitmap(File file) noexcept {
    const auto size = static_cast<std::int64_t>(file.size());
    Bitmap bitmap;
    if (size < HeaderAt + Core) return std::nullopt;
    bitmap.HeaderSize = At<std::uint32_t>(file, HeaderAt);
    if (!IsOneOf(bitmap.HeaderSize, {Core, Info, InfoV2, InfoV3, Os2, V4, V5})) return std::nullopt;
    const std::int64_t headerEnd = HeaderAt + bitmap.HeaderSize;
    if (size < headerEnd) return std::nullopt;
    const File header = file.subspan(HeaderAt);
    bitmap.HeaderSize == Core ? ReadCoreHeader(header, bitmap) : ReadInfoHeader(header, bitmap);
    const std::int64_t pixels = At<std::uint32_t>(file, PixelOffsetAt);
    if (pixels < headerEnd || pixels > size || bitmap.Bits > 32) return std::nullopt;
    if (headerEnd + bitmap.TableSize() > size) return std::nullopt;
    bitmap.Pixels = file.subspan(static_cast<std::size_t>(pixels));
    return bitmap;
}

bool HasKnownDepth(const Bitmap& bitmap) noexcept {
    switch (bitmap.Compression) {
    case Rgb: return IsOneOf(bitmap.Bits, {1, 4, 8, 16, 24, 32});
    case Rle8: return bitmap.Bits == 8 && !bitmap.IsTopDown;
    case Rle4: return bitmap.Bits == 4 && !bitmap.IsTopDown;
    case BitFields: return IsOneOf(bitmap.Bits, {16, 32}) && bitmap.HeaderSize != Os2;
    default: return false;
    }
}

bool HasKnownFormat(const Bitmap& bitmap) noexcept {
    return bitmap.Width > 0 && bitmap.Height > 0 && bitmap.Width <= MaxPixels / bitmap.Height &&
           bitmap.Planes == 1 && HasKnownDepth(bitmap) && (bitmap.Bits > 8 || bitmap.ColoursUsed <= 256);
}

// Every run up to the end of the bitmap, or of the data, is in the data as a whole.
bool HoldsRuns(File data, std::int64_t bits) noexcept {
    constexpr std::size_t Delta = 2, FirstLiteralCount = 3;
    for (std::size_t at = 0; at < data.size();) {
        if (data.size() - at < 2) return false;
        const std::size_t count = data[at], escape = data[at + 1];
        at += 2;
        if (count != 0 || escape == 0) continue; // a run of one value, the end of a row
        if (escape == 1) return true;
        const std::size_t literals = bits == 8 ? escape : (escape + 1) / 2;
        const std::size_t more = escape == Delta ? 2 : (literals + 1) / 2 * 2; // padded to whole words
        static_assert(Delta + 1 == FirstLiteralCount);
        if (more > data.size() - at) return false;
        at += more;
    }
    return true;
}

bool HoldsPixels(const Bitmap& bitmap) noexcept {
    const auto available = static_cast<std::int64_t>(bitmap.Pixels.size());
    if (!IsOneOf(bitmap.Compression, {Rle8, Rle4})) return bitmap.Stride() * bitmap.Height <= available;
    if (bitmap.ImageSize == 0 || bitmap.ImageSize > available) return false;
    return HoldsRuns(bitmap.Pixels.first(static_cast<std::size_t>(bitmap.ImageSize)), bitmap.Bits);
}

// The loader knows these by their beginnings alone.
constexpr std::string_view PlainFormats[] = {"GIF8", "\xFF\xD8", std::string_view("\1\0\0\0", 4)};

// PNG, metafiles, icons and cursors.
constexpr std::string_view OtherFormats[] = {"\x89PNG", "\xD7\xCD\xC6\x9A", std::string_view("\0\0\1\0", 4),
                                             std::string_view("\0\0\2\0", 4)};

// A loader that does not know the beginning may take its second number for the length of a header and search behind that,
// where nobody has checked what stands there.
bool HasLengthOfHeader(File file) noexcept {
    const auto length = file.size() < 8 ? 0 : At<std::uint32_t>(file, 4);
    return length != 0 && length <= file.size();
}

bool BeginsWithOneOf(File file, std::span<const std::string_view> formats) noexcept {
    return std::any_of(formats.begin(), formats.end(),
                       [&](std::string_view magic) { return Begins(file, magic); });
}

} // namespace

std::optional<BitmapFormat> FormatOfBitmap(std::span<const std::uint8_t> file) noexcept {
    const std::optional<Bitmap> bitmap = Begins(file, "BM") ? ReadBitmap(file) : std::nullopt;
    if (!bitmap || !HasKnownFormat(*bitmap) || !HoldsPixels(*bitmap)) return std::nullopt;
    const auto fitting = [](std::int64_t number) { return static_cast<std::int32_t>(number); };
    return BitmapFormat{fitting(bitmap->Width), fitting(bitmap->Height), fitting(bitmap->Bits)};
}

bool IsWholePicture(std::span<const std::uint8_t> file) noexcept {
    if (Begins(file, "BM")) return FormatOfBitmap(file).has_value();
    return BeginsWithOneOf(file, PlainFormats) ||
           (BeginsWithOneOf(file, OtherFormats) && !HasLengthOfHeader(file));
}

} // namespace vantik
