// The platform's own tab control with an image list.
#pragma once

#include <memory>
#include <string>

#include "Subject.h"

namespace vantik::bench {

// The icon comes from a PNG file, or without one from the system.
std::unique_ptr<Subject> MakePlatformTab(const std::wstring& icon = {});

} // namespace vantik::bench
