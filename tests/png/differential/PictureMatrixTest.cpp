// The whole matrix of PNG kinds against libpng's own expansion.
#include <doctest/doctest.h>
#include <png.h>

#include <random>

#include "png/PngReader.h"
#include "tests/png/differential/LibPng.h"
#include "tools/pngprobe/PixelExport.h"

namespace vantik {

namespace {

struct Kind {
    int ColourType;
    int BitDepth;
};

constexpr Kind AllKinds[] = {{0, 1}, {0, 2}, {0, 4}, {0, 8}, {0, 16}, {2, 8}, {2, 16}, {3, 1},
                             {3, 2}, {3, 4}, {3, 8}, {4, 8}, {4, 16}, {6, 8}, {6, 16}};

constexpr int AllFilters[] = {PNG_FILTER_NONE, PNG_FILTER_SUB,   PNG_FILTER_UP,
                              PNG_FILTER_AVG,  PNG_FILTER_PAETH, PNG_ALL_FILTERS};

constexpr std::uint32_t AllSizes[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 33, 64};

class PictureMaker {
public:
    SourcePicture Make(const Kind& kind, bool isTransparent) {
        SourcePicture picture;
        picture.ColourType = kind.ColourType;
        picture.BitDepth = kind.BitDepth;
        if (kind.ColourType == 3) MakePalette(picture, isTransparent);
        return picture;
    }

    // Slopes with some noise, so that filters have something to do and all values occur.
    void MakeSamples(SourcePicture& picture) {
        const std::size_t rowSize = PackedRowSize(picture);
        picture.Samples.resize(rowSize * picture.Height);
        for (std::size_t i = 0; i < picture.Samples.size(); ++i) {
            const std::size_t slope = i % rowSize * 3 + i / rowSize * 5;
            picture.Samples[i] = static_cast<std::uint8_t>(Random(4) == 0 ? Random(256) : slope);
        }
    }

    // The first pixel's colour, so that it does occur.
    void MakeKey(SourcePicture& picture) {
        const std::size_t channels = picture.ColourType == 2 ? 3 : 1;
        for (std::size_t i = 0; i < channels; ++i) picture.Key.push_back(FirstSample(picture, i));
    }

private:
    unsigned Random(unsigned below) { return static_cast<unsigned>(generator_()) % below; }

    void MakePalette(SourcePicture& picture, bool isTransparent) {
        const unsigned entries = 1u << picture.BitDepth;
        for (unsigned i = 0; i < 3 * entries; ++i)
            picture.Palette.push_back(static_cast<std::uint8_t>(Random(256)));
        if (!isTransparent) return;
        const unsigned alphas = 1 + Random(entries);
        for (unsigned i = 0; i < alphas; ++i)
            picture.Alphas.push_back(static_cast<std::uint8_t>(Random(256)));
    }

    static std::uint16_t FirstSample(const SourcePicture& picture, std::size_t channel) {
        const auto depth = static_cast<unsigned>(picture.BitDepth);
        const Bytes& samples = picture.Samples;
        if (depth == 16)
            return static_cast<std::uint16_t>(samples[2 * channel] << 8 | samples[2 * channel + 1]);
        if (depth == 8) return samples[channel];
        return static_cast<std::uint16_t>(samples[0] >> (8 - depth));
    }

    std::mt19937 generator_{4711};
};

Bytes ReadRgba(const Bytes& png) {
    MemorySource source(png);
    PngReader reader;
    REQUIRE(reader.Read(source));
    const DibImage image = reader.Decode({.AppliesTransparency = true, .AppliesAlpha = true});
    REQUIRE(image);
    return ToRgba(image);
}

void CheckAllSizes(PictureMaker& maker, const Kind& kind, bool isTransparent, bool isInterlaced,
                   int filters) {
    for (const std::uint32_t width : AllSizes) {
        for (const std::uint32_t height : AllSizes) {
            CAPTURE(width);
            CAPTURE(height);
            SourcePicture picture = maker.Make(kind, isTransparent);
            picture.Width = width;
            picture.Height = height;
            picture.IsInterlaced = isInterlaced;
            picture.Filters = filters;
            maker.MakeSamples(picture);
            if (isTransparent && kind.ColourType != 3) maker.MakeKey(picture);
            const Bytes png = WriteWithLibPng(picture);
            CHECK(ReadRgba(png) == ReadRgbaWithLibPng(png));
        }
    }
}

} // namespace

TEST_CASE("every kind of picture decodes to the bit as libpng expands it") {
    PictureMaker maker;
    for (const Kind& kind : AllKinds) {
        for (const bool isTransparent : {false, true}) {
            if (isTransparent && kind.ColourType >= 4) continue; // no tRNS beside an alpha channel
            for (const bool isInterlaced : {false, true}) {
                for (const int filters : AllFilters) {
                    CAPTURE(kind.ColourType);
                    CAPTURE(kind.BitDepth);
                    CAPTURE(isTransparent);
                    CAPTURE(isInterlaced);
                    CAPTURE(filters);
                    CheckAllSizes(maker, kind, isTransparent, isInterlaced, filters);
                }
            }
        }
    }
}

TEST_CASE("large pictures decode to the bit as libpng expands them") {
    PictureMaker maker;
    for (const Kind& kind : AllKinds) {
        for (const bool isInterlaced : {false, true}) {
            for (const int level : {1, 9}) {
                SourcePicture picture = maker.Make(kind, false);
                picture.Width = 701;
                picture.Height = 523;
                picture.IsInterlaced = isInterlaced;
                picture.Filters = PNG_ALL_FILTERS;
                picture.Level = level;
                maker.MakeSamples(picture);
                const Bytes png = WriteWithLibPng(picture);
                CHECK(ReadRgba(png) == ReadRgbaWithLibPng(png));
            }
        }
    }
}

} // namespace vantik
