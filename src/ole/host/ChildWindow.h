// A child control that is nothing but a window on the control's own.
#pragma once

#include "ole/host/Extent.h"
#include "platform/UserControl.h"

namespace vantik {

class ChildWindow final : public ChildControl {
public:
    ChildWindow(HWND window, const Resolution& screen) noexcept : window_(window), screen_(screen) {}

    // In twips. What was assigned is kept with the window: positions far away do not fit a window's coordinates, and
    // distances that are no whole pixels would add up.
    double Left() override;
    void Left(double left) override;

    std::u16string Name() override; // the atom in the window property "Name", else the dialog id
    void Visible(Boolean visible) override;

private:
    POINT Position() const noexcept;

    HWND window_;
    Resolution screen_;
};

} // namespace vantik
