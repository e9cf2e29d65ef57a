// What the messages of the control's window do.
#pragma once

#include "ole/accessible/Accessibility.h"
#include "ole/accessible/Announcements.h"
#include "ole/accessible/FocusCue.h"
#include "ole/accessible/PageOrder.h"
#include "ole/accessible/Tips.h"
#include "ole/window/ControlWindow.h"
#include "ole/window/KeyInput.h"
#include "ole/window/PointerInput.h"
#include "ole/window/WheelInput.h"
#include "platform/DebugLine.h"

namespace vantik {

class Activation;

class ControlMessages final : public MessageHandler {
public:
    ControlMessages(Control& control, Activation& activation) noexcept
        : control_(control),
          activation_(activation),
          pointer_(control, activation),
          keys_(control, activation),
          wheel_(control),
          accessibility_(control),
          announcements_(control),
          cue_(control),
          pageOrder_(control),
          tips_(control) {}

    std::optional<LRESULT> Handle(const Message& message) override;
    void Failed(const Message& message) noexcept override;

    bool TranslateKey(MSG& message) { return keys_.Translate(message); }
    Watchers& Watching() noexcept { return announcements_; }
    void ChildrenMayMove() noexcept { pageOrder_.ArrangeSoon(); }
    void ReleaseCapture() noexcept { pointer_.ReleaseCapture(); }
    bool TakesWheel(std::int32_t turn) { return wheel_.Takes(turn); }

private:
    std::optional<LRESULT> Answer(const Message& message);
    void Paint(HWND window);
    void Print(HDC target);
    void Sized(LPARAM size);
    void SystemChanged(const Message& message);
    void FocusChanged(bool gained);
    LRESULT CuesChanged(const Message& message);

    Control& control_;
    Activation& activation_;
    PointerInput pointer_;
    KeyInput keys_;
    WheelInput wheel_;
    Accessibility accessibility_;
    Announcements announcements_;
    FocusCue cue_;
    PageOrder pageOrder_;
    Tips tips_;
    RepeatedFailure copying_, sizing_;
};

} // namespace vantik
