// Whether a file is still what it was.
#pragma once

#include <cstdint>
#include <string>

namespace vantik {

struct FileStamp {
    std::uint64_t Written = 0; // the time of the last write; 0 when there is no file
    std::uint64_t Size = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

FileStamp StampOf(const std::u16string& path) noexcept;

} // namespace vantik
