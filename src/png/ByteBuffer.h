// A byte array that is not filled at birth: image buffers are written once and need no zeros first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace vantik {

class ByteBuffer {
public:
    ByteBuffer() = default;
    explicit ByteBuffer(std::size_t size)
        : bytes_(std::make_unique_for_overwrite<std::uint8_t[]>(size)), size_(size) {}

    static ByteBuffer Zeroed(std::size_t size) {
        ByteBuffer buffer;
        buffer.bytes_ = std::make_unique<std::uint8_t[]>(size);
        buffer.size_ = size;
        return buffer;
    }

    std::uint8_t* data() noexcept { return bytes_.get(); }
    const std::uint8_t* data() const noexcept { return bytes_.get(); }
    std::size_t size() const noexcept { return size_; }
    std::size_t capacity() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }

    std::span<std::uint8_t> All() noexcept { return {data(), size_}; }
    std::span<const std::uint8_t> All() const noexcept { return {data(), size_}; }

private:
    std::unique_ptr<std::uint8_t[]> bytes_;
    std::size_t size_ = 0;
};

} // namespace vantik
