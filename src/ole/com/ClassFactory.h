// A class object for any class of the module.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

// Makes an object. With an outer object only the IUnknown is asked for.
using Maker = HRESULT (*)(IUnknown* outer, REFIID iid, void** object);

HRESULT MakeClassFactory(Maker maker, REFIID iid, void** factory);

} // namespace vantik
