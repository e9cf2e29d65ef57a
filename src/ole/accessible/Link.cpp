#include "ole/accessible/Link.h"

#include "ole/com/ErrorInfo.h"

namespace vantik {

namespace {

Control& ReachedBy(const Link& link) {
    Control* const control = link.Reached();
    if (!control) RaiseHostError(CO_E_OBJNOTCONNECTED);
    return *control;
}

} // namespace

Connected::Connected(const Link& link) : control_(ReachedBy(link)), alive_(&control_.Controlling) {}

} // namespace vantik
