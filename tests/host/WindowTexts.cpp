#include "host/WindowTexts.h"

#include "host/HostError.h"

namespace vantik {

namespace {

struct Listing {
    const std::function<bool(DWORD)>& IsOne;
    std::string Text;
};

std::string ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return ToUtf8(name);
}

// Of a window whose program may not answer any more.
std::string TextOf(HWND window) {
    wchar_t text[256] = {};
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, 500,
                        &length);
    return ToUtf8(text);
}

BOOL CALLBACK AddText(HWND window, LPARAM parameter) {
    const std::string text = IsWindowVisible(window) ? TextOf(window) : std::string();
    if (!text.empty()) reinterpret_cast<Listing*>(parameter)->Text += "    " + text + "\n";
    return TRUE;
}

BOOL CALLBACK AddWindow(HWND window, LPARAM parameter) {
    auto& listing = *reinterpret_cast<Listing*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (!IsWindowVisible(window) || !listing.IsOne(process)) return TRUE;
    listing.Text += "  window \"" + TextOf(window) + "\" of class " + ClassOf(window) + "\n";
    EnumChildWindows(window, AddText, parameter);
    return TRUE;
}

} // namespace

std::string WindowTexts(const std::function<bool(DWORD)>& isOne) {
    Listing listing = {isOne, {}};
    EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&listing));
    return listing.Text;
}

} // namespace vantik
