// skinview: a skin is seen on the control while it is drawn.
#include <cstdio>

#include "CommandLine.h"
#include "MainWindow.h"
#include "host/BuiltControl.h"
#include "host/OleApartment.h"
#include "host/ProgramArguments.h"

#include <commctrl.h>

namespace vantik {

namespace {

enum ExitCode { Done = 0, Failed = 1, Usage = 2 };

int Run(const CommandLine& line) {
    const OleApartment apartment;
    ControlModule module(FindBuiltControl());
    MainWindow window(module);
    if (!line.Definition.empty()) line.IsNew ? window.Create(line.Definition) : window.Open(line.Definition);
    return window.Run();
}

int Main() {
    const auto line = ParseCommandLine(ProgramArguments());
    if (!line || line->Help) {
        std::fputs(UsageText, line ? stdout : stderr);
        return line ? Done : Usage;
    }
    InitCommonControls();
    try {
        return Run(*line);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "skinview: %s\n", error.what());
        MessageBoxW(nullptr, FromUtf8(error.what()).c_str(), L"skinview", MB_ICONERROR);
        return Failed;
    }
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
