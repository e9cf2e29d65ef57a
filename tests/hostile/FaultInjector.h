// Every function that the control's module imports and that can fail, made to fail at will.
#pragma once

#include <list>
#include <span>
#include <string>

#include "hostile/PatchedImport.h"

namespace vantik {

// One function of the system, with its own count.
struct FaultyImport {
    const char* Name;
    const void* Stub;                // stands in for it, and fails where it is told to
    const void* Original = nullptr;  // does the work otherwise
    long Calls = 0;                  // so far
    long FailsFrom = 0, FailsTo = 0; // calls, the first one being 1

    // Of a call that begins now.
    bool Fails() noexcept {
        ++Calls;
        return FailsFrom <= Calls && Calls <= FailsTo;
    }
};

// In no particular order; not all of them need be imported.
std::span<FaultyImport> FaultyImports() noexcept;

// Those that cannot fail, whose failure says nothing else than "no", or that nobody calls once the module is loaded.
bool CannotFail(const std::string& import) noexcept;

// All imports of a module that are among these, replaced for as long as this lives. One at a time.
class FaultInjector {
public:
    explicit FaultInjector(HMODULE module); // counts begin anew

private:
    std::list<PatchedImport> patches_;
};

} // namespace vantik
