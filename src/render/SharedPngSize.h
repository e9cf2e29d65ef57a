// The pixel size of a PNG file that another control may have read already.
#pragma once

#include <string>

#include "model/PngSize.h"
#include "platform/FileIdentity.h"

namespace vantik {

// As ReadPngFileSize, without a request to the system where the file is still what it was.
void ReadSharedPngFileSize(const std::u16string& path, const FileIdentity& identity, PngSize& size);

inline void ReadSharedPngFileSize(const std::u16string& path, PngSize& size) {
    ReadSharedPngFileSize(path, IdentityOf(path), size);
}

} // namespace vantik
