#include "bench/png/PictureSet.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>

#include "tests/png/differential/LibPng.h"

namespace vantik::bench {

namespace {

struct PictureSize {
    std::uint32_t Width;
    std::uint32_t Height;
};

PictureSize SizeOf(const Bytes& file) {
    const auto number = [&](std::size_t at) {
        return std::uint32_t{file[at]} << 24 | std::uint32_t{file[at + 1]} << 16 |
               std::uint32_t{file[at + 2]} << 8 | file[at + 3];
    };
    return {number(16), number(20)};
}

constexpr std::uint32_t IconExtent = 64;
constexpr std::uint64_t LargePixels = 100'000;

// Random values at the corners of a coarse grid, smoothly blended: what photos look like to filters.
class SmoothNoise {
public:
    SmoothNoise(std::mt19937& generator, double cell) : cell_(cell) {
        for (auto& corner : corners_) corner = static_cast<double>(generator() % 256);
    }

    double At(std::uint32_t x, std::uint32_t y) const {
        const double u = x / cell_;
        const double v = y / cell_;
        const double upper = Blend(Corner(u, v), Corner(u + 1, v), u - std::floor(u));
        const double lower = Blend(Corner(u, v + 1), Corner(u + 1, v + 1), u - std::floor(u));
        return Blend(upper, lower, v - std::floor(v));
    }

private:
    static double Blend(double a, double b, double share) {
        return a + (b - a) * share * share * (3 - 2 * share);
    }
    double Corner(double u, double v) const {
        const auto i = static_cast<std::size_t>(u);
        const auto j = static_cast<std::size_t>(v);
        return corners_[(i * 31 + j * 17) % std::size(corners_)];
    }

    double cell_;
    double corners_[251];
};

class Painter {
public:
    using PixelAt = std::function<std::array<std::uint8_t, 4>(std::uint32_t, std::uint32_t)>;

    explicit Painter(unsigned seed) : generator_(seed) {}

    // Slopes, details and a little sensor noise.
    PixelAt Photo(double noise) {
        std::vector<SmoothNoise> coarse;
        std::vector<SmoothNoise> fine;
        for (int channel = 0; channel < 3; ++channel) {
            coarse.emplace_back(generator_, 90.0);
            fine.emplace_back(generator_, 11.0);
        }
        return [this, noise, coarse, fine](std::uint32_t x, std::uint32_t y) {
            std::array<std::uint8_t, 4> pixel = {0, 0, 0, 255};
            std::normal_distribution<double> grain(0, noise);
            for (std::size_t c = 0; c < 3; ++c) {
                const double level = coarse[c].At(x, y) * 0.7 + fine[c].At(x, y) * 0.3 + grain(generator_);
                pixel[c] = static_cast<std::uint8_t>(std::clamp(level, 0.0, 255.0));
            }
            return pixel;
        };
    }

    // Boxes of plain colours with thin frames, as screens have them.
    PixelAt Flat(std::uint32_t extent) {
        struct Box {
            std::uint32_t Left, Top, Right, Bottom;
            std::array<std::uint8_t, 4> Colour;
        };
        std::vector<Box> boxes;
        for (int i = 0; i < 40; ++i) {
            const std::uint32_t left = Random(extent);
            const std::uint32_t top = Random(extent);
            boxes.push_back(
                {left, top, left + 4 + Random(extent / 3 + 1), top + 4 + Random(extent / 4 + 1), Colour()});
        }
        return [boxes](std::uint32_t x, std::uint32_t y) {
            std::array<std::uint8_t, 4> pixel = {240, 240, 240, 255};
            for (const Box& box : boxes) {
                if (x < box.Left || x >= box.Right || y < box.Top || y >= box.Bottom) continue;
                const bool isFrame =
                    x == box.Left || x + 1 == box.Right || y == box.Top || y + 1 == box.Bottom;
                pixel = isFrame ? std::array<std::uint8_t, 4>{40, 40, 40, 255} : box.Colour;
            }
            return pixel;
        };
    }

    // A shaded disc with soft edges on nothing, which is what most icons are.
    PixelAt Icon(std::uint32_t extent) {
        const auto colour = Colour();
        const double radius = extent * (0.3 + Random(20) / 100.0);
        const double middle = extent / 2.0;
        const double hole = Random(2) ? radius * 0.4 : 0;
        return [=](std::uint32_t x, std::uint32_t y) {
            const double distance = std::hypot(x + 0.5 - middle, y + 0.5 - middle);
            const double cover =
                std::clamp(radius - distance, 0.0, 1.0) * std::clamp(distance - hole + 1, 0.0, 1.0);
            if (cover == 0) return std::array<std::uint8_t, 4>{};
            const double shade = 0.6 + 0.4 * y / extent;
            return std::array<std::uint8_t, 4>{
                static_cast<std::uint8_t>(colour[0] * shade), static_cast<std::uint8_t>(colour[1] * shade),
                static_cast<std::uint8_t>(colour[2] * shade), static_cast<std::uint8_t>(cover * 255)};
        };
    }

private:
    std::uint32_t Random(std::uint32_t below) { return static_cast<std::uint32_t>(generator_() % below); }
    std::array<std::uint8_t, 4> Colour() {
        const auto channel = [&] { return static_cast<std::uint8_t>(Random(256)); };
        return {channel(), channel(), channel(), 255};
    }

