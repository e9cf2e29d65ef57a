// The pixel size of a PNG from its header, without decoding it.
#pragma once

#include <cstdint>
#include <string>

#include "model/PngSize.h"
#include "png/PngFormat.h"

namespace vantik {

// Walks the chunks up to IEND and takes the size from IHDR. `size` stays as it was when there is no such file, when it
// is no PNG, and when a length reaches beyond the end before IHDR came. Raises PathFileAccess when the file is there
// but cannot be read, OutOfMemory for chunks beyond 1 GiB, and what ParsePngSize raises.
void ReadPngFileSize(const std::u16string& path, PngSize& size);

// The same walk over a PNG held in memory.
void ReadPngMemorySize(ByteView data, PngSize& size);

// The size from the data of an IHDR chunk: 10 for a width or height below 1, Overflow above 32767,
// SubscriptOutOfRange for data shorter than the record. The width is stored before the height is looked at.
void ParsePngSize(ByteView data, PngSize& size);

} // namespace vantik
