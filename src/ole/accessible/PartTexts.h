// What is said of the parts, in the user's language.
#pragma once

#include <string>

#include "ole/accessible/Part.h"
#include "ole/control/Control.h"

namespace vantik {

// Whether an "&" in a caption is a mark, and no part of the name.
bool MarksLetters(const ControlState& state) noexcept;

std::u16string NameOf(const Control& control, const Part& part);
std::u16string DescriptionOf(const Control& control, const Part& part); // empty for most
std::u16string DefaultActionOf(const Part& part);                       // empty for none

} // namespace vantik
