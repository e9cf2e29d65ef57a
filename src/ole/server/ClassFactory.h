// Makes controls.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object);

} // namespace vantik
