// The demo form. With "--shot DIR" it writes pictures of itself into DIR and ends.
#include <cstdio>
#include <string>

#include "DemoForm.h"
#include "Shots.h"
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
    std::fputs("usage: demo [--shot DIR]\n", stderr);
    return Usage;
}

int Run(const std::wstring& shotFolder) {
    const OleApartment apartment;
    ControlModule module(FindBuiltControl());
    DemoForm demo(module);
    demo.Form().Window().Show();
    if (shotFolder.empty()) {
        demo.TakeFocus();
        return RunMessages(demo.Form());
    }
    TakeShots(demo, shotFolder);
    return Done;
}

int Main() {
    const std::vector<std::wstring> arguments = ProgramArguments();
    const bool shot = arguments.size() == 2 && arguments[0] == L"--shot" && !arguments[1].empty();
    if (!arguments.empty() && !shot) return ShowUsage();
    InitCommonControls();
    try {
        return Run(shot ? arguments[1] : L"");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "demo: %s\n", error.what());
        if (!shot) MessageBoxW(nullptr, FromUtf8(error.what()).c_str(), L"VantikFrameTab", MB_ICONERROR);
        return Failed;
    }
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
