// acctree: what a screen reader finds in a window.
#include <cstdio>
#include <cwchar>

#include "acctree/CommandLine.h"
#include "acctree/TreeCheck.h"
#include "acctree/TreeText.h"
#include "host/OleApartment.h"

namespace vantik {

namespace {

// The first window inside whose client area is a list of tabs.
BOOL CALLBACK FindTabs(HWND window, LPARAM found) {
    const auto node = Node::OfWindow(window);
    if (!node || node->Role() != ROLE_SYSTEM_PAGETABLIST) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND WindowNamed(const std::wstring& name) {
    if (name.starts_with(L"0x")) {
        const auto number = static_cast<ULONG_PTR>(std::wcstoull(name.c_str(), nullptr, 16));
        const auto window = reinterpret_cast<HWND>(number);
        return IsWindow(window) ? window : nullptr;
    }
    const HWND titled = FindWindowW(nullptr, name.c_str());
    HWND inside = titled;
    if (titled) EnumChildWindows(titled, FindTabs, reinterpret_cast<LPARAM>(&inside));
    return inside;
}

HWND WaitFor(const CommandLine& line) {
    const ULONGLONG end = GetTickCount64() + 1000ULL * static_cast<ULONGLONG>(line.WaitSeconds);
    HWND window = WindowNamed(line.Window);
    for (; !window && GetTickCount64() < end; window = WindowNamed(line.Window)) Sleep(100);
    return window;
}

int Report(const Node& root) {
    const auto faults = FaultsOf(root);
    for (const std::string& fault : faults) std::printf("%s\n", fault.c_str());
    return faults.empty() ? 0 : 1;
}

int Print(const Node& root, HWND window) {
    TreeOptions options;
    ClientToScreen(window, &options.Origin);
    std::fputs(TreeText(root, options).c_str(), stdout);
    return 0;
}

int ReadUntilGone(HWND window) {
    int readings = 0;
    for (auto root = Node::OfWindow(window); root && IsWindow(window);
         root = Node::OfWindow(window), ++readings)
        TreeText(*root, {});
    std::printf("%d readings\n", readings);
    return 0;
}

int Run(const CommandLine& line) {
    const OleApartment apartment;
    const HWND window = WaitFor(line);
    const auto root = window ? Node::OfWindow(window) : std::nullopt;
    if (!root) {
        std::fputs("acctree: there is no such window\n", stderr);
        return 1;
    }
    if (line.UntilGone) return ReadUntilGone(window);
    return line.Check ? Report(*root) : Print(*root, window);
}

} // namespace

} // namespace vantik

int wmain(int count, wchar_t** arguments) {
    const auto line = vantik::Parse(count, arguments);
    if (line && line->Help) return std::fputs(vantik::Usage, stdout) < 0;
    if (line) return vantik::Run(*line);
    std::fputs(vantik::Usage, stderr);
    return 2;
}
