#include "about/frmAbout.h"

#include "platform/ComPtr.h"
#include "platform/Module.h"
#include "platform/PictureLoading.h"

namespace vantik {

namespace {

constexpr wchar_t ClassName[] = L"VantikFrameTab.frmAbout";
constexpr wchar_t Caption[] = L"Form1";
constexpr int PictureWidth = 400, PictureHeight = 300; // pixels
constexpr DWORD Style = WS_POPUP | WS_CAPTION | WS_SYSMENU;

struct Form {
    ComPtr<IPicture> Picture;
    HWND Disabled;         // the owner, if it takes input again after the card
    HWND Window = nullptr; // null again when the card is gone
};

Form* FormOf(HWND window) { return reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA)); }

void Paint(HWND window, const Form& form) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (form.Picture && SUCCEEDED(form.Picture->get_Width(&width)) &&
        SUCCEEDED(form.Picture->get_Height(&height)))
        form.Picture->Render(dc, 0, 0, PictureWidth, PictureHeight, 0, height, width, -height, nullptr);
    EndPaint(window, &paint);
}

// The owner is enabled before the card goes, or another program's window would come to the front.
void Unload(HWND window) {
    const Form* form = FormOf(window);
    if (form && form->Disabled) EnableWindow(form->Disabled, TRUE);
    DestroyWindow(window);
}

LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Form* form = FormOf(window);
    switch (message) {
    case WM_PAINT:
        if (form)
            Paint(window, *form);
        else
            ValidateRect(window, nullptr);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_CLOSE: Unload(window); return 0;
    case WM_KEYDOWN:
        if (wParam == VK_ESCAPE) Unload(window);
        return 0;
    case WM_NCDESTROY:
        if (form) form->Window = nullptr;
        PostMessageW(nullptr, WM_NULL, 0, 0); // a loop that waits for input looks whether its card is there
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Where the class is known already this fails, and where it failed the next card tries again.
void RegisterFormClass() noexcept {
    WNDCLASSW description = {};
    description.lpfnWndProc = FormProcedure;
    description.hInstance = ThisModule();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = ClassName;
    RegisterClassW(&description);
}

BOOL CALLBACK FindForm(HWND window, LPARAM found) {
    const bool isForm = GetClassLongPtrW(window, GCLP_WNDPROC) == reinterpret_cast<ULONG_PTR>(FormProcedure);
    if (isForm) *reinterpret_cast<HWND*>(found) = window;
    return !isForm;
}

// The card that is up, if there is one: each apartment has its own.
HWND LoadedForm() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindForm, reinterpret_cast<LPARAM>(&found));
    return found;
}

RECT CentredOver(HWND owner) {
    RECT area = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    if (owner) GetWindowRect(owner, &area);
    RECT window = {0, 0, PictureWidth, PictureHeight};
    AdjustWindowRect(&window, Style, FALSE);
    const LONG width = window.right - window.left, height = window.bottom - window.top;
    const LONG left = area.left + (area.right - area.left - width) / 2;
    const LONG top = area.top + (area.bottom - area.top - height) / 2;
    return {left, top, left + width, top + height};
}

// Returns when the window is gone, or when the program is told to end.
void RunModal(const Form& form) {
    MSG message;
    while (form.Window) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
            if (form.Window) Unload(form.Window);
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

void UnregisterAboutWindowClass() noexcept { UnregisterClassW(ClassName, ThisModule()); }

void ShowAbout(HWND control) noexcept {
    if (const HWND earlier = LoadedForm()) Unload(earlier);
    RegisterFormClass();
    const HWND owner = control ? GetAncestor(control, GA_ROOT) : GetActiveWindow();
    Form form{PictureFrom(ResourceBytes(L"ABOUT", L"CUSTOM")), IsWindowEnabled(owner) ? owner : nullptr};
    const RECT place = CentredOver(owner);
    form.Window =
        CreateWindowExW(0, ClassName, Caption, Style, place.left, place.top, place.right - place.left,
                        place.bottom - place.top, owner, nullptr, ThisModule(), nullptr);
    if (!form.Window) return;
    SetWindowLongPtrW(form.Window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&form));
    if (form.Disabled) EnableWindow(form.Disabled, FALSE);
    ShowWindow(form.Window, SW_SHOW);
    SetFocus(form.Window);
    RunModal(form);
}

} // namespace vantik
