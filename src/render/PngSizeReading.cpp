#include "render/PngSizeReading.h"

#include "base/Checked.h"
#include "png/ByteSource.h"
#include "png/ChunkReader.h"
#include "png/OutOfMemory.h"

namespace vantik {

namespace {

constexpr std::int32_t SizeWithoutImage = 10;

std::int16_t UsableExtent(std::int32_t extent) {
    return Narrow<std::int16_t>(extent < 1 ? SizeWithoutImage : extent);
}

void ReadPngSize(ByteSource& source, PngSize& size) {
    ChunkReader chunks(source);
    if (!chunks.ReadSignature()) return;
    while (chunks.Next() && chunks.Name() != ChunkName("IEND")) {
        if (chunks.Name() == ChunkName("IHDR")) ParsePngSize(chunks.Data(), size);
    }
}

} // namespace

void ParsePngSize(ByteView data, PngSize& size) {
    const ImageHeader header = ParseHeader(data);
    size.LastPngWidth = UsableExtent(header.Width);
    size.LastPngHeight = UsableExtent(header.Height);
}

void ReadPngFileSize(const std::u16string& path, PngSize& size) {
    WithOutOfMemory([&] {
        if (auto file = FileSource::OpenIfThere(path)) ReadPngSize(*file, size);
    });
}

void ReadPngMemorySize(ByteView data, PngSize& size) {
    MemorySource memory(data);
    ReadPngSize(memory, size);
}

} // namespace vantik
