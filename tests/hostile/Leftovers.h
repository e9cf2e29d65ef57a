// What a module can leave behind in the process when it goes.
#pragma once

#include <iosfwd>

#include "platform/mDeclares.h"

namespace vantik {

struct Leftovers {
    int TlsIndexes = 0; // taken
    int GdiObjects = 0; // alive
    int Windows = 0;
    int Handles = 0; // of the kernel

    static Leftovers Count();
    bool operator==(const Leftovers&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Leftovers& counts);

} // namespace vantik