    std::mt19937 generator_;
};

// 6 x 6 x 6 colours.
Bytes CubePalette() {
    Bytes palette;
    for (int i = 0; i < 216; ++i) {
        for (const int level : {i / 36, i / 6 % 6, i % 6})
            palette.push_back(static_cast<std::uint8_t>(level * 51));
    }
    return palette;
}

void AppendPixel(Bytes& samples, const std::array<std::uint8_t, 4>& pixel, int colourType) {
    switch (colourType) {
    case PNG_COLOR_TYPE_GRAY: samples.push_back(pixel[1]); break;
    case PNG_COLOR_TYPE_PALETTE:
        samples.push_back(static_cast<std::uint8_t>(pixel[0] / 43 * 36 + pixel[1] / 43 * 6 + pixel[2] / 43));
        break;
    default:
        samples.insert(samples.end(), pixel.begin(),
                       pixel.begin() + (colourType == PNG_COLOR_TYPE_RGB ? 3 : 4));
    }
}

// Samples of 16 bits, the high byte first: a level between two of 8 bits, as smooth slopes have them.
Bytes Deepened(const Bytes& samples) {
    Bytes deep;
    unsigned position = 0;
    for (const std::uint8_t sample : samples) {
        position = position * 1103515245 + 12345;
        const bool isLimit = sample == 0 || sample == 255;
        deep.push_back(sample);
        deep.push_back(isLimit ? sample : static_cast<std::uint8_t>(position >> 16));
    }
    return deep;
}

Bytes Write(PictureSize size, int colourType, const Painter::PixelAt& pixelAt, int bitDepth = 8) {
    SourcePicture picture;
    picture.BitDepth = bitDepth;
    picture.Width = size.Width;
    picture.Height = size.Height;
    picture.ColourType = colourType;
    const bool isPalette = colourType == PNG_COLOR_TYPE_PALETTE;
    picture.Filters = isPalette ? PNG_FILTER_NONE : PNG_ALL_FILTERS; // as writers usually choose
    if (isPalette) picture.Palette = CubePalette();
    for (std::uint32_t y = 0; y < size.Height; ++y) {
        for (std::uint32_t x = 0; x < size.Width; ++x)
            AppendPixel(picture.Samples, pixelAt(x, y), colourType);
    }
    if (bitDepth == 16) picture.Samples = Deepened(picture.Samples);
    return WriteWithLibPng(picture);
}

constexpr int ColourTypes[] = {PNG_COLOR_TYPE_RGB_ALPHA, PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_PALETTE,
                               PNG_COLOR_TYPE_GRAY};

PictureSet GeneratedIcons() {
    PictureSet set = {"icons, generated", {}};
    Painter painter(1);
    for (const std::uint32_t extent : {16u, 24u, 32u, 48u, 64u}) {
        for (const int type : ColourTypes) {
            for (int i = 0; i < 3; ++i) {
                set.Files.push_back(Write({extent, extent}, type, painter.Icon(extent)));
                set.Files.push_back(Write({extent, extent}, type, painter.Flat(extent)));
            }
            set.Files.push_back(Write({extent, extent}, type, painter.Photo(2)));
        }
    }
    return set;
}

PictureSet GeneratedLargePictures() {
    PictureSet set = {"large pictures, generated", {}};
    Painter painter(2);
    for (const PictureSize size : {PictureSize{400, 260}, {1024, 768}, {2304, 1728}}) {
        for (const int type : ColourTypes) {
            set.Files.push_back(Write(size, type, painter.Photo(0.7)));
            set.Files.push_back(Write(size, type, painter.Photo(3)));
            set.Files.push_back(Write(size, type, painter.Flat(size.Width)));
        }
    }
    return set;
}

PictureSet GeneratedDeepPictures() {
    PictureSet set = {"16 bits a sample, generated", {}};
    Painter painter(3);
    for (const std::uint32_t extent : {16u, 32u, 64u, 256u, 600u}) {
        for (const int type : {PNG_COLOR_TYPE_RGB_ALPHA, PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_GRAY}) {
            set.Files.push_back(Write({extent, extent}, type, painter.Icon(extent), 16));
            set.Files.push_back(Write({extent, extent}, type, painter.Flat(extent), 16));
            set.Files.push_back(Write({extent, extent}, type, painter.Photo(0.7), 16));
        }
    }
    return set;
}

Bytes ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

std::vector<PictureSet> SetsFromFolder(const std::string& folder) {
    std::vector<PictureSet> sets = {{"icons", {}}, {"between", {}}, {"large pictures", {}}};
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && entry.path().extension() == ".png") paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    for (const auto& path : paths) {
        Bytes file = ReadFile(path);
        if (file.size() < 33) continue;
        const PictureSize size = SizeOf(file);
        const bool isIcon = std::max(size.Width, size.Height) <= IconExtent;
        const bool isLarge = std::uint64_t{size.Width} * size.Height >= LargePixels;
        sets[isIcon ? 0 : isLarge ? 2 : 1].Files.push_back(std::move(file));
    }
    std::erase_if(sets, [](const PictureSet& set) { return set.Files.empty(); });
    return sets;
}

std::vector<PictureSet> GeneratedSets() {
    return {GeneratedIcons(), GeneratedLargePictures(), GeneratedDeepPictures()};
}

} // namespace vantik::bench
