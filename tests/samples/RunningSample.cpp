#include "samples/RunningSample.h"

#include "acctree/TreeText.h"
#include "host/BuiltControl.h"
#include "host/HostError.h"
#include "host/StartProgram.h"

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
    const RECT place = node.Place();
    if (node.Name() == name && place.right > place.left && node.Role() != ROLE_SYSTEM_PROPERTYPAGE)
        return node;
    for (const Node& child : node.Children())
        if (const auto found = FindShown(child, name)) return found;
    return std::nullopt;
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
    if (!came) throw HostError("the sample shows no form");
}

RunningSample::~RunningSample() {
    TerminateProcess(process_, 1);
    CloseHandle(process_);
}

HWND RunningSample::Tabs() const { return FindBelow(form_, L"VantikFrameTab"); }

std::string RunningSample::Tree() const {
    TreeOptions options;
    ClientToScreen(Tabs(), &options.Origin);
    const auto root = Node::OfWindow(Tabs());
    std::string text = root ? TreeText(*root, options) : std::string();
    for (HWND label = nullptr; (label = FindWindowExW(form_, label, L"STATIC", nullptr)) != nullptr;)
        text += LineOf(*Node::OfWindow(label), options.Origin) + "\n";
    return text;
}

bool RunningSample::HasInView(const std::wstring& name) const {
    const auto row = Node::OfWindow(Tabs());
    return row && FindShown(*row, name).has_value();
}

bool RunningSample::HasBesideIt(const wchar_t* name) const {
    return std::filesystem::exists(program_.parent_path() / name);
}

bool RunningSample::Shows(const std::string& text) const {
    return Becomes([&] { return Tree().find(text) != std::string::npos; });
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
