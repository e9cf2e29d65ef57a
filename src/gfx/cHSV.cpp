#include "gfx/cHSV.h"

#include <algorithm>
#include <cmath>

#include "base/RunTimeError.h"

namespace vantik {

namespace {

struct Rgb {
    float R, G, B;
};

// Rounded towards minus infinity; Overflow also for a NaN.
std::int16_t Floor16(double value) {
    const double whole = std::floor(value);
    if (!(whole >= -32768.0 && whole <= 32767.0)) Raise(RunTimeErrorNumber::Overflow);
    return static_cast<std::int16_t>(whole);
}

// 255.9999 rather than 255 spreads the unit interval evenly over the 256 levels and still maps 1 to 255.
std::int16_t Level(float component) { return Floor16(static_cast<double>(component) * 255.9999); }

// Too large a number is an error also where no component needs it.
float Finite(float value) {
    if (!std::isfinite(value)) Raise(RunTimeErrorNumber::Overflow);
    return value;
}

float Hue(const Rgb& c, float max, float min) noexcept {
    const float range = max - min;
    const float rc = (max - c.R) / range;
    const float gc = (max - c.G) / range;
    const float bc = (max - c.B) / range;
    const float sixths = c.R == max ? bc - gc : c.G == max ? 2 + rc - bc : 4 + gc - rc;
    const float degrees = sixths * 60;
    return degrees < 0 ? degrees + 360 : degrees;
}

Rgb FromSixths(float h, float s, float v) {
    if (h == 6) h = 0;
    const std::int16_t i = Floor16(static_cast<double>(h));
    const float f = h - static_cast<float>(i);
    const float p = Finite((1 - s) * v); // q and t lie between this and v
    const float q = (1 - s * f) * v;
    const float t = (1 - (1 - f) * s) * v;
    switch (i) {
    case 0: return {v, t, p};
    case 1: return {q, v, p};
    case 2: return {p, v, t};
    case 3: return {p, q, v};
    case 4: return {t, p, v};
    case 5: return {v, p, q};
    default: return {0, 0, 0};
    }
}

} // namespace

void cHSV::ToHsv() noexcept {
    const Rgb c = {static_cast<float>(R) / 255, static_cast<float>(G) / 255, static_cast<float>(B) / 255};
    const float max = std::max({c.R, c.G, c.B});
    const float min = std::min({c.R, c.G, c.B});
    const float s = max == 0 ? 0 : (max - min) / max;
    H = s == 0 ? 0 : Hue(c, max, min);
    S = s * 100;
    V = max * 100;
}

void cHSV::ToRgb() {
    const float v = V / 100;
    const Rgb c = S == 0 ? Rgb{v, v, v} : FromSixths(H / 60, S / 100, v);
    R = Level(c.R);
    G = Level(c.G);
    B = Level(c.B);
}

} // namespace vantik
