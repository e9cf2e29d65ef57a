// timelimit: a program that does not run for ever.
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "host/HostError.h"
#include "host/ProgramArguments.h"
#include "host/WindowTexts.h"
#include "timelimit/Limited.h"

namespace vantik {

namespace {

enum ExitCode { Helped = 0, WrongUsage = 2, HadToBeEnded = 124, CannotBeStarted = 125 };

constexpr DWORD MostSeconds = 24 * 60 * 60;

constexpr char Usage[] = {
#include "Usage.txt"
};

std::optional<DWORD> Seconds(const std::wstring& text) {
    if (text.empty() || text.find_first_not_of(L"0123456789") != text.npos) return std::nullopt;
    const unsigned long value = std::wcstoul(text.c_str(), nullptr, 10);
    return value > 0 && value <= MostSeconds ? std::optional<DWORD>(value) : std::nullopt;
}

// What stands behind the next word of a command line, with its quotation marks as they are.
std::wstring_view Behind(std::wstring_view line) {
    bool isQuoted = false;
    std::size_t end = 0;
    for (; end < line.size() && (isQuoted || (line[end] != L' ' && line[end] != L'\t')); ++end)
        if (line[end] == L'"') isQuoted = !isQuoted;
    const std::size_t next = line.find_first_not_of(L" \t", end);
    return next == line.npos ? std::wstring_view() : line.substr(next);
}

std::wstring Command() { return std::wstring(Behind(Behind(GetCommandLineW()))); }

// Of a program that breaks down nobody shall be asked what to do.
void ShowNoBoxes() { SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX); }

[[noreturn]] void End(const Limited& program, DWORD seconds) {
    std::printf("timelimit: did not end within %lu s; its windows:\n%s", seconds,
                WindowTexts([&](DWORD process) { return program.Has(process); }).c_str());
    std::fflush(stdout);
    program.EndAll(HadToBeEnded);
}

int Run(DWORD seconds) try {
    ShowNoBoxes();
    const Limited program(Command());
    if (!program.EndsWithin(seconds * 1000)) End(program, seconds);
    program.EndAll(program.ExitCode());
} catch (const HostError& error) {
    std::fprintf(stderr, "timelimit: %s\n", error.what());
    return CannotBeStarted;
}

int Main() {
    const auto arguments = ProgramArguments();
    const auto seconds = arguments.size() >= 2 ? Seconds(arguments[0]) : std::nullopt;
    if (seconds) return Run(*seconds);
    const bool helps = arguments.size() == 1 && (arguments[0] == L"--help" || arguments[0] == L"-h");
    std::fputs(Usage, helps ? stdout : stderr);
    return helps ? Helped : WrongUsage;
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
