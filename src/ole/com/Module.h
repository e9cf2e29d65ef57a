// The module as a whole: its file and whether it is still needed.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

std::u16string ModulePath();

void LockModule() noexcept;
void UnlockModule() noexcept;
bool ModuleIsLocked() noexcept;

// Keeps the module loaded for as long as an object of it lives.
class ModuleReference {
public:
    ModuleReference() noexcept { LockModule(); }
    ~ModuleReference() { UnlockModule(); }
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
};

} // namespace vantik
