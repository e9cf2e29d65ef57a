// The inflater against zlib's deflater and inflater.
#include <doctest/doctest.h>
#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "png/Inflate.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/PngBytes.h"

namespace vantik {

namespace {

struct DeflateSettings {
    int Level;
    int Strategy;
    int WindowBits = 15;
    int MemoryLevel = 8;
    std::size_t FlushEvery = 0; // 0: never
};

// Raw deflate, no wrapping, with a trailer where the checksum would be.
Bytes Deflate(const Bytes& data, const DeflateSettings& settings) {
    z_stream stream = {};
    REQUIRE(deflateInit2(&stream, settings.Level, Z_DEFLATED, -settings.WindowBits, settings.MemoryLevel,
                         settings.Strategy) == Z_OK);
    Bytes output(deflateBound(&stream, data.size()) + 100 +
                 (settings.FlushEvery ? data.size() / settings.FlushEvery * 20 : 0));
    stream.next_out = output.data();
    stream.avail_out = static_cast<uInt>(output.size());
    const std::size_t step = settings.FlushEvery ? settings.FlushEvery : data.size() + 1;
    for (std::size_t start = 0; start <= data.size(); start += step) {
        const std::size_t count = std::min(step, data.size() - start);
        stream.next_in = const_cast<Bytef*>(data.data() + start);
        stream.avail_in = static_cast<uInt>(count);
        const bool isLast = start + step > data.size();
        const int status = deflate(&stream, isLast ? Z_FINISH : Z_FULL_FLUSH);
        REQUIRE(status == (isLast ? Z_STREAM_END : Z_OK));
    }
    output.resize(stream.total_out);
    deflateEnd(&stream);
    Append(output, {1, 2, 3, 4});
    return output;
}

std::mt19937& Random() {
    static std::mt19937 generator(20240607);
    return generator;
}

Bytes Noise(std::size_t size) {
    Bytes bytes(size);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(Random()());
    return bytes;
}

// Small differences around zero, as filtered rows of photos have them.
Bytes Residuals(std::size_t size, double spread) {
    std::normal_distribution<double> distribution(0, spread);
    Bytes bytes(size);
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(static_cast<int>(std::lround(distribution(Random()))));
    return bytes;
}

// Runs and repeated pieces at all distances.
Bytes Patterned(std::size_t size) {
    Bytes bytes;
    while (bytes.size() < size) {
        const std::size_t length = 1 + Random()() % 600;
        if (bytes.empty() || Random()() % 4 == 0) {
            Append(bytes, Noise(length % 20));
        } else {
            const std::size_t longest = std::min<std::size_t>(bytes.size(), 40000);
            const std::size_t distance = Random()() % 3 == 0 ? 1 : 1 + Random()() % longest;
            for (std::size_t i = 0; i < length; ++i) bytes.push_back(bytes[bytes.size() - distance]);
        }
    }
    bytes.resize(size);
    return bytes;
}

Bytes Runs(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i / 100000);
    return bytes;
}

bool InflatesTo(const Bytes& stream, const Bytes& data) {
    Bytes output = stream;
    std::int32_t size = static_cast<std::int32_t>(data.size());
    std::int32_t result = 1;
    Inflater().Inflate(output, size, false, result);
    return result == 0 && output == data;
}

// In steps, as rows are decoded, and as machines without free shifts do it.
bool InflatesInStepsTo(const Bytes& stream, const Bytes& data, std::size_t step) {
    Inflater inflater(false);
    std::int32_t size = static_cast<std::int32_t>(data.size());
    inflater.Begin(stream, size);
    for (std::size_t wanted = 0; !inflater.HasEnded(); wanted += step) {
        inflater.ContinueTo(wanted);
        const ByteView soFar = inflater.Output();
        if (!inflater.HasEnded() && soFar.size() < wanted) return false;
        if (soFar.size() > data.size() || !std::equal(soFar.begin(), soFar.end(), data.begin())) return false;
    }
    return inflater.Result() == 0 && inflater.Output().size() == data.size();
}

std::vector<DeflateSettings> AllSettings() {
    std::vector<DeflateSettings> all;
    for (int level = 0; level <= 9; ++level) {
        for (const int strategy : {Z_DEFAULT_STRATEGY, Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED}) {
            all.push_back({level, strategy});
        }
    }
    for (int windowBits = 9; windowBits < 15; ++windowBits)
        all.push_back({6, Z_DEFAULT_STRATEGY, windowBits});
    for (int memoryLevel = 1; memoryLevel <= 9; memoryLevel += 2) {
        all.push_back({9, Z_DEFAULT_STRATEGY, 15, memoryLevel});
        all.push_back({6, Z_HUFFMAN_ONLY, 15, memoryLevel, 5000});
    }
    return all;
}

} // namespace

