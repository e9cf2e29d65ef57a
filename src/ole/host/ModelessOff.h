// The host's windows take no input while one of these lives.
#pragma once

#include <utility>

#include "platform/ComPtr.h"

namespace vantik {

class ModelessOff {
public:
    explicit ModelessOff(ComPtr<IOleInPlaceFrame> frame) noexcept : frame_(std::move(frame)) {
        Enable(FALSE);
    }
    ~ModelessOff() { Enable(TRUE); }
    ModelessOff(const ModelessOff&) = delete;
    ModelessOff& operator=(const ModelessOff&) = delete;

private:
    void Enable(BOOL enable) noexcept {
        if (frame_) frame_->EnableModeless(enable);
    }

    ComPtr<IOleInPlaceFrame> frame_;
};

} // namespace vantik
