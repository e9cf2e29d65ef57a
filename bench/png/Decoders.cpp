#include "bench/png/Decoders.h"

#include <lodepng.h>
#include <png.h>
#include <spng.h>

#include <cstdlib>
#include <cstring>
#include <memory>

#include "png/PngReader.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wunused-function"
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace vantik::bench {

namespace {

// One reader for all pictures: it keeps the memory that an icon needs.
std::size_t DecodeWithOurs(const Bytes& file) {
    static PngReader reader;
    reader.Reset();
    MemorySource source(file);
    if (!reader.Read(source)) return 0;
    return reader.Decode({}).Pixels.size();
}

struct LibPngSource {
    const std::uint8_t* Next;
    std::size_t Left;
};

void ReadLibPng(png_structp png, png_bytep data, std::size_t size) {
    auto* const source = static_cast<LibPngSource*>(png_get_io_ptr(png));
    if (size > source->Left) png_error(png, "cut short");
    std::memcpy(data, source->Next, size);
    source->Next += size;
    source->Left -= size;
}

std::size_t DecodeWithLibPng(const Bytes& file) {
    LibPngSource source = {file.data(), file.size()};
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    std::size_t decoded = 0;
    if (setjmp(png_jmpbuf(png)) == 0) {
        png_set_read_fn(png, &source, ReadLibPng);
        png_read_info(png, info);
        png_set_strip_16(png);
        png_set_bgr(png);
        png_set_interlace_handling(png);
        png_read_update_info(png, info);
        const std::size_t rowSize = png_get_rowbytes(png, info);
        const std::size_t height = png_get_image_height(png, info);
        const auto pixels = std::make_unique_for_overwrite<std::uint8_t[]>(rowSize * height);
        const auto rows = std::make_unique_for_overwrite<png_bytep[]>(height);
        for (std::size_t y = 0; y < height; ++y) rows[y] = pixels.get() + y * rowSize;
        png_read_image(png, rows.get());
        decoded = rowSize * height;
    }
    png_destroy_read_struct(&png, &info, nullptr);
    return decoded;
}

std::size_t DecodeWithLibSpng(const Bytes& file) {
    const std::unique_ptr<spng_ctx, decltype(&spng_ctx_free)> context(spng_ctx_new(0), spng_ctx_free);
    std::size_t size = 0;
    if (spng_set_png_buffer(context.get(), file.data(), file.size()) != 0) return 0;
    if (spng_decoded_image_size(context.get(), SPNG_FMT_PNG, &size) != 0) return 0;
    const auto pixels = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    return spng_decode_image(context.get(), pixels.get(), size, SPNG_FMT_PNG, 0) == 0 ? size : 0;
}

std::size_t DecodeWithLodePng(const Bytes& file) {
    lodepng::State state;
    state.decoder.color_convert = 0;
    unsigned char* pixels = nullptr;
    unsigned width = 0;
    unsigned height = 0;
    const unsigned error = lodepng_decode(&pixels, &width, &height, &state, file.data(), file.size());
    std::free(pixels);
    return error == 0 ? std::size_t{width} * height : 0;
}

std::size_t DecodeWithStb(const Bytes& file) {
    int width = 0;
    int height = 0;
    int channels = 0;
    stbi_uc* const pixels =
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height, &channels, 0);
    stbi_image_free(pixels);
    return pixels ? static_cast<std::size_t>(width) * static_cast<std::size_t>(height) : 0;
}

} // namespace

const std::vector<Decoder>& AllDecoders() {
    static const std::vector<Decoder> decoders = {{"VantikFrameTab", DecodeWithOurs},
                                                  {"libpng 1.6 + zlib", DecodeWithLibPng},
                                                  {"libspng", DecodeWithLibSpng},
                                                  {"lodepng", DecodeWithLodePng},
                                                  {"stb_image", DecodeWithStb}};
    return decoders;
}

} // namespace vantik::bench
