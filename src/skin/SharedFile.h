// Files that several processes may write and read at the same moment.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vantik {

// Has the file begin with these bytes. One that does is left alone, writable or not; a missing one appears under its name
// when all of it is there; one that differs is overwritten in place, and a longer one keeps its tail. What somebody else
// has open for himself is waited for, a second at most. The bytes are the same ones, in the same place, for all controls.
//
// PathFileAccess, also for a link in the file's way, which is not followed; PathNotFound, PermissionDenied, DiskFull,
// DeviceError.
void WriteShared(const std::u16string& path, std::span<const std::uint8_t> bytes);

// Makes the folder when it is missing. PathFileAccess, also for a link in its place; PathNotFound, DiskFull, DeviceError.
void NeedFolder(const std::u16string& path);

} // namespace vantik
