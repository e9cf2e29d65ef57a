// Where a PNG comes from: a file or a block of memory, read front to back.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "base/ReadableFile.h"
#include "png/ByteBuffer.h"

namespace vantik {

class ByteSource {
public:
    virtual ~ByteSource() = default;

    // Fills `target` as far as there are bytes left. The rest of it stays as it was: reading past the end delivers
    // nothing and is no error by itself.
    virtual void Read(std::span<std::uint8_t> target) = 0;

    // Whether a block of this length may start here. The two sources differ by one byte: in a file the read position
    // counts from 1, in memory there is one spare byte behind the data.
    virtual bool Fits(std::int32_t length) const = 0;

    virtual std::int64_t Size() const = 0;
};

class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    void Read(std::span<std::uint8_t> target) override;
    bool Fits(std::int32_t length) const override { return position_ + length <= Size(); }
    std::int64_t Size() const override { return static_cast<std::int64_t>(bytes_.size()); }

private:
    std::span<const std::uint8_t> bytes_;
    std::int64_t position_ = 0; // goes on counting behind the end
};

class FileSource final : public ByteSource {
public:
    // Raises FileNotFound, PathNotFound or PathFileAccess.
    explicit FileSource(const std::u16string& path);

    // Nothing when there is no such file; PathFileAccess when there is one that cannot be read.
    static std::optional<FileSource> OpenIfThere(const std::u16string& path);

    void Read(std::span<std::uint8_t> target) override;
    bool Fits(std::int32_t length) const override { return position_ + 1 + length <= size_; }
    std::int64_t Size() const override { return size_; }

private:
    explicit FileSource(ReadableFile file);

    void FillBuffer();
    std::size_t ReadBuffered(std::span<std::uint8_t> target);

    ReadableFile file_; // closed as soon as all of it is in the buffer
    std::int64_t size_ = 0;
    std::int64_t position_ = 0; // never behind the end
    ByteBuffer buffer_;
    std::size_t buffered_ = 0; // how much of the file the buffer holds
    std::size_t used_ = 0;     // how much of that was handed out
};

} // namespace vantik
