// fuzz_seeds PNG-FOLDER INFLATE-FOLDER: writes the inputs that fuzzing starts from.
#include <png.h>
#include <zlib.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "tests/png/differential/LibPng.h"

namespace vantik {

namespace {

void Write(const std::string& folder, int& number, const Bytes& bytes) {
    std::ofstream file(folder + "/seed" + std::to_string(number++), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

SourcePicture MakePicture(int colourType, int bitDepth, bool isInterlaced) {
    SourcePicture picture;
    picture.Width = 9;
    picture.Height = 7;
    picture.ColourType = colourType;
    picture.BitDepth = bitDepth;
    picture.IsInterlaced = isInterlaced;
    picture.Filters = PNG_ALL_FILTERS;
    if (colourType == 3) picture.Palette.resize(std::size_t{3} << bitDepth, 77);
    if (colourType == 3) picture.Alphas = {0, 128};
    if (colourType == 0) picture.Key = {1};
    if (colourType == 2) picture.Key = {1, 2, 3};
    picture.Samples.resize(PackedRowSize(picture) * picture.Height);
    for (std::size_t i = 0; i < picture.Samples.size(); ++i)
        picture.Samples[i] = static_cast<std::uint8_t>(i * i / 3);
    return picture;
}

void WritePictures(const std::string& folder) {
    constexpr int Kinds[][2] = {{0, 1}, {0, 2}, {0, 4}, {0, 8}, {0, 16}, {2, 8}, {2, 16}, {3, 1},
                                {3, 2}, {3, 4}, {3, 8}, {4, 8}, {4, 16}, {6, 8}, {6, 16}};
    int number = 0;
    for (const auto& [colourType, bitDepth] : Kinds) {
        for (const bool isInterlaced : {false, true}) {
            Write(folder, number, WriteWithLibPng(MakePicture(colourType, bitDepth, isInterlaced)));
        }
    }
    PngBytes chunks;
    chunks.Header({.Width = 2, .ColourType = 0})
        .Chunk("tEXt", BytesOf("Title"))
        .Chunk("tIME", {7, 217, 3, 7, 14, 5, 9});
    chunks.Chunk("gAMA", BigEndian32(45455)).Chunk("bKGD", {0, 9}).Chunk("tRNS", {0, 1});
    chunks.Chunk("zTXt", {'k', 0, 0, 0x78, 0x9C, 0x4B, 0x4C, 0x4A, 6, 1}).FalseChunk("tEXt", 0, Bytes(14));
    Write(folder, number, chunks.StoredImage({0, 1, 2}).End());
}

void WriteStreams(const std::string& folder) {
    int number = 0;
    for (const int level : {0, 1, 6, 9}) {
        for (const int strategy : {Z_DEFAULT_STRATEGY, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED}) {
            Bytes data(600);
            for (std::size_t i = 0; i < data.size(); ++i)
                data[i] = static_cast<std::uint8_t>(i % 50 * (i / 200));
            z_stream stream = {};
            deflateInit2(&stream, level, Z_DEFLATED, -15, 8, strategy);
            Bytes output(2000);
            stream.next_in = data.data();
            stream.avail_in = static_cast<uInt>(data.size());
            stream.next_out = output.data();
            stream.avail_out = static_cast<uInt>(output.size());
            deflate(&stream, Z_FINISH);
            output.resize(stream.total_out);
            deflateEnd(&stream);
            Bytes seed = {600 & 0xFF, 600 >> 8, static_cast<std::uint8_t>(number * 16)};
            Append(seed, output);
            Write(folder, number, seed);
        }
    }
}

} // namespace

} // namespace vantik

int main(int count, char** arguments) {
    if (count != 3) return 2;
    vantik::WritePictures(arguments[1]);
    vantik::WriteStreams(arguments[2]);
}
