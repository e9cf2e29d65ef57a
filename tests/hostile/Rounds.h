// How often a test repeats what it does.
#pragma once

#include <cstdlib>

namespace vantik {

// So often, or as the environment's HOSTILE_ROUNDS says.
inline int Rounds(int usual) {
    const char* const wanted = std::getenv("HOSTILE_ROUNDS");
    return wanted ? std::atoi(wanted) : usual;
}

} // namespace vantik
