#include "png/ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/stat.h>

#include "base/RunTimeError.h"
#include "png/FilePath.h"

namespace vantik {

namespace {

constexpr std::size_t MaxBuffer = 64 * 1024; // an icon comes in with one read

std::int64_t SizeOf(std::FILE* file) noexcept {
#ifdef _WIN32
    struct _stat64 status = {};
    return _fstat64(_fileno(file), &status) == 0 ? status.st_size : 0;
#else
    struct stat status = {};
    return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : 0;
#endif
}

bool SaysNotThere(int error) noexcept {
    return error == ENOENT || error == ENOTDIR || error == EINVAL || error == ENAMETOOLONG;
}

// ENOENT stands for a missing file and a missing folder alike; the folder of the path tells them apart.
RunTimeErrorNumber OpenErrorOf(int error, const std::u16string& path) noexcept {
    if (!SaysNotThere(error)) return RunTimeErrorNumber::PathFileAccess;
    return FolderOfPathExists(path) ? RunTimeErrorNumber::FileNotFound : RunTimeErrorNumber::PathNotFound;
}

} // namespace

void MemorySource::Read(std::span<std::uint8_t> target) {
    const std::int64_t left = std::max<std::int64_t>(Size() - position_, 0);
    const std::size_t count = std::min(target.size(), static_cast<std::size_t>(left));
    if (count) std::memcpy(target.data(), bytes_.data() + position_, count);
    position_ += static_cast<std::int64_t>(target.size());
}

FileSource::Handle FileSource::Open(const std::u16string& path) noexcept { return Handle(OpenToRead(path)); }

FileSource::FileSource(Handle file) : file_(std::move(file)), size_(SizeOf(file_.get())) {
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
    buffer_.reserve(static_cast<std::size_t>(std::min<std::int64_t>(size_, MaxBuffer)));
}

FileSource::FileSource(const std::u16string& path) {
    Handle file = Open(path);
    if (!file) Raise(OpenErrorOf(errno, path));
    *this = FileSource(std::move(file));
}

std::optional<FileSource> FileSource::OpenIfThere(const std::u16string& path) {
    Handle file = Open(path);
    if (file) return FileSource(std::move(file));
    if (SaysNotThere(errno) || IsFolder(path)) return std::nullopt;
    Raise(RunTimeErrorNumber::PathFileAccess);
}

// One step of a read: what the buffer still holds, else a big piece at once, else a fresh buffer.
std::size_t FileSource::ReadBuffered(std::span<std::uint8_t> target) {
    if (used_ == buffer_.size()) {
        if (target.size() >= MaxBuffer) return std::fread(target.data(), 1, target.size(), file_.get());
        buffer_.resize(buffer_.capacity());
        buffer_.resize(std::fread(buffer_.data(), 1, buffer_.size(), file_.get()));
        used_ = 0;
    }
    const std::size_t count = std::min(target.size(), buffer_.size() - used_);
    if (count) std::memcpy(target.data(), buffer_.data() + used_, count);
    used_ += count;
    return count;
}

void FileSource::Read(std::span<std::uint8_t> target) {
    while (!target.empty()) {
        const std::size_t count = ReadBuffered(target);
        if (count == 0) return;
        position_ += static_cast<std::int64_t>(count);
        target = target.subspan(count);
    }
}

} // namespace vantik
