// Prints what another program's window shows in plain text: for each of its visible child windows its class, number, place
// on the screen and text, and behind a list its lines.
#include <cstdio>
#include <string>

#include "host/HostError.h"
#include "host/ProgramArguments.h"

namespace vantik {

namespace {

struct Search {
    std::wstring Ending;
    HWND Found;
};

std::wstring Received(HWND window, UINT lengthMessage, UINT textMessage, WPARAM argument) {
    const LRESULT length = SendMessageW(window, lengthMessage, argument, 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const WPARAM room = textMessage == WM_GETTEXT ? text.size() : argument;
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, textMessage, room, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

std::wstring TextOf(HWND window) { return Received(window, WM_GETTEXTLENGTH, WM_GETTEXT, 0); }

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

BOOL CALLBACK FindByEnding(HWND window, LPARAM given) {
    auto& search = *reinterpret_cast<Search*>(given);
    if (!IsWindowVisible(window) || !TextOf(window).ends_with(search.Ending)) return TRUE;
    search.Found = window;
    return FALSE;
}

void PrintLines(HWND list) {
    const LRESULT count = SendMessageW(list, LB_GETCOUNT, 0, 0);
    const LRESULT chosen = SendMessageW(list, LB_GETCURSEL, 0, 0);
    for (LRESULT line = 0; line < count; ++line) {
        const std::wstring text = Received(list, LB_GETTEXTLEN, LB_GETTEXT, static_cast<WPARAM>(line));
        std::printf("%s%s\n", line == chosen ? "> " : "- ", ToUtf8(text).c_str());
    }
}

BOOL CALLBACK Print(HWND window, LPARAM) {
    if (!IsWindowVisible(window)) return TRUE;
    RECT client = {};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    const std::wstring name = ClassOf(window);
    std::printf("%s %d %ld,%ld %ldx%ld %s\n", ToUtf8(name).c_str(), GetDlgCtrlID(window), client.left,
                client.top, client.right - client.left, client.bottom - client.top,
                ToUtf8(TextOf(window)).c_str());
    if (name == L"ListBox") PrintLines(window);
    return TRUE;
}

int Main() {
    const auto arguments = ProgramArguments();
    if (arguments.size() != 1) {
        std::fputs("usage: window_texts END-OF-TITLE\n", stderr);
        return 2;
    }
    Search search = {arguments[0], nullptr};
    EnumWindows(FindByEnding, reinterpret_cast<LPARAM>(&search));
    if (!search.Found) return 1;
    std::printf("title %s\n", ToUtf8(TextOf(search.Found)).c_str());
    EnumChildWindows(search.Found, Print, 0);
    return 0;
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
