// Loads the skin that the properties name.
#pragma once

#include "model/ControlState.h"
#include "platform/UserControl.h"
#include "render/Surfaces.h"

namespace vantik {

// Reads the definition at SkinPath and SkinFile into the state and its bitmap into SkinDC. Where there is no such
// definition, the built-in skin is written out beside the host, SkinPath becomes "Temp" (neither marked changed nor
// saved) and the definition is read there, under the same name.
//
// Icons are appended behind those of earlier loads; rectangles and the bitmap's name that the definition does not
// mention stay. Raises file errors, what SkinParser raises, and InvalidPicture; what was stored up to there stays. What
// an error says names the file, and in the definition the line.
void LoadSkin(UserControl& host, ControlState& state, Surfaces& surfaces);

} // namespace vantik
