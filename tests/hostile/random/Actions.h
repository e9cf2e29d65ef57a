// What a host does to a control, by kinds.
#pragma once

#include <span>

#include "hostile/random/World.h"

namespace vantik {

struct Action {
    const char* Name;
    int Weight; // how often it is done, in comparison
    void (*Do)(World&, Place&);
};

using Actions = std::span<const Action>;

Actions MemberActions() noexcept;
Actions ObjectActions() noexcept;
Actions ViewActions() noexcept;
Actions ReaderActions() noexcept;
Actions PersistenceActions() noexcept;
Actions WindowActions() noexcept;
Actions LifeActions() noexcept; // which do something also where there is no control

} // namespace vantik
