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
    if (what == Waiting::All)
        driver_.InvalidateAll();
    else
        driver_.InvalidateBars();
}

void MergedRepaint::CarryOut() {
    switch (std::exchange(waiting_, Waiting::Nothing)) {
    case Waiting::All: driver_.PaintAll(); break;
    case Waiting::Bars: driver_.PaintBars(); break;
    case Waiting::Nothing: break;
    }
}

} // namespace vantik
