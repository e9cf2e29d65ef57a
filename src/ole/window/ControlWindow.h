// The control's window: made, moved and destroyed here; what its messages do is the handler's affair. As long as a window
// lives the module is in use, also where its control has gone.
#pragma once

#include <atomic>
#include <optional>

#include "platform/mDeclares.h"

namespace vantik {

class Control;

struct Message {
    HWND Window;
    UINT Number;
    WPARAM WParam;
    LPARAM LParam;
};

class MessageHandler {
public:
    // The answer, or nothing when the system's own procedure has to see the message, too.
    virtual std::optional<LRESULT> Handle(const Message& message) = 0;

    // For use in a handler only: the error that ended the message ends here.
    virtual void Failed(const Message& message) noexcept = 0;

protected:
    ~MessageHandler() = default;
};

class ControlWindow {
public:
    ControlWindow(Control& control, MessageHandler& handler) noexcept
        : control_(control), handler_(handler) {}
    ~ControlWindow() { Destroy(); }
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    bool Create(HWND parent, const RECT& position) noexcept; // hidden
    void Move(const RECT& position) noexcept;
    void Show(bool visible) noexcept;
    void Destroy() noexcept;

    // The last reference to the control is given up by a thread that must not destroy the window: the window keeps it until
    // its own thread comes by. False where there is no such window.
    bool Keeps(IUnknown& lastReference) noexcept;

    // Null when there is no window, also when somebody else destroyed it.
    HWND Handle() const noexcept { return window_; }

    static LRESULT CALLBACK Procedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) noexcept;

private:
    static LRESULT Process(const Message& message) noexcept;
    bool Owns(HWND window) const noexcept; // not another window that has its number now
    void Forget() noexcept;
    bool Attach(HWND window) noexcept;
    void Detach() noexcept;
    LRESULT Dispatch(const Message& message) noexcept;
    LRESULT Filtered(ISimpleFrameSite& frame, const Message& message) noexcept;
    LRESULT HandleOrDefault(const Message& message) noexcept;

    Control& control_;
    MessageHandler& handler_;
    HWND window_ = nullptr;
    std::atomic<IUnknown*> kept_ = nullptr;
};

} // namespace vantik
