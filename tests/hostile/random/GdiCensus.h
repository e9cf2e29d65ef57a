// The GDI objects of the process, by their types.
#pragma once

#include <array>
#include <string>

namespace vantik {

struct GdiCensus {
    static constexpr std::size_t Types = 15;
    std::array<int, Types> Counts = {}; // by what GetObjectType says

    static GdiCensus Take();
    // Of no type more than so many more than there were before.
    bool HasGrown(const GdiCensus& before, int most) const noexcept;
    std::string Since(const GdiCensus& before) const;
};

} // namespace vantik
