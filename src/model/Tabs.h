// The list of tabs.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

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

    // The record takes the other place, and those between them each step aside by one. SubscriptOutOfRange.
    void Move(std::int16_t from, std::int16_t to);

    // SubscriptOutOfRange outside 0..upper bound.
    TabRecord& operator()(std::int32_t index);
    const TabRecord& operator()(std::int32_t index) const;

    std::int16_t UpperBound() const noexcept { return static_cast<std::int16_t>(records_.size() - 1); }

private:
    // Where a record is taken out or put in, only those towards the nearer end move.
    std::deque<TabRecord> records_ = std::deque<TabRecord>(1);
};

} // namespace vantik
