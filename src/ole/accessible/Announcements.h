// Tells those who listen (NotifyWinEvent) what has changed, once, by whatever way it came about. The pointer's moves are
// not told of.
#pragma once

#include "ole/accessible/RowSnapshot.h"
#include "ole/control/Control.h"
#include "ole/control/Watchers.h"

namespace vantik {

class Announcements final : public Watchers {
public:
    explicit Announcements(const Control& control) noexcept : control_(control) {}

    void RowChanged() noexcept override;
    void TabChanged(std::int16_t tab, TabAspect aspect) noexcept override;
    void TabsReplaced() noexcept override;

    // Of the window itself. To ask the system at every switch would cost more than the switch.
    void FocusChanged(bool gained) noexcept;

private:
    RowSnapshot Look() const noexcept;

    const Control& control_;
    HWND window_ = nullptr; // that the rest is about
    bool hasFocus_ = false;
    std::optional<RowSnapshot> told_;
};

} // namespace vantik
