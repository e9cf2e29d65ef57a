// The classes of the module: the control and its property pages.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object);

} // namespace vantik
