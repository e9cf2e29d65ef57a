#include "ole/window/PaintedAndHit.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <map>
#include <set>
#include <vector>

namespace vantik {

namespace {

using test::Pixels;

struct ByRows {
    bool operator()(POINT a, POINT b) const noexcept { return a.y != b.y ? a.y < b.y : a.x < b.x; }
};
using Points = std::set<POINT, ByRows>;

constexpr RECT Place = {30, 20, 30 + 400, 20 + 260};
constexpr POINT OnPage = {200, 130};
constexpr std::int16_t BarWidth = 45, Bars = 4;
constexpr std::int16_t FarAway = 5000; // pixels

Points Changed(const Pixels& before, const Pixels& after) {
    Points points;
    for (LONG y = 0; y < after.Height; ++y)
        for (LONG x = 0; x < after.Width; ++x)
            if (before.At(x, y) != after.At(x, y)) points.insert({x, y});
    return points;
}

Points Without(const Points& all, const Points& some) {
    Points rest;
    std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::inserter(rest, rest.end()),
                        ByRows());
    return rest;
}

// What the control was cleared to before it painted itself.
int UnpaintedPixels(const Pixels& picture) {
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const auto cleared =
        std::uint32_t{GetRValue(face)} << 16 | std::uint32_t{GetGValue(face)} << 8 | GetBValue(face);
    return static_cast<int>(std::count(picture.Values.begin(), picture.Values.end(), cleared));
}

// A caption gives way to the close button; without captions only the button comes and goes.
void DropCaptions(const WindowedControl& control) {
    std::int16_t count = 0;
    control.Tab().get_TabCount(&count);
    BSTR none = SysAllocString(L"");
    VARIANT_BOOL refresh = VARIANT_TRUE;
    for (std::int16_t tab = 0; tab < count; ++tab) control.Tab().SetBarCaption(&tab, &none, &refresh);
    SysFreeString(none);
}

void LeaveNoTabActive(const WindowedControl& control) {
    std::int16_t first = 0;
    VARIANT_BOOL enable = VARIANT_TRUE;
    control.Tab().put_ActiveTab(first);
    control.Tab().SetBarEnable(&first, &enable);
}

// Each bar by what looks otherwise once its tab is active.
std::vector<Points> PaintedBars(const WindowedControl& control) {
    LeaveNoTabActive(control);
    const Pixels none = control.Picture();
    std::vector<Points> bars;
    for (std::int16_t tab = 0; tab < Bars; ++tab) {
        control.Tab().put_ActiveTab(tab);
        bars.push_back(Changed(none, control.Picture()));
    }
    LeaveNoTabActive(control);
    return bars;
}

RECT BoundsOf(const Points& points) {
    RECT bounds = {LONG_MAX, LONG_MAX, LONG_MIN, LONG_MIN};
    for (const POINT point : points)
        bounds = {std::min(bounds.left, point.x), std::min(bounds.top, point.y),
                  std::max(bounds.right, point.x + 1), std::max(bounds.bottom, point.y + 1)};
    return bounds;
}

// Goes from bar to bar, so that the control has to tell of every pixel.
void CheckBars(const WindowedControl& control, const std::vector<Points>& bars) {
    std::vector<std::vector<POINT>> pixels;
    for (const Points& bar : bars) pixels.emplace_back(bar.begin(), bar.end());
    const std::size_t most = std::ranges::max(pixels, {}, &std::vector<POINT>::size).size();
    REQUIRE(std::ranges::min(pixels, {}, &std::vector<POINT>::size).size() > 100);
    int wrong = 0;
    for (std::size_t i = 0; i < most; ++i) {
        for (std::size_t tab = 0; tab < pixels.size(); ++tab) {
            control.Move(pixels[tab][i % pixels[tab].size()]);
            wrong += control.Events().Take() != "TabMove " + std::to_string(tab);
        }
    }
    CHECK(wrong == 0);
}

Points PaintedCloseButtons(const WindowedControl& control) {
    control.Move(OnPage); // nothing is hovered
    control.Tab().put_DelButton(VARIANT_FALSE);
    const Pixels without = control.Picture();
    control.Tab().put_DelButton(VARIANT_TRUE);
    return Changed(without, control.Picture());
}

// Presses every pixel of the close buttons; the handler keeps the tabs.
void CheckCloseButtons(const WindowedControl& control, const std::vector<Points>& bars) {
    const Points buttons = PaintedCloseButtons(control);
    REQUIRE(buttons.size() > 20 * bars.size());
    control.Events().During = [](const std::string& name, std::int16_t* index) {
        if (name == "TabClose") *index = -1;
    };
    int owned = 0, wrong = 0;
    for (std::size_t tab = 0; tab < bars.size(); ++tab) {
        const RECT bar = BoundsOf(bars[tab]);
        for (const POINT point : buttons) {
            if (!PtInRect(&bar, point)) continue;
            ++owned;
            control.Move(point);
            control.Events().Take();
            control.Press(point);
            wrong += control.Events().Take() != "TabClose " + std::to_string(tab);
        }
    }
    CHECK(wrong == 0);
    CHECK(owned == static_cast<int>(buttons.size()));
}

// All three, by what is missing once they are shifted across the row out of sight.
Points PaintedRowButtons(const WindowedControl& control, bool horizontal) {
    const auto shift = [&](std::int16_t distance) {
        if (horizontal)
            control.Tab().put_NavBtnYjust(distance);
        else
            control.Tab().put_NavBtnXjust(distance);
    };
    shift(FarAway);
    const Pixels without = control.Picture();
    shift(0);
    return Changed(without, control.Picture());
}

// More tabs than fit, scrolled to the middle, so that no button is greyed; the handler keeps them there.
void ScrollToTheMiddle(const WindowedControl& control, bool horizontal) {
    control.Tab().put_TabCount(40);
    DropCaptions(control);
    LeaveNoTabActive(control);
    control.Move(OnPage);
    control.Events().During = [](const std::string& name, std::int16_t* first) {
        if (name == "PreTabDown" || name == "NextTabDown") *first = 3;
    };
    control.Events().Take();
    for (const POINT point : PaintedRowButtons(control, horizontal)) {
        control.Click(point);
        if (control.Events().Take() == "NextTabDown 1") return;
    }
    FAIL("there is no next button");
}

// Presses every pixel of the buttons; the first press on each shows which pixels are its own: they look pressed.
void CheckRowButtons(const WindowedControl& control, bool horizontal) {
    ScrollToTheMiddle(control, horizontal);
    const Points buttons = PaintedRowButtons(control, horizontal);
    REQUIRE(buttons.size() > 100);
    const Pixels released = control.Picture();
    std::map<std::string, Points> hit, pressed;
    control.Events().Take();
    for (const POINT point : buttons) {
        control.Press(point);
        const std::string event = control.Events().Take();
        if (hit[event].empty()) {
            control.Release(point); // the others, too
            control.Press(point);
            pressed[event] = Changed(released, control.Picture());
            control.Events().Take();
        }
        hit[event].insert(point);
    }
    for (const char* event : {"PreTabDown 2", "NextTabDown 4", "DownBarDown"}) {
        CAPTURE(event);
        CHECK(hit[event].size() > 20);
        for (const auto& [other, points] : std::map(hit))
            if (other != event) CHECK(Without(pressed[event], points).size() == pressed[event].size());
    }
    CHECK(hit.size() == 3);
}

void CheckSide(const WindowedControl& control, bool horizontal) {
    DropCaptions(control);
    CHECK(UnpaintedPixels(control.Picture()) == 0);
    const auto bars = PaintedBars(control);
    CheckBars(control, bars);
    CheckCloseButtons(control, bars);
    CheckRowButtons(control, horizontal);
}

} // namespace

void CheckPaintedIsHit(const std::function<ComPtr<IUnknown>()>& newControl) {
    for (const auto side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        CAPTURE(side);
        const WindowedControl control(newControl(), Place);
        control.Tab().put_TabPos(side);
        control.Tab().put_BarWidth(BarWidth);
        control.Tab().put_TabCount(Bars);
        CheckSide(control, side == Windowtop || side == WindowBottom);
    }
}

} // namespace vantik
