// Keeps the window from showing the steps of an operation that moves many children.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

class PaintingFreeze {
public:
    // Only one window of the desktop can be frozen at a time; without a window there is nothing to freeze.
    explicit PaintingFreeze(HWND window) noexcept : frozen_(window && LockWindowUpdate(window)) {}
    ~PaintingFreeze() { Release(); }
    PaintingFreeze(const PaintingFreeze&) = delete;
    PaintingFreeze& operator=(const PaintingFreeze&) = delete;

    void Release() noexcept {
        if (frozen_) LockWindowUpdate(nullptr);
        frozen_ = false;
    }

private:
    bool frozen_;
};

} // namespace vantik
