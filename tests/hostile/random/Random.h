// Numbers that only the seed decides.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantik {

class Random {
public:
    explicit Random(std::uint64_t seed) noexcept : state_(seed) {}

    // SplitMix64: every seed is as good as any other.
    std::uint64_t Next() noexcept {
        std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }

    int Below(std::size_t limit) noexcept { return static_cast<int>(Next() % limit); }
    int Between(int least, int most) noexcept {
        return least + Below(static_cast<std::size_t>(most - least) + 1);
    }
    bool OneIn(std::size_t chances) noexcept { return Below(chances) == 0; }

    template <class Item, std::size_t Count>
    const Item& Of(const Item (&items)[Count]) noexcept {
        return items[Below(Count)];
    }

    // Numbers at which something changes more often than any others.
    std::int32_t Number() noexcept {
        static constexpr std::int32_t Edges[] = {0,     1,      -1,     2,     3,          7,
                                                 255,   256,    32767,  32768, -32768,     -32769,
                                                 65535, 0xFFFF, 100000, -2,    2147483647, -2147483647 - 1};
        switch (Below(4)) {
        case 0: return Of(Edges);
        case 1: return static_cast<std::int32_t>(Next());
        default: return Between(-5, 60);
        }
    }
    std::int16_t Short() noexcept { return static_cast<std::int16_t>(Number()); }

private:
    std::uint64_t state_;
};

} // namespace vantik
