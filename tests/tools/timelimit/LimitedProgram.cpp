// What the tests of timelimit run: a program that ends, or does not, as it is told.
#include <cstdint>
#include <cstdio>
#include <string>

#include "host/HostError.h"
#include "host/ProgramArguments.h"
#include "host/StartProgram.h"

namespace vantik {

namespace {

constexpr wchar_t Title[] = L"A question";

int Echo(const std::vector<std::wstring>& arguments) {
    for (const std::wstring& argument : arguments) std::printf("[%s]", ToUtf8(argument).c_str());
    return 7;
}

int Ask(const std::wstring& question) { return MessageBoxW(nullptr, question.c_str(), Title, MB_OK); }

// Has another one ask, and waits for the answer or, when it is to be left behind, only for the question.
int Start(const std::wstring& question, bool waits) {
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const HANDLE process = StartProgram(L"\"" + std::wstring(self) + L"\" ask \"" + question + L"\"");
    while (!FindWindowW(nullptr, Title)) Sleep(20);
    WaitForSingleObject(process, waits ? INFINITE : 0);
    CloseHandle(process);
    return 0;
}

// A fault of the processor's: a raised exception some systems' debuggers go on from.
void Break() {
    volatile std::uintptr_t nowhere = 16;
    *reinterpret_cast<volatile int*>(nowhere) = 1;
}

int Main() {
    auto arguments = ProgramArguments();
    std::erase(arguments, L"--no-colors=true"); // which every program of tests gets
    if (arguments.size() == 2 && arguments[0] == L"ask") return Ask(arguments[1]);
    if (arguments.size() == 2 && arguments[0] == L"start") return Start(arguments[1], true);
    if (arguments.size() == 2 && arguments[0] == L"leave") return Start(arguments[1], false);
    if (arguments.size() == 1 && arguments[0] == L"break") Break();
    return Echo(arguments);
}

} // namespace

} // namespace vantik

int main() { return vantik::Main(); }
