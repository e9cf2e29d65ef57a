#include "ole/host/Extent.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "gfx/Handles.h"

namespace vantik {

namespace {

constexpr int HiMetricPerInch = 2540;

// MulDiv rounds; it answers -1 for a result that does not fit.
int Scale(LONG value, int numerator, int denominator) noexcept {
    return MulDiv(value, numerator, denominator);
}

} // namespace

// Half to even, as the engine rounds.
double Resolution::WholeTwips(double perPixel) noexcept { return std::max(std::nearbyint(perPixel), 1.0); }

Resolution Resolution::OfScreen() noexcept {
    const ScreenDC screen = GetScreenDC();
    if (!screen) return {};
    return {GetDeviceCaps(screen.Get(), LOGPIXELSX), GetDeviceCaps(screen.Get(), LOGPIXELSY)};
}

SIZE Resolution::ToPixels(SIZEL himetric) const noexcept {
    return {Scale(himetric.cx, X, HiMetricPerInch), Scale(himetric.cy, Y, HiMetricPerInch)};
}

SIZEL Resolution::ToHiMetric(SIZE pixels) const noexcept {
    return {Scale(pixels.cx, HiMetricPerInch, X), Scale(pixels.cy, HiMetricPerInch, Y)};
}

bool Extent::Pixels(SIZE pixels) noexcept {
    if (pixels == pixels_) return false;
    pixels_ = pixels;
    himetric_ = screen_.ToHiMetric(pixels);
    return true;
}

bool Extent::HiMetric(SIZEL himetric) noexcept {
    himetric_ = himetric;
    return !(std::exchange(pixels_, screen_.ToPixels(himetric)) == pixels_);
}

} // namespace vantik
