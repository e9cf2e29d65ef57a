#include "render/SharedPngSize.h"

#include "platform/FileStore.h"
#include "png/OutOfMemory.h"
#include "render/PngSizeReading.h"

namespace vantik {

namespace {

// What a file says of its size; 0 what it does not say.
struct SaidSize : PngSize {
    std::size_t Memory() const noexcept { return sizeof *this; }
};

void Take(const PngSize& said, PngSize& size) noexcept {
    if (said.LastPngWidth > 0) size.LastPngWidth = said.LastPngWidth;
    if (said.LastPngHeight > 0) size.LastPngHeight = said.LastPngHeight;
}

// What was read before an error counts for the caller, and for nobody else.
std::shared_ptr<const SaidSize> ReadSize(const std::u16string& path, PngSize& size) {
    SaidSize said;
    try {
        ReadPngFileSize(path, said);
    } catch (...) {
        Take(said, size);
        throw;
    }
    return WithOutOfMemory([&] { return std::make_shared<const SaidSize>(said); });
}

} // namespace

void ReadSharedPngFileSize(const std::u16string& path, const FileIdentity& identity, PngSize& size) {
    const auto said =
        Shared<SaidSize>(path, identity, FileContent::IconSize, [&] { return ReadSize(path, size); });
    Take(*said, size);
}

} // namespace vantik
