// The form's message loop.
#pragma once

#include <functional>

#include "host/HostForm.h"

namespace vantik {

// Handles everything that waits, painting included, and returns.
void PumpMessages(HostForm& form);

// Until somebody posts WM_QUIT; returns its exit code.
int RunMessages(HostForm& form);

// Pumps until the condition holds; false when it did not within the time.
bool PumpUntil(HostForm& form, const std::function<bool()>& condition, DWORD milliseconds);

} // namespace vantik
