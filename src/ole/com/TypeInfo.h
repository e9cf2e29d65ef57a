// The control's own type library, read from the module itself, so that nothing has to be registered for it.
#pragma once

#include "platform/ComPtr.h"

namespace vantik {

ComPtr<ITypeLib> OwnTypeLibrary();

// The description of an interface or class of the library.
ComPtr<ITypeInfo> OwnTypeInfo(REFGUID identifier);

} // namespace vantik
