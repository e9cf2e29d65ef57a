// The control's place in its host's window, as the control itself knows it.
#pragma once

#include <cstdint>

#include "ole/control/Watchers.h"
#include "platform/ComPtr.h"

namespace vantik {

class ControlPlace {
public:
    virtual HWND Window() const noexcept = 0;    // null while there is none
    virtual HWND RowStop() const noexcept = 0;   // a window on it that is no child of any tab; null for none
    virtual POINT Position() const noexcept = 0; // pixels, in the host's window
    virtual ComPtr<IOleInPlaceFrame> Frame() const noexcept = 0;

    virtual Watchers& Watching() noexcept = 0;

    virtual void ChildrenMayMove() noexcept = 0; // those that were asked for

    virtual void ReleaseCapture() noexcept = 0;
    virtual bool TakesWheel(std::int32_t turn) = 0;

    virtual void InPlaceDeactivate() noexcept = 0;

protected:
    ~ControlPlace() = default;
};

} // namespace vantik
