// Another process reads the tree, as screen readers do, whatever happens to the control meanwhile.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "host/BuiltControl.h"
#include "host/StartProgram.h"
#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

std::wstring Reader() {
    const std::filesystem::path folder = ProgramFolder();
    return (folder / L"..\\..\\tools\\acctree\\acctree.exe").wstring();
}

std::wstring InHex(HWND window) {
    std::wostringstream text;
    text << L"0x" << std::hex << reinterpret_cast<ULONG_PTR>(window);
    return text.str();
}

// A program that runs while this one answers its messages.
class Running {
public:
    explicit Running(const std::wstring& arguments) {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        const HANDLE output =
            CreateFileW(OutputFile, GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr);
        STARTUPINFOW start = {};
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = start.hStdError = output;
        process_ = StartProgram(L"\"" + Reader() + L"\" " + arguments, start);
        CloseHandle(output);
    }
    ~Running() {
        TerminateProcess(process_, 1);
        CloseHandle(process_);
        DeleteFileW(OutputFile);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    // False when it is still there after a minute.
    bool WaitWhile(const std::function<void()>& doing) {
        const ULONGLONG end = GetTickCount64() + 60'000;
        while (MsgWaitForMultipleObjects(1, &process_, FALSE, 5, QS_ALLINPUT) != WAIT_OBJECT_0) {
            if (GetTickCount64() > end) return false;
            doing();
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        }
        return true;
    }

    std::string Output() const {
        std::ifstream file(OutputFile);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
    DWORD ExitCode() const {
        DWORD code = 0;
        GetExitCodeProcess(process_, &code);
        return code;
    }

private:
    static constexpr const wchar_t* OutputFile = L"accessible-client.txt";
    HANDLE process_ = nullptr;
};

} // namespace

TEST_CASE("another process reads the same tree, and finds nothing wrong with it") {
    const ReadControl control(7);
    {
        Running reader(InHex(control.Window()));
        REQUIRE(reader.WaitWhile([] {}));
        CHECK(reader.Output() == control.Tree());
        CHECK(reader.ExitCode() == 0);
    }
    Running check(L"--check " + InHex(control.Window()));
    REQUIRE(check.WaitWhile([] {}));
    CHECK(check.Output() == "");
    CHECK(check.ExitCode() == 0);
}

TEST_CASE("acctree says how it is used, and what it does not find") {
    const auto codeOf = [](const wchar_t* arguments, const char* said) {
        Running reader(arguments);
        REQUIRE(reader.WaitWhile([] {}));
        CHECK(reader.Output().find(said) == 0);
        return reader.ExitCode();
    };
    CHECK(codeOf(L"--help", "usage: acctree") == 0);
    for (const wchar_t* wrong :
         {L"", L"--verbose 0x1", L"0x1 0x2", L"--wait", L"--wait x 0x1", L"--check --until-gone 0x1"})
        CHECK(codeOf(wrong, "usage: acctree") == 2);
    CHECK(codeOf(L"0x1", "acctree: there is no such window") == 1);
    CHECK(codeOf(L"\"no form has this title\"", "acctree: there is no such window") == 1);
}

TEST_CASE("another process reads on while tabs come, go and scroll, and until the control is gone") {
    ReadControl control(7);
    int step = 0;
    Running reader(L"--until-gone " + InHex(control.Window()));
    const bool ended = reader.WaitWhile([&] {
        if (++step == 400) control.InWindow.reset();
        if (step >= 400) return;
        control.Tab->put_TabCount(static_cast<short>(1 + step % 9));
        control.Tab->put_ActiveTab(static_cast<short>(step % 5));
        control.Tab->put_TabPos(static_cast<dTabPos>(step / 7 % 4));
        SetWindowPos(control.Window(), nullptr, step % 20, 10, 380 - step % 50, 200,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    });
    REQUIRE(ended);
    CHECK(reader.ExitCode() == 0);
    CHECK(std::stoi(reader.Output()) > 0);
    control.Release();
    CHECK(control.Module().CanUnload());
}

} // namespace vantik
