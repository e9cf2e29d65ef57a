// The files that a new skin begins with.
#pragma once

#include <filesystem>

namespace vantik {

// A complete skin around the definition: bitmap, the four buttons and the settings that go with it. Nothing that is there
// already is overwritten: HostError then, and when a file cannot be written.
void WriteNewSkin(const std::filesystem::path& definition);

} // namespace vantik
