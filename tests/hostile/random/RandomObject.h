// Objects that are given to the control as its font or its picture: right ones, and others.
#pragma once

#include "host/ComObject.h"

namespace vantik {

class World;

// Null too. Never one of the controls: a control that is its own picture is a knot that only its host can untie.
ComPtr<IDispatch> RandomObject(World& world);

} // namespace vantik
