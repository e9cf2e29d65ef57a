#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "gfx/cHSV.h"
#include "tests/RunTimeErrors.h"

namespace vantik {

namespace {

cHSV FromRgb(int r, int g, int b) {
    cHSV hsv;
    hsv.R = static_cast<std::int16_t>(r);
    hsv.G = static_cast<std::int16_t>(g);
    hsv.B = static_cast<std::int16_t>(b);
    hsv.ToHsv();
    return hsv;
}

cHSV FromHsv(float h, float s, float v) {
    cHSV hsv;
    hsv.H = h;
    hsv.S = s;
    hsv.V = v;
    hsv.ToRgb();
    return hsv;
}

void CheckHsv(const cHSV& hsv, float h, float s, float v) {
    CHECK(hsv.H == h);
    CHECK(hsv.S == s);
    CHECK(hsv.V == v);
}

void CheckRgb(const cHSV& hsv, int r, int g, int b) {
    CHECK(hsv.R == r);
    CHECK(hsv.G == g);
    CHECK(hsv.B == b);
}

// The same in exact thirds of integers and doubles.
struct PlainHsv {
    double H, S, V;
};

PlainHsv PlainFromRgb(int r, int g, int b) {
    const int max = std::max({r, g, b});
    const int range = max - std::min({r, g, b});
    if (range == 0) return {0, 0, max / 2.55};
    const double sixths = r == max   ? static_cast<double>(g - b) / range
                          : g == max ? 2 + static_cast<double>(b - r) / range
                                     : 4 + static_cast<double>(r - g) / range;
    return {sixths < 0 ? sixths * 60 + 360 : sixths * 60, 100.0 * range / max, max / 2.55};
}

} // namespace

TEST_CASE("known colours to HSV") {
    CheckHsv(FromRgb(0, 0, 0), 0, 0, 0);
    CheckHsv(FromRgb(255, 255, 255), 0, 0, 100);
    CheckHsv(FromRgb(255, 0, 0), 0, 100, 100);
    CheckHsv(FromRgb(0, 255, 0), 120, 100, 100);
    CheckHsv(FromRgb(0, 0, 255), 240, 100, 100);
    CheckHsv(FromRgb(255, 255, 0), 60, 100, 100);  // ties go to red,
    CheckHsv(FromRgb(0, 255, 255), 180, 100, 100); // then to green
}

TEST_CASE("a hue of 360 counts as 0") { CheckRgb(FromHsv(360, 100, 100), 255, 0, 0); }

TEST_CASE("no saturation and value 50 give 127, rounded down from 127.99995") {
    CheckRgb(FromHsv(0, 0, 50), 127, 127, 127);
}

TEST_CASE("a hue outside 0 to 360 gives black") {
    CheckRgb(FromHsv(-30, 100, 100), 0, 0, 0);
    CheckRgb(FromHsv(420, 100, 100), 0, 0, 0);
}

TEST_CASE("components are rounded down below zero, too") { CheckRgb(FromHsv(0, 0, -1), -3, -3, -3); }

TEST_CASE("what does not fit 16 bits overflows and is not stored") {
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    for (const float value : {20000.0f, -20000.0f, notANumber, std::numeric_limits<float>::infinity()}) {
        cHSV hsv;
        hsv.R = hsv.G = hsv.B = 5;
        hsv.V = value;
        CHECK(NumberRaisedBy([&] { hsv.ToRgb(); }) == 6);
        CheckRgb(hsv, 5, 5, 5);
    }
    CHECK(NumberRaisedBy([] { FromHsv(1e10f, 50, 50); }) == 6);
}

TEST_CASE("components are stored one by one, up to the one that overflows") {
    cHSV hsv;
    hsv.R = hsv.G = hsv.B = 5;
    hsv.H = 120;
    hsv.S = 100;
    hsv.V = 13000; // green: 130 x 255.9999
    CHECK(NumberRaisedBy([&] { hsv.ToRgb(); }) == 6);
    CheckRgb(hsv, 0, 5, 5);
}

TEST_CASE("a number that is too large for a float overflows also where the colour is black") {
    cHSV hsv;
    hsv.R = hsv.G = hsv.B = 5;
    hsv.H = -30;
    hsv.S = 1e38f;
    hsv.V = 5e4f; // (1 - 1e36) x 500 for p, half of it for q and t
    CHECK(NumberRaisedBy([&] { hsv.ToRgb(); }) == 6);
    CheckRgb(hsv, 5, 5, 5);
}

TEST_CASE(
    "all 16.7 million colours are within 0.00015 of the exact hue, saturation and value, and come back "
    "whole") {
    double worst = 0;
    int changed = 0;
    bool isInRange = true;
    for (int r = 0; r < 256; ++r) {
        for (int g = 0; g < 256; ++g) {
            for (int b = 0; b < 256; ++b) {
                cHSV hsv = FromRgb(r, g, b);
                const PlainHsv exact = PlainFromRgb(r, g, b);
                worst = std::max(
                    {worst, std::abs(hsv.H - exact.H), std::abs(hsv.S - exact.S), std::abs(hsv.V - exact.V)});
                isInRange = isInRange && hsv.H >= 0 && hsv.H < 360;
                hsv.ToRgb();
                changed += hsv.R != r || hsv.G != g || hsv.B != b;
            }
        }
    }
    CHECK(worst < 1.5e-4);
    CHECK(isInRange);
    CHECK(changed == 0);
}

} // namespace vantik
