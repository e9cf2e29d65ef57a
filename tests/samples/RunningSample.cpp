#include "samples/RunningSample.h"

#include "acctree/TreeText.h"
#include "host/BuiltControl.h"
#include "host/HostError.h"
#include "host/StartProgram.h"

namespace vantik {

namespace {

constexpr DWORD Patience = 30'000; // milliseconds

// Of the process: a form of one that was ended may still be there for a moment.
struct Wanted {
    DWORD Process;
    const std::wstring& Title;
    HWND Found = nullptr;
};

BOOL CALLBACK FindForm(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<Wanted*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t title[128] = {};
    GetWindowTextW(window, title, 128);
    if (process != wanted.Process || title != wanted.Title || !IsWindowVisible(window)) return TRUE;
    wanted.Found = window;
    return FALSE;
}

} // namespace

RunningSample::RunningSample(const std::wstring& program, const std::wstring& title)
    : process_(StartProgram(L"\"" + ProgramFolder() + L"\\..\\..\\samples\\" + program + L"\"")) {
    const bool came = Becomes([&] {
        Wanted wanted = {GetProcessId(process_), title};
        EnumWindows(FindForm, reinterpret_cast<LPARAM>(&wanted));
        form_ = wanted.Found;
        return form_ != nullptr;
    });
    if (!came) throw HostError("the sample shows no form");
}

RunningSample::~RunningSample() {
    TerminateProcess(process_, 1);
    CloseHandle(process_);
}

HWND RunningSample::Tabs() const { return FindWindowExW(form_, nullptr, L"VantikFrameTab", nullptr); }

std::string RunningSample::Tree() const {
    TreeOptions options;
    ClientToScreen(Tabs(), &options.Origin);
    const auto root = Node::OfWindow(Tabs());
    return root ? TreeText(*root, options) : std::string();
}

void RunningSample::Press(WORD key) const {
    PostMessageW(Tabs(), WM_KEYDOWN, key, 1);
    PostMessageW(Tabs(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

bool RunningSample::Becomes(const std::function<bool()>& holds) {
    for (const ULONGLONG end = GetTickCount64() + Patience; GetTickCount64() < end; Sleep(50))
        if (holds()) return true;
    return holds();
}

DWORD RunningSample::Close() const {
    PostMessageW(form_, WM_CLOSE, 0, 0);
    WaitForSingleObject(process_, Patience);
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    return code;
}

} // namespace vantik
