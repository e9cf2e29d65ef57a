// framesnap: puts the control on a form, drives it from the command line and takes pictures.
#include <cstdio>

#include "CommandLine.h"
#include "DialogWatch.h"
#include "Session.h"
#include "host/BuiltControl.h"
#include "host/OleApartment.h"
#include "host/ProgramArguments.h"

namespace vantik {

namespace {

enum ExitCode { Done = 0, Failed = 1, Usage = 2 };

void Run(const CommandLine& line) {
    const OleApartment apartment;
    const DialogWatch watch;
    ControlModule module(line.ControlPath.empty() ? FindBuiltControl() : line.ControlPath);
    Session(module, line).Run();
}

int Main() {
    try {
        const CommandLine line = ParseCommandLine(ExpandFiles(ProgramArguments()));
        if (line.Help) {
            std::fputs(UsageText, stdout);
        } else {
            Run(line);
        }
        return Done;
    } catch (const UsageError& error) {
        std::fprintf(stderr, "framesnap: %s\nframesnap --help tells more\n", error.what());
        return Usage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "framesnap: %s\n", error.what());
        return Failed;
    }
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
