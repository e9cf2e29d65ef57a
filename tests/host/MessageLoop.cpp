#include "host/MessageLoop.h"

namespace vantik {

namespace {

void Handle(HostForm& form, MSG& message) {
    if (form.TranslateMessage(message)) return;
    ::TranslateMessage(&message);
    DispatchMessageW(&message);
}

bool IsInside(HWND window, HWND ancestor) noexcept {
    return ancestor && window && (window == ancestor || IsChild(ancestor, window));
}

bool IsKey(UINT message) noexcept { return message >= WM_KEYFIRST && message <= WM_KEYLAST; }

} // namespace

bool HostForm::HasFocus() const { return IsInside(GetFocus(), ControlWindow()); }

// A control that lost the focus to something else on the form is told so.
void HostForm::LetGoOfKeyboard() {
    if (!uiActive_ || !inPlace_ || HasFocus() || !GetFocus()) return;
    const ComPtr<IOleInPlaceObject> object = inPlace_;
    object->UIDeactivate();
}

bool HostForm::TranslateMessage(MSG& message) {
    LetGoOfKeyboard();
    if (!IsKey(message.message) || !window_.Handle()) return false;
    if (!IsInside(message.hwnd, window_.Handle())) return false;
    if (message.hwnd == ControlWindow() ? OfferToControl(message) : UsesKey(message)) return true;
    return window_.Handle() && IsDialogMessageW(window_.Handle(), &message);
}

bool HostForm::UsesKey(const MSG& message) {
    const auto key = handlers_.Key; // it may end the form
    return key && key(message);
}

bool HostForm::OfferToControl(MSG& message) {
    const auto active = frame_->ActiveObject();
    const auto object = active ? active : control_.As<IOleInPlaceActiveObject>();
    return switches_.ForwardKeys && uiActive_ && object && object->TranslateAccelerator(&message) == S_OK;
}

void PumpMessages(HostForm& form) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // for the loop that waits for it
            return;
        }
        Handle(form, message);
    }
}

int RunMessages(HostForm& form) {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) Handle(form, message);
    return static_cast<int>(message.wParam);
}

bool PumpUntil(HostForm& form, const std::function<bool()>& condition, DWORD milliseconds) {
    const ULONGLONG start = GetTickCount64();
    while (!condition()) {
        const ULONGLONG passed = GetTickCount64() - start;
        if (passed >= milliseconds) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(milliseconds - passed), QS_ALLINPUT);
        PumpMessages(form);
    }
    return true;
}

} // namespace vantik