TEST_CASE("whatever zlib deflates comes back, over levels, strategies, windows and sizes") {
    for (const DeflateSettings& settings : AllSettings()) {
        CAPTURE(settings.Level);
        CAPTURE(settings.Strategy);
        for (const std::size_t size : {0u, 1u, 2u, 3u, 10u, 100u, 1000u, 65535u, 65536u, 200000u}) {
            CAPTURE(size);
            const Bytes sets[] = {Noise(size), Residuals(size, 3), Residuals(size, 40), Patterned(size),
                                  Runs(size)};
            for (const Bytes& data : sets) {
                const Bytes stream = Deflate(data, settings);
                CHECK(InflatesTo(stream, data));
                if (size >= 1000) CHECK(InflatesInStepsTo(stream, data, 777));
            }
        }
    }
}

TEST_CASE("8 MB come back") {
    constexpr std::size_t size = 8 << 20;
    for (const Bytes& data : {Residuals(size, 8), Patterned(size), Runs(size)}) {
        for (const int level : {0, 1, 6}) {
            const Bytes stream = Deflate(data, {level, Z_DEFAULT_STRATEGY});
            CHECK(InflatesTo(stream, data));
            CHECK(InflatesInStepsTo(stream, data, 65536));
        }
    }
}

TEST_CASE("references as far as the 32 KB window reaches come back") {
    for (const std::size_t distance : {32767u, 32768u, 24577u, 32506u}) {
        Bytes data = Noise(distance);
        for (int i = 0; i < 5000; ++i) data.push_back(data[data.size() - distance]);
        CHECK(InflatesTo(Deflate(data, {9, Z_DEFAULT_STRATEGY}), data));
    }
}

TEST_CASE("where zlib finds a damaged stream sound, so do we, and never the other way with a checkable end") {
    int agreed = 0;
    for (int round = 0; round < 3000; ++round) {
        const Bytes data = round % 2 ? Patterned(2000) : Residuals(2000, 5);
        Bytes stream = Deflate(data, {1 + round % 9, round % 5});
        const std::size_t damaged = Random()() % (stream.size() - 4);
        stream[damaged] = static_cast<std::uint8_t>(stream[damaged] ^ 1u << (Random()() % 8));

        Bytes expected(2100);
        z_stream peer = {};
        inflateInit2(&peer, -15);
        peer.next_in = stream.data();
        peer.avail_in = static_cast<uInt>(stream.size());
        peer.next_out = expected.data();
        peer.avail_out = static_cast<uInt>(expected.size());
        const bool peerIsContent = inflate(&peer, Z_FINISH) == Z_STREAM_END;
        expected.resize(peer.total_out);
        inflateEnd(&peer);
        if (!peerIsContent) {
            NumberRaisedBy(
                [&] { InflatesTo(stream, expected); }); // nothing but a run-time error may come out
            continue;
        }
        ++agreed;
        Bytes output = stream;
        std::int32_t size = 2000;
        std::int32_t result = 1;
        Inflater().Inflate(output, size, false, result);
        CHECK(result == 0);
        CHECK(output == expected);
    }
    CHECK(agreed > 300);
}

} // namespace vantik
