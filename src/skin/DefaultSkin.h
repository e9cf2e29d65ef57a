// The skin that the control carries in its own resources.
#pragma once

#include <string>

namespace vantik {

// Writes the eight files of the built-in skin to the folder "Temp" in the host folder, which is made if it is missing.
// Any number of processes may do so at the same moment, and read. Raises PathFileAccess (a link in the way is one),
// PathNotFound, PermissionDenied (a file is in use), DiskFull or DeviceError.
void ExtractDefaultSkin(const std::u16string& hostFolder);

// Writes one resource of the control to a file, unless the file begins with it. One that differs is overwritten in place,
// not cut: a tail longer than the resource stays.
void SaveResourceToFile(const std::u16string& resourceName, const std::u16string& resourceType,
                        const std::u16string& filePath);

} // namespace vantik
