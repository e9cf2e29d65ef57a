// The property values that go with a skin: its SETTINGS.TXT.
#pragma once

#include <string>
#include <vector>

#include "ole/pages/EditedObjects.h"

namespace vantik {

// The lines "Property = Value" in their order; empty ones and those that begin with "//" say nothing. Names of constants
// are the object's own. Raises where the file cannot be read, and for a line of another kind.
std::vector<Assignment> ReadSkinSettings(const std::u16string& path, IDispatch* object);

} // namespace vantik
