// A VARIANT of any type, by value or by reference, with what it refers to.
#pragma once

#include <string>

#include "host/Variant.h"
#include "hostile/random/Random.h"

namespace vantik {

class World;

class RandomVariant {
public:
    explicit RandomVariant(World& world);
    ~RandomVariant();
    RandomVariant(const RandomVariant&) = delete;
    RandomVariant& operator=(const RandomVariant&) = delete;

    const VARIANT& Get() const noexcept { return outer_; }
    VARIANT* Put() noexcept { return &outer_; }

private:
    void Refer(World& world) noexcept;

    VARIANT outer_, middle_, inner_; // each may refer to the next one
};

// A value that its receiver owns.
VARIANT OwnedValue(World& world);

// A text that means something to the control, or something to the system, or nothing to anybody. May be null.
BSTR RandomText(Random& random);

} // namespace vantik
