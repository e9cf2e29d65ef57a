// Tooltips over the row: the whole caption of a bar that shows only a part of it, and the names of the buttons.
//
// Following the pointer costs a move over the page next to nothing. A timer that a move onto a part set runs on until it
// finds nothing to wait for: setting and ending it at every bar would cost more than the move.
#pragma once

#include "ole/accessible/Part.h"
#include "ole/accessible/TipWindow.h"
#include "ole/control/Control.h"
#include "render/DecorationGeometry.h"

namespace vantik {

class Tips {
public:
    explicit Tips(Control& control) noexcept : control_(control) {}

    // Whether a message of the control's window is the tooltip's own affair.
    bool Takes(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    // What any other one means for the tooltip, before and after the control acts on it.
    void Before(UINT message) noexcept;
    void After(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

private:
    enum class Phase : std::uint8_t { Idle, Waiting, Showing, Over };

    // What shows, and what of the control it was made by.
    struct Shown {
        std::u16string Text;
        LayoutRect Area;
        std::int16_t Active = -1;
        bool operator==(const Shown&) const = default;
    };

    void PointerMoved(PixelPoint pixel);
    void Tick();
    void Show();
    void CheckShown();
    void Drop() noexcept;
    void Leave() noexcept;
    void SetTimer(DWORD milliseconds) noexcept;
    void EndTimer() noexcept;
    bool IsMeant() const;
    Shown Look() const;

    Control& control_;
    TipWindow window_;
    Phase phase_ = Phase::Idle;
    Part over_;       // the row itself for nothing
    DWORD since_ = 0; // when the pointer moved last, or the tooltip came up
    DWORD wait_ = 0;  // milliseconds from then on
    HWND timerOf_ = nullptr;
    DWORD period_ = 0;
    Shown shown_;
};

} // namespace vantik
