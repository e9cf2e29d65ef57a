// What the windows of some processes say.
#pragma once

#include <functional>
#include <string>

#include "platform/mDeclares.h"

namespace vantik {

// A line for each window that they show, and below it one for each text that is shown in it. UTF-8.
std::string WindowTexts(const std::function<bool(DWORD)>& isOne);

} // namespace vantik
