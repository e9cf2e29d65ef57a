// Functions of the system that a loaded module calls, made to fail: GDI objects cannot be had, or memory.
#pragma once

#include <list>
#include <string>
#include <vector>

#include "hostile/PatchedImport.h"

namespace vantik {

// One at a time.
class FailingImports {
public:
    explicit FailingImports(HMODULE module);
    ~FailingImports();

    // The names of those that can fail.
    static std::vector<std::string> Names();

    // From now on every call of it fails, or that of all; none.
    void Fail(const std::string& name) noexcept;
    void FailAll() noexcept;
    void FailNone() noexcept;
    int Failed() const noexcept; // calls since then

private:
    std::list<PatchedImport> imports_;
};

} // namespace vantik
