// Pictures of the form in every arrangement, for whoever wants to look at them all.
#pragma once

#include <string>

#include "DemoForm.h"

namespace vantik {

void TakeShots(DemoForm& demo, const std::wstring& folder);

} // namespace vantik
