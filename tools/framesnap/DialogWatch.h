// Closes what would wait for a user: message boxes and other modal windows of the control.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

// While one exists, every such window of this thread is printed, "message: TEXT" or "window: TITLE", and closed.
class DialogWatch {
public:
    DialogWatch();
    ~DialogWatch();
    DialogWatch(const DialogWatch&) = delete;
    DialogWatch& operator=(const DialogWatch&) = delete;

private:
    HHOOK hook_;
};

} // namespace vantik
