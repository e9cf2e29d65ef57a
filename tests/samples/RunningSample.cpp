#include "samples/RunningSample.h"

#include <cstdio>

#include "host/BuiltControl.h"
#include "host/HostError.h"
#include "host/StartProgram.h"
#include "host/WindowTexts.h"

namespace vantik {

namespace {

constexpr DWORD Patience = 12'000; // milliseconds

// A shown window of the process that is wanted: one that was ended may still have its own there for a moment.
struct Wanted {
    DWORD Process;
    std::function<bool(HWND)> IsIt;
    HWND Found = nullptr;
};

BOOL CALLBACK FindWanted(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<Wanted*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != wanted.Process || !IsWindowVisible(window) || !wanted.IsIt(window)) return TRUE;
    wanted.Found = window;
    return FALSE;
}

HWND Find(HANDLE process, std::function<bool(HWND)> isIt) {
    Wanted wanted = {GetProcessId(process), std::move(isIt)};
    EnumWindows(FindWanted, reinterpret_cast<LPARAM>(&wanted));
    return wanted.Found;
}

std::wstring TitleOf(HWND window) {
    wchar_t title[128] = {};
    GetWindowTextW(window, title, 128);
    return title;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[128] = {};
    GetClassNameW(window, name, 128);
    return name;
}

HWND FindBelow(HWND window, const wchar_t* className) {
    if (const HWND child = FindWindowExW(window, nullptr, className, nullptr)) return child;
    for (HWND child = nullptr; (child = FindWindowExW(window, child, nullptr, nullptr)) != nullptr;)
        if (const HWND found = FindBelow(child, className)) return found;
    return nullptr;
}

std::optional<Node> FindShown(const Node& node, const std::wstring& name) {
    const RECT place = node.Name() == name ? node.Place() : RECT();
    if (place.right > place.left && node.Role() != ROLE_SYSTEM_PROPERTYPAGE) return node;
    std::optional<Node> found;
    node.AnyChild([&](const Node& child) { return (found = FindShown(child, name)).has_value(); });
    return found;
}

LPARAM MiddleOf(const Node& node, HWND window) {
    const RECT place = node.Place();
    POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    ScreenToClient(window, &middle);
    return MAKELPARAM(middle.x, middle.y);
}

void PostKey(HWND window, WORD key) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

} // namespace

RunningSample::RunningSample(const std::wstring& program, const std::wstring& title)
    : program_(ProgramFolder() + L"\\..\\..\\samples\\" + program) {
    std::filesystem::remove_all(program_.parent_path() / L"Temp");
    process_ = StartProgram(L"\"" + program_.wstring() + L"\"");
    const bool came = Becomes([&] {
        form_ = Find(process_, [&](HWND window) { return TitleOf(window) == title; });
        return form_ != nullptr;
    });
    if (!came) {
        const DWORD id = GetProcessId(process_);
        throw HostError("the sample shows no form, but\n" +
                        WindowTexts([&](DWORD one) { return one == id; }));
    }
}

RunningSample::~RunningSample() {
    TerminateProcess(process_, 1);
    CloseHandle(process_);
}

HWND RunningSample::Tabs() const { return FindBelow(form_, L"VantikFrameTab"); }

TreeOptions RunningSample::Options() const {
    TreeOptions options;
    ClientToScreen(Tabs(), &options.Origin);
    return options;
}

std::vector<std::string> RunningSample::Labels() const {
    std::vector<std::string> lines;
    for (HWND label = nullptr; (label = FindWindowExW(form_, label, L"STATIC", nullptr)) != nullptr;)
        if (const auto node = Node::OfWindow(label)) lines.push_back(LineOf(*node, Options().Origin));
    return lines;
}

// The labels first, which are few.
bool RunningSample::Has(const std::string& text) const {
    for (const std::string& label : Labels())
        if (label.find(text) != text.npos) return true;
    const auto tabs = Node::OfWindow(Tabs());
    return tabs && HasLine(*tabs, Options(), text);
}

bool RunningSample::Shows(const std::string& text) const {
    if (Becomes([&] { return Has(text); })) return true;
    const auto tabs = Node::OfWindow(Tabs());
    std::printf("the sample does not show %s, but\n%s", text.c_str(),
                tabs ? TreeText(*tabs, Options()).c_str() : "no tabs\n");
    for (const std::string& label : Labels()) std::printf("%s\n", label.c_str());
    return false;
}

bool RunningSample::HasInView(const std::wstring& name) const {
    const auto row = Node::OfWindow(Tabs());
    return row && FindShown(*row, name).has_value();
}

bool RunningSample::HasBesideIt(const wchar_t* name) const {
    return std::filesystem::exists(program_.parent_path() / name);
}

// To the window that has the focus, as a keyboard does.
void RunningSample::Press(WORD key) const {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetWindowThreadProcessId(form_, nullptr), &thread);
    PostKey(thread.hwndFocus ? thread.hwndFocus : form_, key);
}

void RunningSample::Click(const std::wstring& name) const {
    const auto row = Node::OfWindow(Tabs());
    const auto meant = row ? FindShown(*row, name) : std::nullopt;
    if (!meant) throw HostError("nothing shown is called " + ToUtf8(name));
    const LPARAM place = MiddleOf(*meant, Tabs());
    PostMessageW(Tabs(), WM_MOUSEMOVE, 0, place);
    PostMessageW(Tabs(), WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(Tabs(), WM_LBUTTONUP, 0, place);
}

HWND RunningSample::FindWindowOfClass(const wchar_t* name) const {
    HWND found = nullptr;
    Becomes([&] {
        found = Find(process_, [&](HWND window) { return ClassOf(window) == name; });
        return found != nullptr;
    });
    return found;
}

void RunningSample::ChooseFromMenu(int steps) const {
    const HWND menu = FindWindowOfClass(L"#32768");
    for (int step = 0; step < steps; ++step) PostKey(menu, VK_DOWN);
    PostKey(menu, VK_RETURN);
}

bool RunningSample::Answer(WORD button) const {
    const HWND box = FindWindowOfClass(L"#32770");
    return box && PostMessageW(box, WM_COMMAND, button, 0) && Becomes([&] { return !IsWindow(box); });
}

bool RunningSample::Becomes(const std::function<bool()>& holds) {
    for (const ULONGLONG end = GetTickCount64() + Patience; GetTickCount64() < end; Sleep(50))
        if (holds()) return true;
    return holds();
}

DWORD RunningSample::Close() const {
    PostMessageW(form_, WM_CLOSE, 0, 0);
    return ExitCode();
}

DWORD RunningSample::ExitCode() const {
    WaitForSingleObject(process_, Patience);
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    return code;
}

} // namespace vantik
