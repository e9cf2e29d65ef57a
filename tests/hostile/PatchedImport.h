// A function that a module imports, replaced for as long as this lives.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

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
