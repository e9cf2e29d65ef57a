// Chunks beyond any picture, from sources that cost no memory themselves.
#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>

#include "png/PngReader.h"
#include "render/PngSizeReading.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/PngBytes.h"
#include "tests/png/TemporaryFile.h"
#include "tests/png/limits/Allocations.h"
#include "tests/png/limits/HostilePictures.h"

namespace vantik {

namespace {

// The signature, then the same chunk again and again: what its data begins with, then one letter.
class RepeatedChunk final : public ByteSource {
public:
    RepeatedChunk(const char* name, std::uint32_t length, const Bytes& beginning = {})
        : length_(length), start_(BigEndian32(length)) {
        Append(start_, BytesOf(name));
        Append(start_, beginning);
    }

    void Read(std::span<std::uint8_t> target) override {
        for (std::size_t done = 0; done < target.size();) done += ReadPiece(target.subspan(done));
    }
    bool Fits(std::int32_t) const override { return position_ < Size(); }
    std::int64_t Size() const override {
        return std::int64_t{4} << 30;
    } // so that a fault in a limit ends, too

private:
    std::size_t ReadPiece(std::span<std::uint8_t> target) {
        if (position_ < 8) return Copy(target, PngSignature[static_cast<std::size_t>(position_)]);
        const auto inChunk = static_cast<std::uint64_t>(position_ - 8) % (12 + length_);
        if (inChunk < start_.size()) return Copy(target, start_[static_cast<std::size_t>(inChunk)]);
        const auto left = static_cast<std::size_t>(12 + length_ - inChunk);
        const std::size_t count = std::min(target.size(), left);
        std::fill_n(target.begin(), count, std::uint8_t{'x'});
        position_ += static_cast<std::int64_t>(count);
        return count;
    }
    std::size_t Copy(std::span<std::uint8_t> target, std::uint8_t byte) {
        target[0] = byte;
        ++position_;
        return 1;
    }

    const std::uint64_t length_;
    Bytes start_;
    std::int64_t position_ = 0;
};

constexpr std::uint64_t Limit = (std::uint64_t{1} << 30) + (1 << 20);

void CheckRefused(const char* name, std::uint32_t length, const Bytes& beginning = {}) {
    CAPTURE(name);
    CAPTURE(length);
    RepeatedChunk source(name, length, beginning);
    allocations::TakePeak();
    {
        PngReader reader;
        CHECK(NumberRaisedBy([&] { reader.Read(source); }) == 7);
    }
    CHECK(allocations::TakePeak() < Limit);
}

} // namespace

TEST_CASE("chunks without end are refused before they take more than 1 GiB in all") {
    for (const char* name : {"IDAT", "tEXt", "zTXt"})
        for (const std::uint32_t length : {1'000'000u, 30'000'000u, 400'000'000u, 0x7FFFFFFFu})
            CheckRefused(name, length);
    for (const char* name : {"PLTE", "tRNS", "abcd"}) CheckRefused(name, 0x7FFFFFFF);
    CheckRefused("PLTE", 600'000'000);
}

TEST_CASE("compressed texts without end are refused before they take more than 1 GiB in all") {
    // The letters are stored blocks, which make up the text.
    for (const std::uint32_t length : {1'000'000u, 30'000'000u, 80'000'000u, 90'000'000u})
        CheckRefused("zTXt", length, {'k', 0, 0, 0x78, 0x9C});
}

TEST_CASE("reading a size refuses a chunk beyond 1 GiB") {
    const TemporaryFile file("chunk_limits.png", PngBytes().FalseChunk("abcd", 0x50000000));
    std::filesystem::resize_file(file.Path(), 0x50000100);
    allocations::TakePeak();
    PngSize size;
    CHECK(NumberRaisedBy([&] { ReadPngFileSize(file.Path(), size); }) == 7);
    CHECK(allocations::TakePeak() < Limit);
}

} // namespace vantik
