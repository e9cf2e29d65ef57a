// The control's place in the host's window: the conversation with the in-place site, and the window itself.
#pragma once

#include "ole/control/ControlPlace.h"
#include "ole/window/ControlMessages.h"
#include "ole/window/ControlWindow.h"
#include "ole/window/RowStop.h"
#include "platform/ComPtr.h"

namespace vantik {

class Control;

// Who is to have the focus afterwards.
enum class FocusOn : std::uint8_t {
    Control,       // the user or the host wants the control itself: a window on it gives the focus up
    ControlOrChild // the focus is here already, and may have gone on to a window on the control
};

class Activation final : public ControlPlace {
public:
    explicit Activation(Control& control) noexcept;

    HRESULT InPlaceActivate();
    HRESULT UIActivate(FocusOn wanted = FocusOn::Control);
    bool IsUIActive() const noexcept { return uiActive_; }
    void UIDeactivate() noexcept;
    void InPlaceDeactivate() noexcept override;

    // For good: whatever the host does from now on, there is no window any more.
    void End() noexcept;

    void SetRects(const RECT& position, const RECT* clip);
    void Show(bool visible) noexcept;

    // The host asked for another size while the control is active: it has to give the window its place.
    void AskForSize(SIZE pixels);

    HWND Window() const noexcept override { return window_.Handle(); }
    HWND RowStop() const noexcept override { return rowStop_.Handle(); }
    bool KeepsWithWindow(IUnknown& lastReference) noexcept { return window_.Keeps(lastReference); }
    Watchers& Watching() noexcept override { return messages_.Watching(); }
    void ChildrenMayMove() noexcept override { messages_.ChildrenMayMove(); }
    void ReleaseCapture() noexcept override { messages_.ReleaseCapture(); }
    // Whether the control or its host used the key that the host's message loop asks about.
    bool TranslateKey(MSG& message) { return messages_.TranslateKey(message); }

    bool TakesWheel(std::int32_t turn) override { return messages_.TakesWheel(turn); }
    POINT Position() const noexcept override;
    ComPtr<IOleInPlaceFrame> Frame() const noexcept override { return frame_; }

    // From the window.
    void Pressed();
    void FocusChanged(bool gained);
    bool IsFrameKey(MSG& message) noexcept; // and used by the frame now
    HWND NextStopOnPage() const noexcept { return rowStop_.NextOnPage(); }

private:
    class Attempt;

    bool IsHere() const noexcept { return active_ && Window(); }
    HRESULT EnterSite();
    HRESULT MakeWindow();
    HRESULT EnterUI();
    void TakeFocus(FocusOn wanted) noexcept;
    void TakeWindowAway() noexcept;
    ComPtr<IOleInPlaceSite> ForgetSite() noexcept;
    void AnnounceActiveObject() noexcept;
    void ClipTo(const RECT& clip) noexcept;

    Control& control_;
    ControlMessages messages_;
    ControlWindow window_;
    vantik::RowStop rowStop_;
    ComPtr<IOleInPlaceSite> site_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IOleInPlaceUIWindow> document_;
    OLEINPLACEFRAMEINFO frameInfo_ = {};
    RECT position_ = {};
    bool active_ = false, uiActive_ = false, clipped_ = false;
    bool announced_ = false; // as the object that has the keyboard
    bool leaving_ = false;   // nothing begins before that is over
};

} // namespace vantik
