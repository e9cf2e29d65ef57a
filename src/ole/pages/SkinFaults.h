// What is wrong in a skin, as text to be read on the page.
#pragma once

#include <string>

namespace vantik {

// A line for each fault, and its effect in the next one; empty without any.
std::u16string FaultsOfSkin(const std::u16string& folder, const std::u16string& definition);

} // namespace vantik
