#include "tests/png/differential/LibPng.h"

#include <png.h>

#include <cstring>
#include <span>
#include <stdexcept>

namespace vantik {

namespace {

// libpng is used through exceptions here: its own way back, longjmp, would jump over destructors.
[[noreturn]] void ThrowMessage(png_structp, png_const_charp message) { throw std::runtime_error(message); }
void IgnoreMessage(png_structp, png_const_charp) {}

struct Writer {
    png_structp Png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, ThrowMessage, IgnoreMessage);
    png_infop Info = png_create_info_struct(Png);
    ~Writer() { png_destroy_write_struct(&Png, &Info); }
};

struct Reader {
    png_structp Png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, ThrowMessage, IgnoreMessage);
    png_infop Info = png_create_info_struct(Png);
    ~Reader() { png_destroy_read_struct(&Png, &Info, nullptr); }
};

void AppendTo(png_structp png, png_bytep data, std::size_t size) {
    auto* const target = static_cast<Bytes*>(png_get_io_ptr(png));
    target->insert(target->end(), data, data + size);
}

void TakeFrom(png_structp png, png_bytep data, std::size_t size) {
    auto* const source = static_cast<std::span<const std::uint8_t>*>(png_get_io_ptr(png));
    if (size > source->size()) throw std::runtime_error("cut short");
    std::memcpy(data, source->data(), size);
    *source = source->subspan(size);
}

std::vector<png_bytep> RowPointers(Bytes& rows, std::size_t rowSize, std::size_t height) {
    std::vector<png_bytep> pointers;
    for (std::size_t y = 0; y < height; ++y) pointers.push_back(rows.data() + y * rowSize);
    return pointers;
}

void SetPalette(const Writer& writer, const SourcePicture& picture) {
    std::vector<png_color> entries;
    for (std::size_t i = 0; i + 2 < picture.Palette.size(); i += 3) {
        entries.push_back({picture.Palette[i], picture.Palette[i + 1], picture.Palette[i + 2]});
    }
    png_set_PLTE(writer.Png, writer.Info, entries.data(), static_cast<int>(entries.size()));
}

void SetTransparency(const Writer& writer, const SourcePicture& picture) {
    if (!picture.Alphas.empty()) {
        png_set_tRNS(writer.Png, writer.Info, picture.Alphas.data(), static_cast<int>(picture.Alphas.size()),
                     nullptr);
    }
    if (picture.Key.empty()) return;
    png_color_16 key = {};
    key.gray = key.red = picture.Key.front();
    if (picture.Key.size() == 3) {
        key.green = picture.Key[1];
        key.blue = picture.Key[2];
    }
    png_set_tRNS(writer.Png, writer.Info, nullptr, 0, &key);
}

} // namespace

std::size_t PackedRowSize(const SourcePicture& picture) {
    constexpr std::size_t channels[] = {1, 0, 3, 1, 2, 0, 4};
    const std::size_t bits = channels[picture.ColourType] * static_cast<std::size_t>(picture.BitDepth);
    return (picture.Width * bits + 7) / 8;
}

Bytes WriteWithLibPng(const SourcePicture& picture) {
    Bytes file;
    Writer writer;
    png_set_write_fn(writer.Png, &file, AppendTo, [](png_structp) {});
    png_set_IHDR(writer.Png, writer.Info, picture.Width, picture.Height, picture.BitDepth, picture.ColourType,
                 picture.IsInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (!picture.Palette.empty()) SetPalette(writer, picture);
    SetTransparency(writer, picture);
    png_set_filter(writer.Png, 0, picture.Filters);
    png_set_compression_level(writer.Png, picture.Level);
    png_write_info(writer.Png, writer.Info);
    Bytes rows = picture.Samples;
    png_write_image(writer.Png, RowPointers(rows, PackedRowSize(picture), picture.Height).data());
    png_write_end(writer.Png, writer.Info);
    return file;
}

Bytes ReadRgbaWithLibPng(const Bytes& png) {
    std::span<const std::uint8_t> source(png);
    Reader reader;
    png_set_read_fn(reader.Png, &source, TakeFrom);
    png_read_info(reader.Png, reader.Info);
    png_set_expand(reader.Png);
    png_set_strip_16(reader.Png);
    png_set_gray_to_rgb(reader.Png);
    png_set_add_alpha(reader.Png, 255, PNG_FILLER_AFTER);
    png_set_interlace_handling(reader.Png);
    png_read_update_info(reader.Png, reader.Info);
    const std::size_t height = png_get_image_height(reader.Png, reader.Info);
    const std::size_t rowSize = png_get_rowbytes(reader.Png, reader.Info);
    Bytes rows(rowSize * height);
    png_read_image(reader.Png, RowPointers(rows, rowSize, height).data());
    return rows;
}

} // namespace vantik
