// The memory that a loaded module asks for, under control: every request is counted, and some can be made to fail.
#pragma once

#include <list>

#include "hostile/PatchedImport.h"

namespace vantik {

// One at a time.
class ModuleMemory {
public:
    explicit ModuleMemory(HMODULE module);
    ~ModuleMemory() { FailNone(); }

    void FailAt(
        long number) noexcept; // counted from now on (0: the next one); the ones behind it succeed again
    void FailAll() noexcept;
    void FailNone() noexcept;
    bool HasFailed() const noexcept; // since it was told to

private:
    std::list<PatchedImport> imports_;
};

} // namespace vantik
