// The property pages as classes of the module.
#pragma once

#include <span>

#include "ole/com/ClassFactory.h"

namespace vantik {

struct PageClass {
    const CLSID& Id;
    const wchar_t* Title; // in the registry
    Maker Make;
};

// In the order in which a frame shows them.
std::span<const PageClass> PageClasses() noexcept;

} // namespace vantik
