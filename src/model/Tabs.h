// The list of tabs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/Enumerations.h"

namespace vantik {

struct TabRecord {
    std::u16string Caption;
    std::u16string Ico; // key of the bar's icon, upper case; "-1" or empty: none
    Boolean Enable = False;
};

// An array from 0 to an upper bound, kept equal to the number of tabs: one spare record stands past the last tab.
class Tabs {
public:
    // Keeps the records that stay. Overflow and OutOfMemory leave the list as it was.
    void Resize(std::int16_t upperBound);

    // Copies every record from `first` on to the place behind it, the last one to `last`.
    void ShiftUp(std::int16_t first, std::int16_t last);

    // SubscriptOutOfRange outside 0..upper bound.
    TabRecord& operator()(std::int32_t index);
    const TabRecord& operator()(std::int32_t index) const;

    std::int16_t UpperBound() const noexcept { return static_cast<std::int16_t>(records_.size() - 1); }

private:
    std::vector<TabRecord> records_ = std::vector<TabRecord>(1);
};

} // namespace vantik
