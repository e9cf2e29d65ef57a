// The platform's own tab control with an image list.
#pragma once

#include <memory>

#include "Subject.h"

namespace vantik::bench {

std::unique_ptr<Subject> MakePlatformTab();

} // namespace vantik::bench
