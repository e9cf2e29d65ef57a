// The walk over the chunks of a PNG, the same for pictures and for their sizes.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "png/ByteSource.h"
#include "png/PngFormat.h"

namespace vantik {

class ChunkReader {
public:
    explicit ChunkReader(ByteSource& source) : source_(source) {}
    // With the memory of an earlier one.
    ChunkReader(ByteSource& source, std::vector<std::uint8_t> memory)
        : source_(source), data_(std::move(memory)) {
        data_.clear();
    }

    bool ReadSignature();

    // The next chunk; false when its length reaches beyond the end. A length below 1 leaves the data as it was and
    // reads that many bytes again: the established reading of empty chunks. Neither CRC nor order is checked. Raises
    // OutOfMemory for a chunk that is too large beside what the reader's user holds.
    bool Next(std::int64_t otherMemory = 0);

    std::uint32_t Name() const noexcept { return name_; }
    ByteView Data() const noexcept { return data_; }
    const std::vector<std::uint8_t>& Buffer() const noexcept { return data_; }
    std::vector<std::uint8_t> TakeMemory() noexcept { return std::move(data_); }

private:
    void Resize(std::size_t length, std::int64_t otherMemory);
    std::int32_t ReadNumber();

    ByteSource& source_;
    std::uint32_t name_ = 0;
    std::vector<std::uint8_t> data_;
};

} // namespace vantik
