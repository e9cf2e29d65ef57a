// Properties of an object of the host, reached by name.
#pragma once

#include "ole/com/Variant.h"

namespace vantik {

// Raise NoSuchMember where the object has no such property, or what the object reports. A null object has none.
void GetProperty(IDispatch* object, const wchar_t* name, Variant& value);
void PutProperty(IDispatch* object, const wchar_t* name, VARIANT& value);

} // namespace vantik
