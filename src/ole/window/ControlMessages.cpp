#include "ole/window/ControlMessages.h"

#include "ole/control/Control.h"
#include "ole/window/Activation.h"
#include "ole/window/SystemChanges.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

class PaintScope {
public:
    explicit PaintScope(HWND window) noexcept : window_(window) { BeginPaint(window, &paint_); }
    ~PaintScope() { EndPaint(window_, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;

    HDC DC() const noexcept { return paint_.hdc; }
    const RECT& Area() const noexcept { return paint_.rcPaint; }

private:
    HWND window_;
    PAINTSTRUCT paint_ = {};
};

constexpr UINT_PTR LookAgain =
    0x46546162;                   // no number that a host would give to a timer of its own on the window
constexpr UINT SoonEnough = 1000; // milliseconds

// Where painting lacked something, the window is painted once more a little later: nobody else may ever ask for it.
class SecondLook {
public:
    explicit SecondLook(HWND window) noexcept : window_(window) {}
    ~SecondLook() {
        if (ShortagesSoFar() != before_) SetTimer(window_, LookAgain, SoonEnough, nullptr);
    }
    SecondLook(const SecondLook&) = delete;
    SecondLook& operator=(const SecondLook&) = delete;

    static void Take(HWND window) noexcept {
        KillTimer(window, LookAgain);
        InvalidateRect(window, nullptr, FALSE);
    }

private:
    HWND window_;
    unsigned before_ = ShortagesSoFar();
};

// What a plain window on the control has to say is meant for the host, which placed it there.
bool IsChildNotification(const Message& message) noexcept {
    switch (message.Number) {
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL: return message.LParam != 0;
    case WM_NOTIFY:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_COMPAREITEM:
    case WM_DELETEITEM:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC: return true;
    default: return false;
    }
}

// Where that is not told in the course of it. The wheel has turned already.
bool MayChangeRow(UINT message) noexcept {
    switch (message) {
    case WM_SHOWWINDOW:
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_MOUSEWHEEL: return true;
    default: return false;
    }
}

} // namespace

std::optional<LRESULT> ControlMessages::Handle(const Message& message) {
    if (tips_.Takes(message.Number, message.WParam, message.LParam)) return 0;
    tips_.Before(message.Number);
    const auto answer = Answer(message);
    tips_.After(message.Number, message.WParam, message.LParam);
    if (MayChangeRow(message.Number)) announcements_.RowChanged();
    return answer;
}

std::optional<LRESULT> ControlMessages::Answer(const Message& message) {
    if (pointer_.Handle(message)) return std::nullopt;
    if (IsChildNotification(message))
        return SendMessageW(GetParent(message.Window), message.Number, message.WParam, message.LParam);
    if (IsSystemChange(message.Number)) SystemChanged(message);
    switch (message.Number) {
    case WM_PAINT: Paint(message.Window); return 0;
    case WM_PRINTCLIENT: Print(reinterpret_cast<HDC>(message.WParam)); return 0;
    case WM_ERASEBKGND: return 1; // painting covers everything
    case WM_SIZE: Sized(message.LParam); return 0;
    case WM_TIMER:
        if (message.WParam != LookAgain) return std::nullopt;
        SecondLook::Take(message.Window);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: FocusChanged(message.Number == WM_SETFOCUS); return 0;
    case WM_PARENTNOTIFY:
        if (LOWORD(message.WParam) == WM_CREATE) pageOrder_.ArrangeSoon();
        return std::nullopt;
    case PageOrder::Due: pageOrder_.Arrange(); return 0;
    case WM_DESTROY: pageOrder_.End(); return std::nullopt;
    case WM_UPDATEUISTATE: return CuesChanged(message);
    case WM_MOUSEWHEEL: return wheel_.HandOn(message);
    case WM_GETDLGCODE: return keys_.WantedOf(reinterpret_cast<const MSG*>(message.LParam));
    case WM_GETOBJECT:
        if (static_cast<LONG>(message.LParam) != OBJID_CLIENT) return std::nullopt;
        return accessibility_.Answer(message.WParam);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_CHAR:
    case WM_SYSCHAR:
        if (keys_.Use(message)) return 0;
        return std::nullopt;
    default: return std::nullopt;
    }
}

void ControlMessages::Failed(const Message& message) noexcept {
    announcements_.RowChanged();
    switch (message.Number) {
    case WM_PAINT: return copying_.Failed(u"while it was shown");
    case WM_SIZE: return sizing_.Failed(u"while it was resized");
    default: TellDebugger(u"on a message of its window");
    }
}

// What waits is painted first: what that invalidates still belongs to this message.
void ControlMessages::Paint(HWND window) {
    const SecondLook second(window);
    Surface& surface = control_.PaintedSurface();
    cue_.Update();
    const PaintScope paint(window);
    surface.CopyPart(paint.DC(), paint.Area());
    cue_.Draw(paint.DC());
    copying_.Succeeded();
}

// First the system takes note, and tells the windows on the control.
LRESULT ControlMessages::CuesChanged(const Message& message) {
    const LRESULT result = DefWindowProcW(message.Window, message.Number, message.WParam, message.LParam);
    cue_.Update();
    return result;
}

void ControlMessages::Print(HDC target) {
    const SIZE size = control_.Size.Pixels();
    if (target) control_.PaintedSurface().CopyPart(target, {0, 0, size.cx, size.cy});
}

void ControlMessages::Sized(LPARAM size) {
    pageOrder_.ArrangeSoon();
    if (!control_.Size.Pixels({LOWORD(size), HIWORD(size)})) return;
    control_.Resized();
    sizing_.Succeeded();
}

// One change comes as several messages: what they ask for is painted once, when the window's turn comes.
void ControlMessages::SystemChanged(const Message& message) {
    PassSystemChangeOn(message);
    if (control_.Document.IsReady()) control_.Engine.RepaintAll();
}

void ControlMessages::FocusChanged(bool gained) {
    cue_.Focused(gained);
    announcements_.FocusChanged(gained);
    activation_.FocusChanged(gained);
}

} // namespace vantik
