// The demo form. With "--shot DIR" it writes pictures of itself into DIR and ends; with "--design [FILE]" it is a small form
// designer instead.
#include <cstdio>
#include <string>

#include "DemoForm.h"
#include "Shots.h"
#include "demos/form/design/Designer.h"
#include "host/BuiltControl.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"
#include "host/ProgramArguments.h"
#include "platform/mDeclares.h"

#include <commctrl.h>

namespace vantik {

namespace {

enum ExitCode { Done = 0, Failed = 1, Usage = 2 };

int ShowUsage() {
    std::fputs("usage: demo [--shot DIR | --design [FILE]]\n", stderr);
    return Usage;
}

enum class Task { Show, Shot, Design };

struct Arguments {
    Task What = Task::Show;
    std::wstring Path; // of the pictures' folder, of the form
};

// Empty for what it does not know.
std::optional<Arguments> ReadArguments(const std::vector<std::wstring>& arguments) {
    if (arguments.empty()) return Arguments{};
    const std::wstring path = arguments.size() == 2 ? arguments[1] : L"";
    if (arguments.size() > 2 || path.starts_with(L'-')) return std::nullopt;
    if (arguments[0] == L"--shot" && !path.empty()) return Arguments{Task::Shot, path};
    if (arguments[0] == L"--design" && (arguments.size() == 1 || !path.empty()))
        return Arguments{Task::Design, path};
    return std::nullopt;
}

int Design(ControlModule& module, const std::wstring& path) {
    Designer designer(module);
    if (!path.empty()) designer.Open(path);
    return designer.RunMessages();
}

int Run(const Arguments& arguments) {
    const OleApartment apartment;
    ControlModule module(FindBuiltControl());
    if (arguments.What == Task::Design) return Design(module, arguments.Path);
    DemoForm demo(module);
    demo.Form().Window().Show();
    if (arguments.What == Task::Show) {
        demo.TakeFocus();
        return RunMessages(demo.Form());
    }
    TakeShots(demo, arguments.Path);
    return Done;
}

int Main() {
    const auto arguments = ReadArguments(ProgramArguments());
    if (!arguments) return ShowUsage();
    InitCommonControls();
    try {
        return Run(*arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "demo: %s\n", error.what());
        if (arguments->What != Task::Shot)
            MessageBoxW(nullptr, FromUtf8(error.what()).c_str(), L"VantikFrameTab", MB_ICONERROR);
        return Failed;
    }
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
