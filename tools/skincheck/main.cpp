// skincheck: every fault of skins, as text or JSON.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "check/CheckSkin.h"
#include "tools/skin/SkinAt.h"
#include "tools/skincheck/CommandLine.h"
#include "tools/skincheck/Json.h"

namespace vantik {

namespace {

constexpr int NoErrors = 0;
constexpr int Errors = 1;
constexpr int WrongUsage = 2;

constexpr char Usage[] = {
#include "Usage.txt"
};

std::string Count(std::ptrdiff_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void PrintText(const std::vector<Fault>& faults, std::size_t skins) {
    for (const Fault& fault : faults) std::printf("%s\n", Format(fault).c_str());
    const auto errors = std::count_if(faults.begin(), faults.end(),
                                      [](const Fault& each) { return each.Severity == Severity::Error; });
    const auto warnings = static_cast<std::ptrdiff_t>(faults.size()) - errors;
    std::printf("%s: %s, %s\n", Count(static_cast<std::ptrdiff_t>(skins), "skin").c_str(),
                Count(errors, "error").c_str(), Count(warnings, "warning").c_str());
}

int CheckAll(const Options& options) {
    std::vector<Fault> faults;
    for (const std::filesystem::path& definition : options.Definitions) {
        const std::vector<Fault> found = CheckSavedSkin(SkinAt(definition));
        faults.insert(faults.end(), found.begin(), found.end());
    }
    if (options.Json) {
        std::printf("%s\n", ToJson(faults).c_str());
    } else {
        PrintText(faults, options.Definitions.size());
    }
    return HasErrors(faults) ? Errors : NoErrors;
}

int Run(const std::vector<std::filesystem::path>& arguments) {
    const auto options = ParseCommandLine(arguments);
    if (options && !options->Help) return CheckAll(*options);
    std::fputs(Usage, options ? stdout : stderr);
    return options ? NoErrors : WrongUsage;
}

} // namespace

} // namespace vantik

#ifdef _WIN32
int wmain(int count, wchar_t** arguments) { return vantik::Run({arguments + 1, arguments + count}); }
#else
int main(int count, char** arguments) { return vantik::Run({arguments + 1, arguments + count}); }
#endif
