// Where a tooltip stands.
#pragma once

#include "model/Enumerations.h"
#include "platform/mDeclares.h"

namespace vantik {

// Beyond the part on the side that the row is on, so that neither the row nor the page is covered; where the screen has no
// room there, on the other side. In pixels of the screen, as is everything that is given. The pointer's picture stays free.
POINT TipPlace(const RECT& part, const RECT& pointer, SIZE tip, std::int32_t side,
               const RECT& screen) noexcept;

} // namespace vantik
