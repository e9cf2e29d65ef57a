// A definition whose files lie beside it under plain names, whatever it calls them.
#pragma once

#include <string>
#include <vector>

#include "check/DefinitionText.h"

namespace vantik {

struct LocalFile {
    std::u16string Named; // by the definition; upper case
    std::string Local;
};

struct LocalSkin {
    std::string Definition;
    std::vector<LocalFile> Files; // each name once
};

LocalSkin WithLocalNames(const DefinitionText& definition);

// The same with another bitmap.
std::string WithBitmap(const DefinitionText& definition, const std::string& file);

// The bitmap that the definition names last, as the control takes it; upper case. Empty without one.
std::u16string BitmapNameOf(const DefinitionText& definition);

// The keys of icons that are no buttons, in the order of their lines.
std::vector<std::u16string> TabIconsOf(const DefinitionText& definition);

} // namespace vantik
