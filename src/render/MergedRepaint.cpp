#include "render/MergedRepaint.h"

#include <utility>

namespace vantik {

// While this lives, the row is the one that the waiting repaint was asked for.
class MergedRepaint::AsAsked {
public:
    explicit AsAsked(MergedRepaint& repaint) noexcept
        : repaint_(repaint), current_(repaint.CurrentRow()), asked_(repaint.asked_) {
        repaint_.CurrentRow(asked_);
    }
    // Painting may run code of the host: what that made of the row stays.
    ~AsAsked() {
        if (repaint_.CurrentRow() == asked_) repaint_.CurrentRow(current_);
    }
    AsAsked(const AsAsked&) = delete;
    AsAsked& operator=(const AsAsked&) = delete;

private:
    MergedRepaint& repaint_;
    Row current_, asked_;
};

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

void MergedRepaint::RepaintAfresh() {
    waiting_ = Waiting::Nothing;
    RepaintAll();
}

// A full repaint that waits will paint the bars as they are then.
void MergedRepaint::RedrawBars() {
    if (waiting_ == Waiting::All) CarryOutOtherRow();
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

void MergedRepaint::CarryOutOtherRow() {
    if (IsWaiting() && asked_ != CurrentRow()) CarryOut();
}

// The window has been told already when the same repaint waits since before.
void MergedRepaint::WaitFor(Waiting what) {
    asked_ = CurrentRow();
    if (waiting_ == what) return;
    waiting_ = what;
    if (what == Waiting::All)
        driver_.InvalidateAll();
    else
        driver_.InvalidateBars();
}

void MergedRepaint::CarryOut() {
    if (!IsWaiting()) return;
    const AsAsked row(*this);
    switch (std::exchange(waiting_, Waiting::Nothing)) {
    case Waiting::All: driver_.PaintAll(); break;
    case Waiting::Bars: driver_.PaintBars(); break;
    case Waiting::Nothing: break;
    }
}

} // namespace vantik
