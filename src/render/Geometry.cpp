#include "render/Geometry.h"

#include <cmath>
#include <optional>

#include "base/Checked.h"
#include "base/ErrorText.h"
#include "base/Rounding.h"

namespace vantik {

namespace {

constexpr std::int32_t GapsBesideStrip = 2 + 8; // between the last two buttons, and between strip and buttons

std::int32_t WidthOf(const SkinIcons& icons, std::int16_t index) {
    const SkinIcon* icon = icons.At(index);
    return icon ? icon->Width : 0;
}

// The widths serve both orientations: the icons are not turned for the side placements here.
Checked Reserve(const GeometryInput& in, std::int16_t adjustment) {
    const SkinIcons& icons = in.SkinIcons;
    return Checked(WidthOf(icons, icons.LeftButtonIcon)) + WidthOf(icons, icons.RightButtonIcon) +
           adjustment + WidthOf(icons, icons.MenuBarIcon) + GapsBesideStrip;
}

Checked SpaceForBars(const GeometryInput& in, bool horizontal) {
    const PropertyValues& p = in.Properties;
    const Checked available =
        Checked(horizontal ? in.ControlWidthPx : in.ControlHeightPx) - Checked(2) * p.FrameDist;
    const std::int32_t ends = p.TabBarPos == TabMiddle ? 2 : 1;
    return available - Reserve(in, horizontal ? p.NavBtnXjust : p.NavBtnYjust) * ends -
           Checked(2) * in.SkinRects[FLeftLine].Width;
}

std::int16_t BarsThatFit(std::int32_t space, std::int16_t barWidth) {
    if (barWidth == 0) Raise(space == 0 ? RunTimeErrorNumber::Overflow : RunTimeErrorNumber::DivisionByZero);
    return Narrow<std::int16_t>(RoundHalfToEven(std::floor(double(space) / barWidth)));
}

// Half to even on the whole sum, not on the quotient alone.
Checked Middle(Checked extent, Checked length, std::int32_t shift) {
    return RoundHalfToEven((extent - length) / 2.0 + shift);
}

class Layout {
public:
    Layout(const GeometryInput& in, const LayoutCache& previous)
        : p_(in.Properties),
          r_(in.SkinRects),
          width_(in.ControlWidthPx),
          height_(in.ControlHeightPx),
          length_(Checked(previous.VisibleBarCount) * p_.BarWidth),
          layout_(previous) {}

    LayoutCache Compute() {
        const Checked dist = p_.FrameDist;
        layout_.ControlRect = LayoutRect::FromEdges(0, 0, width_, height_);
        // Inset once at the left and the top but twice at the right and the bottom; the frame is painted to fit.
        layout_.FrameRect = LayoutRect::FromEdges(dist, dist, width_ - dist * 2, height_ - dist * 2);
        switch (p_.TabPos) {
        case Windowtop: ComputeTop(); break;
        case WindowBottom: ComputeBottom(); break;
        case WindowLeft: ComputeLeft(); break;
        case WindowRight: ComputeRight(); break;
        default: break;
        }
        return layout_;
    }

private:
    // Of the four TabRight formulas only the top one subtracts the adjustment, and only the horizontal formulas know
    // FrameDist: that is how rows are placed.
    std::optional<Checked> LeadingTop() const {
        switch (p_.TabBarPos) {
        case TabLeft: return Checked(p_.TabBarPosXJust) + r_[RLeftTopPic].Width + p_.FrameDist;
        case TabMiddle: return Middle(width_, length_, p_.TabBarPosXJust + p_.FrameDist);
        case TabRight: return width_ - length_ - p_.TabBarPosXJust - r_[RRightBottom].Width;
        default: return std::nullopt;
        }
    }
    std::optional<Checked> LeadingBottom() const {
        switch (p_.TabBarPos) {
        case TabLeft: return Checked(p_.TabBarPosXJust) + r_[RLeftBottom].Width + p_.FrameDist;
        case TabMiddle: return Middle(width_, length_, p_.TabBarPosXJust + p_.FrameDist);
        case TabRight: return width_ - length_ - r_[RRightBottom].Width;
        default: return std::nullopt;
        }
    }
    std::optional<Checked> LeadingLeft() const {
        switch (p_.TabBarPos) {
        case TabLeft: return Checked(p_.TabBarPosYJust) + r_[RLeftTopPic].Height;
        case TabMiddle: return Middle(height_, length_, p_.TabBarPosYJust);
        case TabRight: return height_ - length_ - r_[RLeftBottom].Height;
        default: return std::nullopt;
        }
    }
    std::optional<Checked> LeadingRight() const {
        switch (p_.TabBarPos) {
        case TabLeft: return Checked(p_.TabBarPosYJust) + r_[RRightTopPic].Height;
        case TabMiddle: return Middle(height_, length_, p_.TabBarPosYJust);
        // A width where a height would be expected.
        case TabRight: return height_ - length_ - r_[RRightBottom].Width;
        default: return std::nullopt;
        }
    }

