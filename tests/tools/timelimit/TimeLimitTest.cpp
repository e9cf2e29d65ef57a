// The time limit of programs: what it hands on, and what it ends.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/BuiltControl.h"
#include "host/StartProgram.h"
#include "host/WindowTexts.h"

namespace vantik {

namespace {

struct Done {
    DWORD ExitCode = STILL_ACTIVE;
    std::string Said;
};

std::wstring Quoted(const std::wstring& file) { return L"\"" + ProgramFolder() + L"\\" + file + L"\""; }

const wchar_t* const Report = L"said.txt";

HANDLE InheritedReport() {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    return CreateFileW(Report, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       &inherited, CREATE_ALWAYS, 0, nullptr);
}

std::string TextOf(const wchar_t* file) {
    std::ifstream stream{std::filesystem::path(file), std::ios::binary};
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::erase(text, '\r');
    return text;
}

Done TimeLimit(const std::wstring& arguments) {
    STARTUPINFOW start = {};
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = InheritedReport();
    const HANDLE process =
        StartProgram(Quoted(L"..\\..\\..\\tools\\timelimit\\timelimit.exe") + L" " + arguments, start);
    CloseHandle(start.hStdOutput);
    Done done;
    WaitForSingleObject(process, 60'000);
    GetExitCodeProcess(process, &done.ExitCode);
    TerminateProcess(process, 1);
    CloseHandle(process);
    done.Said = TextOf(Report);
    std::filesystem::remove(Report);
    return done;
}

Done Limited(const wchar_t* seconds, const std::wstring& arguments) {
    return TimeLimit(seconds + (L" " + Quoted(L"limited_program.exe") + L" ") + arguments);
}

bool IsAsked(const char* question) {
    return WindowTexts([](DWORD) { return true; }).find(question) != std::string::npos;
}

} // namespace

TEST_CASE("A program that ends in time has its own arguments, output and exit code") {
    const Done done = Limited(L"30", L"one \"two words\" \"\" a\\\"b");
    CHECK(done.ExitCode == 7);
    CHECK(done.Said == "[one][two words][][a\"b]");
}

TEST_CASE("A program that waits for an answer is ended, and its question is told") {
    const Done done = Limited(L"2", L"ask \"Shall it be so?\"");
    CHECK(done.ExitCode == 124);
    CHECK(done.Said.starts_with("timelimit: did not end within 2 s; its windows:\n"));
    CHECK(done.Said.find("window \"A question\" of class #32770") != std::string::npos);
    CHECK(done.Said.find("    Shall it be so?\n") != std::string::npos);
    CHECK_FALSE(IsAsked("Shall it be so?"));
}

TEST_CASE("What a program started ends with it, and its windows are told, too") {
    const Done done = Limited(L"3", L"start \"Is anybody there?\"");
    CHECK(done.ExitCode == 124);
    CHECK(done.Said.find("    Is anybody there?\n") != std::string::npos);
    CHECK_FALSE(IsAsked("Is anybody there?"));
}

TEST_CASE("What a program leaves behind ends with it") {
    CHECK(Limited(L"30", L"leave \"Who is left?\"").ExitCode == 0);
    CHECK_FALSE(IsAsked("Who is left?"));
}

TEST_CASE("A program that breaks down ends at once, with its own exit code") {
    CHECK(Limited(L"30", L"break").ExitCode == static_cast<DWORD>(STATUS_ACCESS_VIOLATION));
}

TEST_CASE("What cannot be started or understood is said") {
    const Done missing = TimeLimit(L"5 nowhere.exe");
    CHECK(missing.ExitCode == 125);
    CHECK(missing.Said == "timelimit: cannot start nowhere.exe\n");
    for (const wchar_t* wrong :
         {L"", L"5", L"0 a.exe", L"5s a.exe", L"-5 a.exe", L"99999 a.exe", L"--nonsense"}) {
        CAPTURE(wrong);
        const Done done = TimeLimit(wrong);
        CHECK(done.ExitCode == 2);
        CHECK(done.Said.starts_with("usage: timelimit "));
    }
    CHECK(TimeLimit(L"--help").ExitCode == 0);
}

} // namespace vantik
