#include "png/ByteSource.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/ErrorText.h"
#include "base/FilePath.h"

namespace vantik {

namespace {

constexpr std::size_t FirstPiece = 16 * 1024; // an icon comes in with one read
constexpr std::size_t BufferSize = 64 * 1024;

// The folder of the path tells a missing file from a missing folder.
RunTimeErrorNumber OpenErrorOf(ReadableFile::Obstacle obstacle, const std::u16string& path) noexcept {
    if (obstacle == ReadableFile::Obstacle::NoAccess) return RunTimeErrorNumber::PathFileAccess;
    return FolderOfPathExists(path) ? RunTimeErrorNumber::FileNotFound : RunTimeErrorNumber::PathNotFound;
}

[[noreturn]] void RaiseOpenError(RunTimeErrorNumber number, const std::u16string& path) {
    Raise(number, PathText{path}, u": ", DescriptionOf(number));
}

} // namespace

void MemorySource::Read(std::span<std::uint8_t> target) {
    const std::int64_t left = std::max<std::int64_t>(Size() - position_, 0);
    const std::size_t count = std::min(target.size(), static_cast<std::size_t>(left));
    if (count) std::memcpy(target.data(), bytes_.data() + position_, count);
    position_ += static_cast<std::int64_t>(target.size());
}

FileSource::FileSource(ReadableFile file) : file_(std::move(file)), buffer_(FirstPiece) {
    FillBuffer();
    if (buffered_ == FirstPiece) {
        size_ = file_.Size();
    } else { // that was all of it
        size_ = static_cast<std::int64_t>(buffered_);
        file_.Close();
    }
}

FileSource::FileSource(const std::u16string& path) {
    auto obstacle = ReadableFile::Obstacle::None;
    ReadableFile file = ReadableFile::Open(path, obstacle);
    if (!file) RaiseOpenError(OpenErrorOf(obstacle, path), path);
    *this = FileSource(std::move(file));
}

std::optional<FileSource> FileSource::OpenIfThere(const std::u16string& path) {
    auto obstacle = ReadableFile::Obstacle::None;
    ReadableFile file = ReadableFile::Open(path, obstacle);
    if (file) return FileSource(std::move(file));
    if (obstacle == ReadableFile::Obstacle::NotThere || IsFolder(path)) return std::nullopt;
    RaiseOpenError(RunTimeErrorNumber::PathFileAccess, path);
}

void FileSource::FillBuffer() {
    used_ = 0;
    buffered_ = file_ ? file_.Read(buffer_.All()) : 0;
}

// One step of a read: what the buffer still holds, else a big piece at once, else a fresh buffer.
std::size_t FileSource::ReadBuffered(std::span<std::uint8_t> target) {
    if (used_ == buffered_) {
        if (target.size() >= BufferSize && file_) return file_.Read(target);
        if (file_ && buffer_.size() < BufferSize) buffer_ = ByteBuffer(BufferSize);
        FillBuffer();
    }
    const std::size_t count = std::min(target.size(), buffered_ - used_);
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
