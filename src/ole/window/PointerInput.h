// The pointer over the control's window.
#pragma once

#include "ole/window/ControlWindow.h"
#include "platform/DebugLine.h"
#include "render/DecorationGeometry.h"

namespace vantik {

class Activation;

class PointerInput {
public:
    PointerInput(Control& control, Activation& activation) noexcept
        : control_(control), activation_(activation) {}

    // Whether the message was one of the pointer's. The system's own procedure sees it afterwards in any case: it makes
    // menus and the wheel's way upwards of it.
    bool Handle(const Message& message);

    // Does nothing while another window has the pointer, or nobody.
    void ReleaseCapture() noexcept;

private:
    void Down(const Message& message, std::int16_t button);
    void DownUnderDesign(const Message& message, std::int16_t button);
    void Up(const Message& message, std::int16_t button);
    void Move(const Message& message);
    void PassOn(const Message& message);
    void Tell(const Message& message, PixelPoint pixel);
    bool TakesInput();
    void LetGo();
    void Capture(HWND window) noexcept;
    void CaptureLost();
    void HoverLost();
    template <class Body, class Failed>
    void Guard(Body body, Failed failed);
    void Settle();

    Control& control_;
    Activation& activation_;
    int busy_ = 0;          // calls into the engine that are under way
    bool lost_ = false;     // the hover ended while one was
    bool captured_ = false; // kept, because asking the system at every move is slow
    bool pressed_ = false;  // a button went down here and is not known to be up again
    RepeatedFailure moving_;
};

} // namespace vantik
