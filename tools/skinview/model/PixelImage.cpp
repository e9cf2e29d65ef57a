#include "tools/skinview/model/PixelImage.h"

namespace vantik {

namespace {

constexpr std::size_t FileHeader = 14, InfoHeader = 40;

void Put(std::string& bytes, std::size_t number, int size) {
    for (int i = 0; i < size; ++i) bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFF));
}

std::size_t RowSize(const PixelImage& image) noexcept {
    return (static_cast<std::size_t>(image.Width()) * 3 + 3) / 4 * 4;
}

void PutHeaders(std::string& bytes, const PixelImage& image, std::size_t pixels) {
    bytes += "BM";
    Put(bytes, FileHeader + InfoHeader + pixels, 4);
    Put(bytes, 0, 4);
    Put(bytes, FileHeader + InfoHeader, 4);
    Put(bytes, InfoHeader, 4);
    Put(bytes, static_cast<std::size_t>(image.Width()), 4);
    Put(bytes, static_cast<std::size_t>(image.Height()), 4);
    Put(bytes, 1, 2);
    Put(bytes, 24, 2);
    Put(bytes, 0, 4);
    Put(bytes, pixels, 4);
    for (int i = 0; i < 4; ++i) Put(bytes, 0, 4);
}

void PutRow(std::string& bytes, const PixelImage& image, std::int32_t y) {
    const std::size_t end = bytes.size() + RowSize(image);
    for (std::int32_t x = 0; x < image.Width(); ++x) Put(bytes, image.At(x, y), 3);
    bytes.resize(end, '\0');
}

} // namespace

std::string BitmapFileOf(const PixelImage& image) {
    std::string bytes;
    PutHeaders(bytes, image, RowSize(image) * static_cast<std::size_t>(image.Height()));
    for (std::int32_t y = image.Height() - 1; y >= 0; --y) PutRow(bytes, image, y);
    return bytes;
}

} // namespace vantik
