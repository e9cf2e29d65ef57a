#include "render/MergedRepaint.h"

#include <utility>

namespace vantik {

void MergedRepaint::RepaintAll() {
    try {
        driver_.PrepareAll();
    } catch (...) {
        waiting_ = Waiting::Nothing; // overwritten
        driver_.RepaintAll();
        throw;
    }
    WaitFor(Waiting::All);
}

// A full repaint that waits will paint the bars as they are then.
void MergedRepaint::RedrawBars() {
    try {
        driver_.PrepareBars();
    } catch (...) {
        CarryOut();
        driver_.RedrawBars();
        throw;
    }
    if (waiting_ != Waiting::All) WaitFor(Waiting::Bars);
}

// A repaint that waits will paint the bar as it is then.
void MergedRepaint::RedrawBar(std::int16_t index, std::uint8_t state) {
    if (IsWaiting()) return driver_.PrepareBars();
    driver_.RedrawBar(index, state);
}

void MergedRepaint::RepaintFrame() {
    CarryOut();
    driver_.RepaintFrame();
}

// The window has been told already when the same repaint waits since before.
void MergedRepaint::WaitFor(Waiting what) {
    if (waiting_ == what) return;
    waiting_ = what;
    const LayoutCache& layout = control_.Layout;
    if (what == Waiting::All)
        Invalidate(layout.ControlRect);
    else if (control_.Properties.TabCount > 0) // without tabs the strip is restored, but not shown again
        Invalidate(layout.BarStripRect);
}

void MergedRepaint::Invalidate(const LayoutRect& area) {
    const HWND window = host_.hWnd();
    const RECT rect = {area.Left, area.Top, area.Right, area.Bottom};
    if (window) InvalidateRect(window, &rect, TRUE);
}

void MergedRepaint::CarryOut() {
    switch (std::exchange(waiting_, Waiting::Nothing)) {
    case Waiting::All: driver_.PaintAll(); break;
    case Waiting::Bars: driver_.PaintBars(); break;
    case Waiting::Nothing: break;
    }
}

} // namespace vantik
