#include "base/ReadableFile.h"

#include <cerrno>
#include <cstdio>
#include <new>

#include <sys/stat.h>

#include "base/FilePath.h"

namespace vantik {

namespace {

ReadableFile::Obstacle ObstacleOf(int error) noexcept {
    const bool isNotThere = error == ENOENT || error == ENOTDIR || error == EINVAL || error == ENAMETOOLONG;
    return isNotThere ? ReadableFile::Obstacle::NotThere : ReadableFile::Obstacle::NoAccess;
}

std::FILE* AsFile(void* handle) noexcept { return static_cast<std::FILE*>(handle); }

} // namespace

void ReadableFile::Closer::operator()(void* handle) const noexcept { std::fclose(AsFile(handle)); }

ReadableFile ReadableFile::Open(const std::u16string& path, Obstacle& obstacle) noexcept try {
    ReadableFile file;
    file.handle_.reset(std::fopen(ToUtf8(path).c_str(), "rb"));
    obstacle = file ? Obstacle::None : ObstacleOf(errno);
    if (file) std::setvbuf(AsFile(file.handle_.get()), nullptr, _IONBF, 0);
    return file;
} catch (const std::bad_alloc&) {
    obstacle = Obstacle::NoAccess;
    return {};
}

std::size_t ReadableFile::Read(std::span<std::uint8_t> target) noexcept {
    return std::fread(target.data(), 1, target.size(), AsFile(handle_.get()));
}

std::int64_t ReadableFile::Size() const noexcept {
    struct stat status = {};
    return fstat(fileno(AsFile(handle_.get())), &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : 0;
}

} // namespace vantik
