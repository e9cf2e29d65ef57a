// The size of the control, in the unit of whoever asks, and the screen's conversion factors.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

// Dots per inch of the screen.
struct Resolution {
    int X = 96, Y = 96;
    static Resolution OfScreen() noexcept;

    // The host's unit. At many scales a pixel has no whole number of twips.
    double TwipsPerPixelX() const noexcept { return 1440.0 / X; }
    double TwipsPerPixelY() const noexcept { return 1440.0 / Y; }

    // The unit that the control itself is measured in. The engine divides by whole numbers: what was multiplied by
    // another one would not come back.
    double WholeTwipsPerPixelX() const noexcept { return WholeTwips(TwipsPerPixelX()); }
    double WholeTwipsPerPixelY() const noexcept { return WholeTwips(TwipsPerPixelY()); }

    SIZE ToPixels(SIZEL himetric) const noexcept;
    SIZEL ToHiMetric(SIZE pixels) const noexcept;

private:
    static double WholeTwips(double perPixel) noexcept;
};

// Set in either unit; the unit that it was set in is given back unrounded.
class Extent {
public:
    explicit Extent(const Resolution& screen) noexcept : screen_(screen) { Pixels({320, 240}); }

    const Resolution& Screen() const noexcept { return screen_; }
    SIZE Pixels() const noexcept { return pixels_; }
    SIZEL HiMetric() const noexcept { return himetric_; }

    // Both say whether the size in pixels is another one now.
    bool Pixels(SIZE pixels) noexcept;
    bool HiMetric(SIZEL himetric) noexcept;

private:
    Resolution screen_;
    SIZE pixels_ = {};
    SIZEL himetric_ = {};
};

inline bool operator==(const SIZE& a, const SIZE& b) noexcept { return a.cx == b.cx && a.cy == b.cy; }

} // namespace vantik
