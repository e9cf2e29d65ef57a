#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "png/Unfilter.h"
#include "png/UnfilterPixels.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/DecodedPng.h"

namespace vantik {

namespace {

int PlainPredictor(int left, int up, int upperLeft) {
    const int estimate = left + up - upperLeft;
    const int distances[] = {std::abs(estimate - left), std::abs(estimate - up),
                             std::abs(estimate - upperLeft)};
    if (distances[0] <= distances[1] && distances[0] <= distances[2]) return left;
    return distances[1] <= distances[2] ? up : upperLeft;
}

// The definition of the filters, byte by byte.
Bytes PlainUnfilter(int filter, const Bytes& filtered, const Bytes& prior, std::size_t distance) {
    Bytes row(filtered.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int left = i < distance ? 0 : row[i - distance];
        const int upperLeft = i < distance ? 0 : prior[i - distance];
        const int predicted[] = {0, left, prior[i], (left + prior[i]) / 2,
                                 PlainPredictor(left, prior[i], upperLeft)};
        row[i] = static_cast<std::uint8_t>(filtered[i] + (filter < 5 ? predicted[filter] : 0));
    }
    return row;
}

std::mt19937 generator(1);

Bytes RandomRow(std::size_t size) {
    Bytes row(size);
    for (auto& byte : row) byte = static_cast<std::uint8_t>(generator());
    return row;
}

Bytes WithSlack(Bytes row) {
    row.resize(row.size() + RowSlack, 0xEE);
    return row;
}

void CheckRow(std::uint8_t filter, std::size_t distance, std::size_t size) {
    const Bytes filtered = RandomRow(size);
    const Bytes prior = RandomRow(size);
    Bytes row = WithSlack(Bytes(size, 0xCC));
    RowUnfilter(size, distance)(filter, WithSlack(filtered).data(), WithSlack(prior).data(), row.data());
    CHECK(std::equal(row.begin() + static_cast<std::ptrdiff_t>(size), row.end(),
                     Bytes(RowSlack, 0xEE).begin()));
    row.resize(size);
    CHECK(row == PlainUnfilter(filter, filtered, prior, distance));
}

} // namespace

TEST_CASE("every filter undoes what its definition says, for every distance and length") {
    for (const int filter : {0, 1, 2, 3, 4, 5, 7, 255}) {
        for (const int distance : {1, 2, 3, 4, 6, 8}) {
            for (int size = 1; size <= 70; ++size) {
                CAPTURE(filter);
                CAPTURE(distance);
                CAPTURE(size);
                CheckRow(static_cast<std::uint8_t>(filter), static_cast<std::size_t>(distance),
                         static_cast<std::size_t>(size));
            }
        }
    }
}

TEST_CASE("two Paeth rows at once give what one after the other gives") {
    for (const int distance : {1, 2, 3, 4}) {
        for (int pixels = 1; pixels <= 40; ++pixels) {
            const auto size = static_cast<std::size_t>(pixels * distance);
            const Bytes first = RandomRow(size);
            const Bytes second = RandomRow(size);
            const Bytes prior = RandomRow(size);
            Bytes rows[2] = {WithSlack(Bytes(size)), WithSlack(Bytes(size))};
            UnfilterPaethPair({WithSlack(first).data(), WithSlack(second).data()}, WithSlack(prior).data(),
                              {rows[0].data(), rows[1].data()}, size, static_cast<std::size_t>(distance));
            const Bytes expectedFirst = PlainUnfilter(4, first, prior, static_cast<std::size_t>(distance));
            CHECK(rows[0] == WithSlack(expectedFirst));
            CHECK(rows[1] ==
                  WithSlack(PlainUnfilter(4, second, expectedFirst, static_cast<std::size_t>(distance))));
        }
    }
}

TEST_CASE("the Paeth predictor prefers left, then up, then upper-left, over all small neighbours") {
    for (int left = 0; left < 12; ++left) {
        for (int up = 0; up < 12; ++up) {
            for (int upperLeft = 0; upperLeft < 12; ++upperLeft) {
                const auto byte = [](int value) { return static_cast<std::uint8_t>(value * 23); };
                Bytes row = WithSlack(Bytes(8));
                const Bytes filtered = {
                    static_cast<std::uint8_t>(byte(left) - byte(upperLeft)), 0, 0, 0, 0, 0, 0, 0};
                const Bytes prior = {byte(upperLeft), 0, 0, 0, byte(up), 0, 0, 0};
                RowUnfilter(8, 4)(4, WithSlack(filtered).data(), WithSlack(prior).data(), row.data());
                CHECK(row[0] == byte(left));
                CHECK(row[4] == PlainPredictor(byte(left), byte(up), byte(upperLeft)));
            }
        }
    }
}

TEST_CASE("red and blue change places in pixels of 3 and 4 bytes") {
    Bytes swapped(12 + RowSlack);
    const Bytes pixels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    Rearrange({.SwapsRedBlue = true}, WithSlack(pixels).data(), swapped.data(), 12, 3);
    swapped.resize(12);
    CHECK(swapped == Bytes{3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10});
    swapped.resize(12 + RowSlack);
    Rearrange({.SwapsRedBlue = true}, WithSlack(pixels).data(), swapped.data(), 12, 4);
    swapped.resize(12);
    CHECK(swapped == Bytes{3, 2, 1, 4, 7, 6, 5, 8, 11, 10, 9, 12});
}

TEST_CASE("low bytes are dropped, whatever else changes places") {
    for (const std::size_t channels : {1u, 2u, 3u, 4u}) {
        for (const std::size_t width : {1u, 2u, 3u, 5u, 16u, 33u}) {
            const std::size_t size = channels * width;
            const Bytes samples = RandomRow(2 * size);
            Bytes row = WithSlack(Bytes(size, 0xCC));
            const bool swaps = channels >= 3;
            Rearrange({.SwapsRedBlue = swaps, .KeepsHighBytes = true}, WithSlack(samples).data(), row.data(),
                      size, channels);
            for (std::size_t i = 0; i < size; ++i) {
                const std::size_t channel = i % channels;
                const std::size_t from = swaps && channel < 3 ? i - channel + 2 - channel : i;
                CHECK(row[i] == samples[2 * from]);
            }
        }
    }
}

TEST_CASE("a row with filter type 7 decodes as if its filter type were 0") {
    const HeaderFields fields = {.Width = 3, .Height = 2, .ColourType = 0};
    const Bytes plain = RgbaOf(PictureWith(fields, {0, 10, 20, 30, 0, 40, 50, 60}));
    CHECK(plain.size() == 24);
    CHECK(RgbaOf(PictureWith(fields, {7, 10, 20, 30, 255, 40, 50, 60})) == plain);
}

TEST_CASE("the first row of an image is unfiltered against a row of zeros") {
    for (const std::uint8_t filter : Bytes{2, 3, 4}) {
        const Bytes rgba = RgbaOf(PictureWith({.Width = 1, .ColourType = 0}, {filter, 77}));
        CHECK(rgba == Bytes{77, 77, 77, 255});
    }
}

TEST_CASE("scanlines that are missing raise a subscript error") {
    const HeaderFields fields = {.Width = 3, .Height = 2, .ColourType = 0};
    CHECK(NumberRaisedBy([&] { DecodePng(PictureWith(fields, {0, 10, 20, 30, 0, 40, 50})); }) == 9);
    CHECK(NumberRaisedBy([&] { DecodePng(PictureWith(fields, {})); }) == 9);
    HeaderFields unknownMethod = fields;
    unknownMethod.Compression = 1; // leaves the scanlines empty
    CHECK(NumberRaisedBy([&] {
              DecodePng(PictureWith(unknownMethod, {0, 10, 20, 30, 0, 40, 50, 60}));
          }) == 9);
}

} // namespace vantik
