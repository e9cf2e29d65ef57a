// The control in place on a window of its own, whoever made it: set through its interface, driven by messages, looked at
// as pixels.
#pragma once

#include <VantikFrameTabProject.h>

#include <cstdint>
#include <functional>
#include <string>

#include "gfx/TestSurface.h"
#include "host/NumberedDispatch.h"
#include "ole/OddSite.h"

namespace vantik {

class EventLog final : public ComObject<NumberedDispatch> {
public:
    // Since the last call: "TabMove 1; TabDown 1 1".
    std::string Take();

    // Sees each event after it was logged and may change its first argument; without arguments it gets none.
    std::function<void(const std::string& name, std::int16_t* argument)> During;

    HRESULT Result = S_OK; // what the handler returns

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override;

private:
    std::string log_;
};

class WindowedControl {
public:
    // The place is in pixels of the window.
    WindowedControl(const ComPtr<IUnknown>& control, const RECT& place);
    ~WindowedControl();
    WindowedControl(const WindowedControl&) = delete;
    WindowedControl& operator=(const WindowedControl&) = delete;

    ::_VantikFrameTab& Tab() const noexcept { return *tab_.Get(); }
    EventLog& Events() const noexcept { return *events_.Get(); }
    OddSite& Site() const noexcept { return *site_.Get(); }
    IOleObject& Object() const noexcept { return *object_.Get(); }
    HWND Window() const noexcept { return window_; }

    // What the window shows now.
    test::Pixels Picture() const;

    // Pixels relative to the control.
    void Move(POINT to) const { Send(WM_MOUSEMOVE, 0, to); }
    void Press(POINT at) const; // a move to there, and the left button down
    void Release(POINT at) const { Send(WM_LBUTTONUP, 0, at); }
    void Click(POINT at) const {
        Press(at);
        Release(at);
    }

private:
    void Send(UINT message, WPARAM keys, POINT at) const;
    void ConnectEvents();

    ComPtr<OddSite> site_ = MakeCom<OddSite>();
    ComPtr<EventLog> events_ = MakeCom<EventLog>();
    ComPtr<IOleObject> object_;
    ComPtr<::_VantikFrameTab> tab_;
    HWND window_ = nullptr;
};

} // namespace vantik
