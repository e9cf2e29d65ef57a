// The functions that a module imports: which they are, and one of them replaced.
#pragma once

#include <string>
#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

// By name, library after library.
std::vector<std::string> ImportsOf(HMODULE module);

// Replaced for as long as this lives.
class PatchedImport {
public:
    // Throws HostError when the module does not import it.
    PatchedImport(HMODULE module, const char* name, const void* replacement);
    ~PatchedImport();
    PatchedImport(const PatchedImport&) = delete;
    PatchedImport& operator=(const PatchedImport&) = delete;

    const void* Original() const noexcept { return original_; }

private:
    const void** place_; // in the module's import table
    const void* original_;
};

} // namespace vantik
