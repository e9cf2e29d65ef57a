#include "render/RepaintDriver.h"

#include "base/Rounding.h"
#include "render/BarGeometry.h"
#include "render/FrameGeometry.h"

namespace vantik {

GeometryInput RepaintDriver::Input() {
    return {control_.Properties, control_.SkinRects, control_.SkinIcons,
            TwipsToPixels(host_.Width(), host_.TwipsPerPixelX()),
            TwipsToPixels(host_.Height(), host_.TwipsPerPixelY())};
}

Boolean RepaintDriver::IsHorizontal() const noexcept {
    const std::int32_t side = control_.Properties.TabPos;
    return side == Windowtop || side == WindowBottom ? True : False;
}

// Each step stores and paints at once, so that an error leaves what the steps before it did.
void RepaintDriver::RepaintAll() {
    LayoutCache& layout = control_.Layout;
    host_.Cls();
    layout.IsHorizontal = IsHorizontal();
    const GeometryInput input = Input();
    const auto whole = LayoutRect::FromEdges(0, 0, input.ControlWidthPx, input.ControlHeightPx);
    Invalidate(whole);
    frame_.PaintBackground(whole);
    layout = ComputeVisibleBars(input, layout);
    layout = ComputeLayout(input, layout);
    PaintForeground();
}

void RepaintDriver::RedrawBars() {
    PaintBars();
    InvalidateBars();
}

void RepaintDriver::PrepareAll() {
    LayoutCache layout = control_.Layout;
    layout.IsHorizontal = IsHorizontal();
    const GeometryInput input = Input();
    layout = ComputeLayout(input, ComputeVisibleBars(input, layout));
    static_cast<void>(FrameEdges(layout, control_.SkinRects));
    static_cast<void>(FrameCorners(layout, control_.SkinRects));
    control_.Layout = layout;
    PrepareBars();
    static_cast<void>(control_.TabsBehind()); // by which the next button is greyed
}

void RepaintDriver::PrepareBars() const {
    if (control_.Properties.TabCount < 1 || AreBarsPlain(control_)) return;
    for (std::int16_t i = 0; i < control_.Layout.VisibleBarCount; ++i) {
        const std::int16_t tab = Add16(control_.Layout.FirstVisibleTab, i);
        CheckBar(control_, tab, control_.StateOf(tab));
    }
}

void RepaintDriver::PaintAll() {
    host_.Cls();
    frame_.PaintBackground(control_.Layout.ControlRect);
    PaintForeground();
}

void RepaintDriver::PaintForeground() {
    frame_.PaintFrame();
    frame_.PaintCorners();
    DrawBars();
    decorations_.DrawNavButtons();
}

void RepaintDriver::PaintBars() {
    frame_.PaintUnderlay(RowRect(control_));
    DrawBars();
}

void RepaintDriver::DrawBars() {
    DrawBars([this](std::int16_t tab) { return control_.StateOf(tab); });
}

// Over the clean underlay. Drawing a decoration may run code of the host, so the state is read anew for each bar.
template <class StateOf>
void RepaintDriver::DrawBars(StateOf stateOf) {
    if (control_.Properties.TabCount < 1) return;
    for (std::int16_t i = 0; i < control_.Layout.VisibleBarCount; ++i) {
        const std::int16_t tab = Add16(control_.Layout.FirstVisibleTab, i);
        bars_.DrawBar(tab, stateOf(tab));
    }
}

void RepaintDriver::RedrawBar(std::int16_t index, std::uint8_t state) {
    const std::int32_t slot = SlotOf(control_, index);
    if (!IsVisibleSlot(control_, slot)) return;
    CheckBar(control_, index, state);
    const bool overlap = DoBarsOverlap(control_);
    const LayoutRect area = overlap ? RowRect(control_) : SlotRect(control_, slot);
    frame_.PaintUnderlay(area);
    if (overlap)
        DrawBars([&](std::int16_t tab) { return tab == index ? BarState(state) : control_.StateOf(tab); });
    else
        bars_.DrawBar(index, state);
    Invalidate(area);
}

// Bars that were longer before leave nothing behind the strip. The edges run under the buttons and the corners, which therefore follow. The picture lies between the edges: a new one
// shows at the next full repaint, as always.
void RepaintDriver::RepaintFrame() {
    frame_.PaintUnderlay(BehindStripRect(control_));
    frame_.PaintFrame();
    frame_.PaintCornerPieces();
    decorations_.DrawNavButtons();
    InvalidateAll();
}

void RepaintDriver::InvalidateAll() { Invalidate(control_.Layout.ControlRect); }

// Without tabs the strip is restored, but not shown again.
void RepaintDriver::InvalidateBars() {
    if (control_.Properties.TabCount > 0) Invalidate(RowRect(control_));
}

void RepaintDriver::Invalidate(const LayoutRect& area) {
    const HWND window = host_.hWnd();
    if (!window) return; // a null window would stand for every window there is
    const RECT rect = {area.Left, area.Top, area.Right, area.Bottom};
    InvalidateRect(window, &rect, TRUE);
}

} // namespace vantik
