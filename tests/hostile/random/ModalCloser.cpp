#include "hostile/random/ModalCloser.h"

#include <string_view>

#include "hostile/random/World.h"

namespace vantik {

namespace {

World* watching = nullptr; // a hook brings nothing of ours along

constexpr std::wstring_view Card = L"VantikFrameTab.frmAbout";

} // namespace

ModalCloser::ModalCloser(World& world)
    : hook_(SetWindowsHookExW(WH_CBT, Watch, nullptr, GetCurrentThreadId())) {
    watching = &world;
}

ModalCloser::~ModalCloser() {
    UnhookWindowsHookEx(hook_);
    watching = nullptr;
}

LRESULT CALLBACK ModalCloser::Watch(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND)
        Close(reinterpret_cast<HWND>(wParam), *reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// What is posted now is found by the loop of the window that is being made.
void ModalCloser::Close(HWND window, const CREATESTRUCTW& creation) noexcept {
    const bool isAtom = reinterpret_cast<ULONG_PTR>(creation.lpszClass) <= 0xFFFF;
    const bool isDialog = isAtom && reinterpret_cast<ULONG_PTR>(creation.lpszClass) == 32770;
    const bool isCard = !isAtom && creation.lpszClass == Card;
    if (isDialog) PostMessageW(window, WM_COMMAND, IDOK, 0);
    if (isDialog) PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    if (isCard && watching->Draw.OneIn(2)) PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
    if (isDialog || isCard) PostMessageW(window, WM_CLOSE, 0, 0);
}

} // namespace vantik
