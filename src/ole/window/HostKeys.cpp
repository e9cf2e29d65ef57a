#include "ole/window/HostKeys.h"

#include <utility>

#include "ole/control/Control.h"
#include "ole/control/InputState.h"
#include "ole/window/Activation.h"

namespace vantik {

namespace {

class Raised {
public:
    explicit Raised(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

MSG AsTaken(const Message& message) noexcept {
    return {message.Window,
            message.Number,
            message.WParam,
            message.LParam,
            static_cast<DWORD>(GetMessageTime()),
            {}};
}

bool IsSame(const MSG& a, const MSG& b) noexcept {
    return a.hwnd == b.hwnd && a.message == b.message && a.wParam == b.wParam && a.lParam == b.lParam &&
           a.time == b.time;
}

bool IsLetter(UINT message) noexcept { return message == WM_CHAR || message == WM_SYSCHAR; }

} // namespace

bool HostKeys::Offer(MSG& message) {
    if (offering_) return false;
    const Raised offering(offering_);
    const auto site = control_.Site.As<IOleControlSite>();
    return (site && site->TranslateAccelerator(&message, static_cast<DWORD>(ShiftState())) == S_OK) ||
           activation_.IsFrameKey(message);
}

// The time is that of the message which the thread took last, here as in the window: what a caller writes into its message
// need not be.
bool HostKeys::UseFromLoop(MSG& message) {
    if (offering_) return false;
    MSG taken = message;
    taken.time = static_cast<DWORD>(GetMessageTime());
    const bool used = Offer(message);
    fromLoop_.reset();
    if (!used) fromLoop_ = taken;
    return used;
}

bool HostKeys::WasOffered(const MSG& message) noexcept {
    const auto offered = std::exchange(fromLoop_, std::nullopt);
    return offered && IsSame(*offered, message);
}

// The letter of a key that the host used is no key of its own.
bool HostKeys::UseFromWindow(const Message& message) {
    const auto usedDown = std::exchange(usedDown_, std::nullopt);
    if (IsLetter(message.Number) && usedDown == message.LParam) return true;
    MSG key = AsTaken(message);
    if (WasOffered(key) || !Offer(key)) return false;
    if (!IsLetter(message.Number)) usedDown_ = message.LParam;
    return true;
}

} // namespace vantik
