// Answers of the system that were refused on the way, so that what was made of a file may be less than the file: it serves
// who asked for it, and is not kept for anybody else.
#pragma once

namespace vantik {

void TellDoubt() noexcept;
inline void TellDoubtUnless(bool done) noexcept {
    if (!done) TellDoubt();
}

unsigned DoubtsSoFar() noexcept; // of all controls

} // namespace vantik
