// What was made of files, kept for all controls of the process while one of them lives: whoever needs a file that is
// still what it was need not read it again.
//
// Nothing in the store ever changes, so that no control can change what another one sees. What is needed least goes when
// there is too much of it, and where there is no memory nothing is kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/Doubt.h"
#include "platform/FileIdentity.h"

namespace vantik {

enum class FileContent : std::uint8_t { Definition, Bitmap, IconSize, Icon, Beginning };
inline constexpr std::size_t FileContentCount = 5;

inline constexpr std::size_t MostKeptBytes = 16 << 20; // of all files together

// The last one takes all that is kept along. Controls have one each.
class FileStoreUser {
public:
    FileStoreUser() noexcept;
    ~FileStoreUser();
    FileStoreUser(const FileStoreUser&) = delete;
    FileStoreUser& operator=(const FileStoreUser&) = delete;
};

using SharedContent = std::shared_ptr<const void>;

// Null when nothing is kept of this file as it is now.
SharedContent FindContent(const std::u16string& path, const FileIdentity& identity,
                          FileContent kind) noexcept;

// The identity is that of before the file was read, so that a change while it was read shows. `bytes` is what the content
// takes in memory.
void KeepContent(const std::u16string& path, const FileIdentity& identity, FileContent kind,
                 SharedContent content, std::size_t bytes) noexcept;

// For tests: what all that is kept takes.
std::size_t KeptBytes() noexcept;

// What is kept of a file that has this identity now; else what `make` makes of it, which is kept unless the system refused
// something meanwhile. Null, which is not kept, when that is null; raises what it raises.
template <class Content, class Make>
std::shared_ptr<const Content> Shared(const std::u16string& path, const FileIdentity& identity,
                                      FileContent kind, Make make) {
    if (const SharedContent kept = FindContent(path, identity, kind))
        return std::static_pointer_cast<const Content>(kept);
    const unsigned doubts = DoubtsSoFar();
    std::shared_ptr<const Content> made = make();
    if (made && doubts == DoubtsSoFar()) KeepContent(path, identity, kind, made, made->Memory());
    return made;
}

} // namespace vantik
