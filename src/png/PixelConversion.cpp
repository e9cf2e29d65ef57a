#include "png/PixelConversion.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "png/ColourTables.h"
#include "png/Deinterlace.h"
#include "png/PicturePlan.h"
#include "png/RawScanlines.h"
#include "png/RowConversion.h"
#include "png/Unfilter.h"

namespace vantik {

namespace {

constexpr std::size_t ZlibHeaderSize = 2;

// The samples after unfiltering or de-interlacing, row after row from the top.
struct SampleImage {
    ByteBuffer Bytes;
    std::size_t RowSize = 0;

    const std::uint8_t* Row(std::int32_t y) const noexcept {
        return Bytes.data() + static_cast<std::size_t>(y) * RowSize;
    }
    ByteView All(std::int32_t height) const noexcept {
        return {Bytes.data(), RowSize * static_cast<std::size_t>(height)};
    }
};

class PixelDecoder {
public:
    PixelDecoder(const PngContents& png, const ConversionSettings& settings, Inflater& inflater)
        : png_(png),
          header_(png.Header),
          plan_(PlanPicture(png, settings)),
          inflater_(inflater),
          raw_(inflater) {}

    DibImage Run() {
        BeginInflation();
        ReadPicture();
        raw_.Finish();
        inflater_.End();
        if (dib_.BitCount != 0 && dib_.BitCount <= 8) dib_.ColourTable = ChooseColourTable();
        return std::move(dib_);
    }

private:
    void BeginInflation() {
        const ByteView data(png_.ImageData);
        if (data.size() < ZlibHeaderSize) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
        auto expected = static_cast<std::int32_t>(plan_.RawSize);
        // Another compression method leaves the scanlines empty.
        const bool isDeflated = header_.Compression == 0;
        if (!isDeflated) return inflater_.End();
        inflater_.Begin(data.subspan(ZlibHeaderSize), expected);
    }

    // An interlace method above 1 has neither layout: what was inflated stays as it is.
    void ReadPicture() {
        if (header_.Interlace > 1) return CopyUnconverted(raw_.All());
        if (!plan_.UnfiltersInPlace) return Convert(ReadSamples());
        dib_ = NewDib();
        UnfilterInto({dib_.Row(0), dib_.RowStep()});
    }

    DibImage NewDib() const {
        DibImage dib;
        dib.Width = header_.Width;
        dib.Height = header_.Height;
        dib.BitCount = plan_.BitCount;
        dib.IsTransparent = plan_.IsTransparent;
        dib.IsTopDown = !plan_.IsTransparent;
        dib.Pixels = ByteBuffer(static_cast<std::size_t>(plan_.DibSize) + RowSlack);
        ClearPadding(dib);
        return dib;
    }

    // The bytes behind the pixels of each row, which no conversion writes to.
    static void ClearPadding(DibImage& dib) noexcept {
        const auto used = static_cast<std::size_t>((std::int64_t{dib.Width} * dib.BitCount) / 8);
        const std::size_t stride = dib.Stride();
        if (used == stride) return;
        for (std::int32_t y = 0; y < dib.Height; ++y) std::memset(dib.Row(y) + used, 0, stride - used);
    }

    std::size_t UnfilteredRowSize() const noexcept { return plan_.RowSize / plan_.Before.Shrinks(); }

    void UnfilterInto(RowTarget target) {
        const FilteredImage image = {header_.Height, UnfilteredRowSize(),
                                     plan_.BytesPerPixel / plan_.Before.Shrinks(), plan_.Before};
        UnfilterImage(raw_, image, target);
    }

    SampleImage ReadSamples() {
        if (header_.Interlace == 1) {
            const InterlacedImage image = {header_.Width, header_.Height, BitsPerPixel(header_)};
            return {Deinterlace(raw_, image), static_cast<std::size_t>(header_.Width) * plan_.BytesPerPixel};
        }
        const std::size_t rowSize = UnfilteredRowSize();
        SampleImage samples = {ByteBuffer(rowSize * static_cast<std::size_t>(header_.Height) + RowSlack),
                               rowSize};
        UnfilterInto({samples.Bytes.data(), static_cast<std::ptrdiff_t>(rowSize)});
        return samples;
    }

    void Convert(const SampleImage& samples) {
        if (plan_.IsUnconverted) return CopyUnconverted(samples.All(header_.Height));
        dib_ = NewDib();
        const RowConverter converter(png_, plan_.IsTransparent, plan_.SampleBits);
        const RowTarget rows = {dib_.Row(0), dib_.RowStep()};
        for (std::int32_t y = 0; y < header_.Height; ++y) converter.Convert(samples.Row(y), rows.Row(y));
    }

    // Samples that no conversion is defined for are the bitmap's bytes as they follow each other.
    void CopyUnconverted(ByteView bytes) {
        if (plan_.BitCount == 0) return;
        dib_ = NewDib();
        const auto size = static_cast<std::size_t>(plan_.DibSize);
        const std::size_t used = std::min(size, bytes.size());
        std::copy_n(bytes.data(), used, dib_.Pixels.data());
        std::memset(dib_.Pixels.data() + used, 0, size - used);
    }

    ColourTable ChooseColourTable() const {
        const std::size_t entries = std::size_t{1} << dib_.BitCount;
        const std::int32_t type = header_.ColourType;
        if (dib_.BitCount == 1) {
            return type == ColourType::Palette ? TwoColourTable(png_.Palette) : GreyPalette(1, entries);
        }
        const bool isGrey = type == ColourType::Grey || (dib_.BitCount == 8 && type == ColourType::GreyAlpha);
        return isGrey ? GreyPalette(header_.BitDepth, entries) : PaletteTable(png_.Palette, entries);
    }

    const PngContents& png_;
    const ImageHeader& header_;
    const PicturePlan plan_;
    Inflater& inflater_;
    RawScanlines raw_;
    DibImage dib_;
};

} // namespace

DibImage DecodePixels(const PngContents& png, const ConversionSettings& settings, Inflater& inflater) {
    if (png.Header.Width < 1 || png.Header.Height < 1) return {};
    return PixelDecoder(png, settings, inflater).Run();
}

} // namespace vantik
