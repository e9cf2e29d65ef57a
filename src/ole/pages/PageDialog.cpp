#include "ole/pages/PageDialog.h"

#include <utility>

#include "ole/com/Module.h"
#include "platform/ComPtr.h"
#include "platform/DebugLine.h"
#include "platform/Module.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

constexpr UINT RefreshDue = WM_APP; // those below are the dialog's own

// The module stays as long as there is a window that leads into it.
void Count(HWND window) noexcept {
    LockModule();
    SetWindowLongPtrW(window, GWLP_USERDATA, TRUE);
}

void Uncount(HWND window) noexcept {
    if (SetWindowLongPtrW(window, GWLP_USERDATA, FALSE)) UnlockModule();
}

// Only its own thread can destroy a window. On others it is left to itself, and closes when its thread comes by.
void DestroyOrClose(HWND window) noexcept {
    if (!DestroyWindow(window)) PostMessageW(window, WM_CLOSE, 0, 0);
}

} // namespace

bool PageDialog::Create(WORD dialog, HWND parent) noexcept {
    CreateDialogParamW(ThisModule(), MAKEINTRESOURCEW(dialog), parent, Procedure,
                       reinterpret_cast<LPARAM>(this));
    return window_ != nullptr;
}

// Its last messages say nothing to a page that may be ending itself.
void PageDialog::Destroy() noexcept {
    const HWND window = std::exchange(window_, nullptr);
    if (!window) return;
    SetWindowLongPtrW(window, DWLP_USER, 0);
    DestroyOrClose(window);
}

void PageDialog::RefreshSoon() noexcept {
    if (window_ && !refreshIsDue_) refreshIsDue_ = PostMessageW(window_, RefreshDue, 0, 0);
}

// A dialog that belongs to nobody, below no window that could show it.
SIZE PageDialog::SizeOf(WORD dialog) noexcept {
    const HWND window =
        CreateDialogParamW(ThisModule(), MAKEINTRESOURCEW(dialog), HWND_MESSAGE, Procedure, 0);
    if (!window) return {};
    RECT area = {};
    GetWindowRect(window, &area);
    DestroyOrClose(window);
    return {area.right - area.left, area.bottom - area.top};
}

INT_PTR CALLBACK PageDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) Count(window), SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* dialog = reinterpret_cast<PageDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    const bool isHandled = dialog && dialog->Handles(window, message, wParam, lParam);
    if (!dialog && message == WM_CLOSE) DestroyWindow(window);
    if (message == WM_NCDESTROY) Uncount(window);
    return isHandled;
}

bool PageDialog::Handles(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const ComPtr<IUnknown> alive(&owner_.Object());
    if (message == WM_INITDIALOG) window_ = window;
    if (message == WM_NCDESTROY) window_ = nullptr, refreshIsDue_ = false;
    try {
        return Answer(message, wParam, lParam);
    } catch (...) {
        TellIfShortage();
        TellDebugger(u"on a property page");
        return false;
    }
}

// The frame says where the keyboard is, so that nothing takes it at the beginning.
bool PageDialog::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: owner_.Opened(); return false;
    case WM_COMMAND:
        if (lParam) owner_.Command(LOWORD(wParam), HIWORD(wParam));
        return lParam != 0;
    case RefreshDue:
        refreshIsDue_ = false;
        owner_.Refresh();
        return true;
    case WM_DRAWITEM:
        owner_.Draw(static_cast<WORD>(wParam), *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return true;
    default: return false;
    }
}

} // namespace vantik
