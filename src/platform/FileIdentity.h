// Whether a file is still what it was.
#pragma once

#include <cstdint>
#include <string>

namespace vantik {

struct FileIdentity {
    bool IsFile = false; // there is one, and it is no folder
    std::uint64_t Size = 0;
    std::uint64_t Written = 0, Created = 0; // in the file system's own time

    // Whether a later change is sure to show. It is not where the file was written so short a time ago that another write
    // may get the same time, and for a link, of which the system tells its own size and time.
    bool ShowsChanges = false;

    // Whether the file is what it was when it had the other identity.
    bool IsStill(const FileIdentity& other) const noexcept {
        return IsFile && other.IsFile && ShowsChanges && other.ShowsChanges && Size == other.Size &&
               Written == other.Written && Created == other.Created;
    }
};

// With one request to the system.
FileIdentity IdentityOf(const std::u16string& path) noexcept;

} // namespace vantik