    void SetHorizontalStrip(std::optional<Checked> leading, Checked top) {
        const Checked left = leading.value_or(Checked(layout_.BarStripRect.Left));
        layout_.BarStripRect = LayoutRect::FromEdges(left, top, left + length_, top + Thickness());
    }
    void SetVerticalStrip(std::optional<Checked> leading, Checked left) {
        const Checked top = leading.value_or(Checked(layout_.BarStripRect.Top));
        layout_.BarStripRect = LayoutRect::FromEdges(left, top, left + Thickness(), top + length_);
    }

    void ComputeTop() {
        SetHorizontalStrip(LeadingTop(), Checked(p_.FrameDist) + p_.TabBarPosYJust);
        const LayoutRect& frame = layout_.FrameRect;
        const Checked top = layout_.BarStripRect.Top;
        layout_.BarBandRect = LayoutRect::FromEdges(frame.Left, top, frame.Right, top + Band() - 1);
        layout_.ClientRect = LayoutRect::FromEdges(frame.Left, top + Band() - 1, frame.Right, PageBottom());
    }
    void ComputeBottom() {
        SetHorizontalStrip(LeadingBottom(), height_ - Thickness() + p_.TabBarPosYJust);
        const LayoutRect& frame = layout_.FrameRect;
        const Checked bottom = layout_.BarStripRect.Bottom;
        const Checked bandTop = bottom - Band() + 1;
        layout_.BarBandRect = LayoutRect::FromEdges(frame.Left, bandTop, frame.Right, bandTop + Thickness());
        layout_.ClientRect = LayoutRect::FromEdges(frame.Left, p_.FrameDist, frame.Right, bottom - Band());
    }
    void ComputeLeft() {
        SetVerticalStrip(LeadingLeft(), Checked(p_.TabBarPosXJust) + p_.FrameDist);
        const LayoutRect& frame = layout_.FrameRect;
        const Checked dist = p_.FrameDist, left = layout_.BarStripRect.Left;
        layout_.BarBandRect = LayoutRect::FromEdges(left, dist, dist + Band() - 1, frame.Height);
        layout_.ClientRect = LayoutRect::FromEdges(left + Band() - 1, dist, frame.Right, PageBottom());
    }
    void ComputeRight() {
        SetVerticalStrip(LeadingRight(), width_ - Thickness() + p_.TabBarPosXJust);
        const LayoutRect& frame = layout_.FrameRect;
        const Checked dist = p_.FrameDist, right = layout_.BarStripRect.Right;
        layout_.BarBandRect = LayoutRect::FromEdges(right - Band() + 1, dist, dist + Band(), frame.Height);
        layout_.ClientRect = LayoutRect::FromEdges(dist, dist, right - Band() + 1, PageBottom());
    }

    Checked Thickness() const { return r_[BRect].Height; }
    Checked Band() const { return r_[TabRect].Height; }
    Checked PageBottom() const { return Checked(layout_.FrameRect.Bottom) - r_[FBottomLine].Height; }

    const PropertyValues& p_;
    const SkinRects& r_;
    Checked width_, height_;
    Checked length_; // of the strip
    LayoutCache layout_;
};

template <class Step>
LayoutCache Computing(const GeometryInput& input, Step step) {
    return Explaining(step, [&](const RunTimeError& error) {
        const PropertyValues& p = input.Properties;
        return ErrorText(u"No layout for BarWidth = ", p.BarWidth, u", TabCount = ", p.TabCount, u" on ",
                         input.ControlWidthPx, u" x ", input.ControlHeightPx, u" pixels: ",
                         error.Description());
    });
}

LayoutCache VisibleBars(const GeometryInput& input, LayoutCache layout) {
    const std::int16_t tabCount = input.Properties.TabCount;
    std::int16_t count =
        BarsThatFit(SpaceForBars(input, layout.IsHorizontal != False), input.Properties.BarWidth);
    if (count >= tabCount) count = tabCount;
    if (Add16(layout.FirstVisibleTab, count) > tabCount) layout.FirstVisibleTab = Subtract16(tabCount, count);
    layout.VisibleBarCount = count;
    return layout;
}

} // namespace

LayoutCache ComputeVisibleBars(const GeometryInput& input, LayoutCache layout) {
    return Computing(input, [&] { return VisibleBars(input, layout); });
}

LayoutCache ComputeLayout(const GeometryInput& input, LayoutCache layout) {
    return Computing(input, [&] { return Layout(input, layout).Compute(); });
}

} // namespace vantik
