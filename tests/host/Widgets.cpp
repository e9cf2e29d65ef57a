#include "host/Widgets.h"

#include "gfx/Handles.h"

namespace vantik {

namespace {

int CALLBACK NoteFamily(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool HasFamily(HDC dc, const wchar_t* name) {
    LOGFONTW wanted = {};
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(wanted.lfFaceName, name, LF_FACESIZE);
    bool found = false;
    EnumFontFamiliesExW(dc, &wanted, NoteFamily, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

// The first that the machine has; the last one every machine maps to something.
const wchar_t* BestFamily() {
    const ScreenDC screen = GetScreenDC();
    for (const wchar_t* name : {L"Segoe UI", L"Liberation Sans", L"DejaVu Sans"}) {
        if (HasFamily(screen.Get(), name)) return name;
    }
    return L"Tahoma";
}

} // namespace

int ScreenResolution() { return GetDeviceCaps(GetScreenDC().Get(), LOGPIXELSY); }

FormFont::FormFont() : FormFont(ScreenResolution()) {}

FormFont::FormFont(int dotsPerInch) : name_(BestFamily()) {
    const int height = MulDiv(static_cast<int>(Points), dotsPerInch, 72);
    font_ = CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                        CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, name_.c_str());
}

HWND MakeWidget(HWND parent, const wchar_t* windowClass, const std::wstring& text, DWORD style, Box place,
                int id, const FormFont& font) {
    const bool isField = lstrcmpiW(windowClass, L"EDIT") == 0 || lstrcmpiW(windowClass, L"LISTBOX") == 0;
    const HWND widget = CreateWindowExW(
        isField ? WS_EX_CLIENTEDGE : 0, windowClass, text.c_str(), WS_CHILD | WS_VISIBLE | style, place.Left,
        place.Top, place.Width, place.Height, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(widget, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    return widget;
}

void MoveWidget(HWND widget, Box place) {
    SetWindowPos(widget, nullptr, place.Left, place.Top, place.Width, place.Height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

} // namespace vantik
