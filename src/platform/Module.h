// The module that this code is part of: the .ocx in a host, the program itself in a test.
#pragma once

#include <span>
#include <string>

#include "platform/mDeclares.h"

namespace vantik {

HINSTANCE ThisModule() noexcept;

// For code that somebody else will call at a time nobody knows: the module stays until the process ends.
void KeepThisModuleLoaded() noexcept;

// The bytes of a resource of this module, for the life of the module; empty when there is none of that name.
std::span<const BYTE> ResourceBytes(const wchar_t* name, const wchar_t* type) noexcept;

// A text of this module in the user's language; empty when there is none of that number.
std::u16string ResourceText(UINT number);

} // namespace vantik
