// Those who follow what the control's window shows without looking at it: screen readers, for one.
#pragma once

#include <cstdint>

namespace vantik {

enum class TabAspect : std::uint8_t { Name, Usability };

class Watchers {
public:
    // After anything that may have changed the row: they are told of what differs from what they were told last.
    virtual void RowChanged() noexcept = 0;

    // What cannot be told from the row; the second before that is looked at.
    virtual void TabChanged(std::int16_t tab, TabAspect aspect) noexcept = 0;
    virtual void TabsReplaced() noexcept = 0;

protected:
    ~Watchers() = default;
};

} // namespace vantik
