#include "DialogWatch.h"

#include <cstdio>
#include <string>
#include <string_view>

#include "host/HostError.h"

namespace vantik {

namespace {

constexpr int MessageTextId = 0xFFFF; // the text of a message box
constexpr std::wstring_view DialogClass = L"#32770";
constexpr std::wstring_view FormClass = L"VantikHostForm";

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return name;
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

void PrintAndClose(HWND window, const std::wstring& windowClass) {
    const HWND message = windowClass == DialogClass ? GetDlgItem(window, MessageTextId) : nullptr;
    if (message) {
        std::printf("message: %s\n", ToUtf8(TextOf(message)).c_str());
    } else {
        std::printf("window: %s\n", ToUtf8(TextOf(window)).c_str());
    }
    std::fflush(stdout);
    PostMessageW(window, WM_CLOSE, 0, 0);
}

LRESULT CALLBACK WatchActivation(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE) {
        const auto window = reinterpret_cast<HWND>(wParam);
        const std::wstring windowClass = ClassOf(window);
        if (!windowClass.empty() && windowClass != FormClass) PrintAndClose(window, windowClass);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace

DialogWatch::DialogWatch()
    : hook_(SetWindowsHookExW(WH_CBT, WatchActivation, nullptr, GetCurrentThreadId())) {}
DialogWatch::~DialogWatch() { UnhookWindowsHookEx(hook_); }

} // namespace vantik
