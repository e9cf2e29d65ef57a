// skinpreview: a skin on one sheet, as the control shows it.
#include <cstdio>
#include <filesystem>

#include "host/BuiltControl.h"
#include "host/HostError.h"
#include "host/OleApartment.h"
#include "host/ProgramArguments.h"
#include "tools/skinpreview/Sheet.h"

namespace vantik {

namespace {

enum ExitCode { Written = 0, Failed = 1, WrongUsage = 2 };

constexpr char Usage[] = {
#include "Usage.txt"
};

using Arguments = std::vector<std::wstring>;

bool AsksForHelp(const Arguments& arguments) {
    return arguments.size() == 1 && (arguments[0] == L"--help" || arguments[0] == L"-h");
}

bool IsUsage(const Arguments& arguments) {
    return arguments.size() == 2 && !arguments[0].starts_with(L"-") && !arguments[1].starts_with(L"-") &&
           lstrcmpiW(std::filesystem::path(arguments[0]).extension().c_str(), L".png") == 0;
}

int Write(const Arguments& arguments) try {
    const OleApartment apartment;
    ControlModule module(FindBuiltControl());
    SavePng(MakeSheet(module, PreviewedSkin(arguments[1])).Picture, arguments[0]);
    return Written;
} catch (const std::exception& error) {
    std::fprintf(stderr, "skinpreview: %s\n", error.what());
    return Failed;
}

int Main() {
    const Arguments arguments = ProgramArguments();
    if (IsUsage(arguments)) return Write(arguments);
    const bool helps = AsksForHelp(arguments);
    std::fputs(Usage, helps ? stdout : stderr);
    return helps ? Written : WrongUsage;
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
