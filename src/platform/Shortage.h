// What the system refused for want of GDI objects or memory. Somewhere a picture shows less than it should: every control
// that remembers an earlier count paints itself anew when it is next looked at.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

void TellShortage() noexcept;
inline void TellShortageUnless(bool done) noexcept {
    if (!done) TellShortage();
}

// For use in a handler only: whether the exception under way is one, which is told then.
bool TellIfShortage() noexcept;

unsigned ShortagesSoFar() noexcept;

} // namespace vantik
