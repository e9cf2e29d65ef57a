// Enters the control into the registry and takes it out again.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

HRESULT RegisterControl();
HRESULT UnregisterControl();

} // namespace vantik
