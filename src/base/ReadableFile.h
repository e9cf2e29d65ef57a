// A file that is read front to back with as few calls of the system as possible: opening an icon costs far more than
// decoding it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace vantik {

class ReadableFile {
public:
    enum class Obstacle { None, NotThere, NoAccess };

    // Without a file, and with what stood in the way, when it cannot be opened.
    static ReadableFile Open(const std::u16string& path, Obstacle& obstacle) noexcept;

    explicit operator bool() const noexcept { return handle_ != nullptr; }

    // How many bytes were read; fewer than asked for at the end only.
    std::size_t Read(std::span<std::uint8_t> target) noexcept;

    std::int64_t Size() const noexcept; // 0 for what is no file on a disk

    void Close() noexcept { handle_.reset(); }

private:
    struct Closer {
        void operator()(void* handle) const noexcept;
    };

    std::unique_ptr<void, Closer> handle_;
};

} // namespace vantik
