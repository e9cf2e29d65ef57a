// What a process asks the system for when more controls of the same skin are loaded and painted: one question for each
// file that is needed, and no file opened. What differs is read, and what is shared goes with the last control.
#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "host/BuiltControl.h"
#include "host/ControlModule.h"
#include "host/HostError.h"
#include "host/HostForm.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"
#include "host/Snapshot.h"
#include "hostile/FaultInjector.h"
#include "hostile/ModuleMemory.h"
#include "hostile/PatchedImport.h"
#include "hostile/Rounds.h"
#include "hostile/Worker.h"

namespace vantik {

namespace {

namespace fs = std::filesystem;

fs::path Beside(const wchar_t* name) { return fs::path(ProgramFolder()) / name; }

void MakeOld(const fs::path& folder) {
    for (const auto& file : fs::directory_iterator(folder))
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

std::string Properties(const std::string& skin) {
    return "TabCount = 4\nActiveTab = 1\nBarWidth = 60\nDelButton = True\nSkinPath = \"" + skin + "\"\n";
}

class Form {
public:
    explicit Form(ControlModule& module) : form_(module, {}) { form_.Window().Show(); }

    void Load(const std::string& skin) {
        const auto bag = MakeCom<TextPropertyBag>();
        bag->Parse(Properties(skin));
        form_.OpenFrom(*bag.Get());
        for (std::int16_t index = 0; index < 4; ++index) {
            Call(form_.Control(), L"SetBarIco", {index, index % 2 ? L"sun" : L"handno"});
            // No text: drawn by several threads at once its letters may stand a pixel aside, and it comes from no file.
            Call(form_.Control(), L"SetBarCaption", {index, L"", true});
        }
    }
    Snapshot Show() {
        PumpMessages(form_);
        return TakeSnapshot(form_.Window().Handle());
    }

private:
    HostForm form_;
};

// The built-in skin in a folder of its own, written an hour ago.
class SkinCopy {
public:
    explicit SkinCopy(const wchar_t* name) : Path(Beside(name)) {
        fs::remove_all(Path);
        if (!fs::exists(Beside(L"Temp") / L"skin2.bmp")) Extract();
        fs::copy(Beside(L"Temp"), Path);
        MakeOld(Path);
    }
    ~SkinCopy() {
        std::error_code ignored;
        fs::remove_all(Path, ignored);
    }
    SkinCopy(const SkinCopy&) = delete;
    SkinCopy& operator=(const SkinCopy&) = delete;

    const fs::path Path;

private:
    static void Extract() {
        ControlModule module(FindBuiltControl());
        Form(module).Load("none");
    }
};

// The questions of the module about files, by the files' names.
class Questions {
public:
    Questions() {
        opened.clear();
        asked.clear();
    }

    static std::string Opened() { return Text(opened); }
    static std::string Asked() { return Text(asked); }

private:
    using Counts = std::map<std::wstring, int>;

    static std::string Text(const Counts& counts) {
        std::string text;
        for (const auto& [name, count] : counts)
            text += (text.empty() ? "" : " ") + std::string(name.begin(), name.end()) + ":" +
                    std::to_string(count);
        return text;
    }
    static void Note(Counts& counts, const wchar_t* path) {
        std::wstring name = fs::path(path).filename().wstring();
        CharLowerW(name.data());
        ++counts[name];
    }

    static HANDLE WINAPI Open(const wchar_t* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                              DWORD disposition, DWORD flags, HANDLE model) {
        Note(opened, path);
        return CreateFileW(path, access, share, security, disposition, flags, model);
    }
    static BOOL WINAPI AskMore(const wchar_t* path, GET_FILEEX_INFO_LEVELS level, void* data) {
        Note(asked, path);
        return GetFileAttributesExW(path, level, data);
    }
    static DWORD WINAPI Ask(const wchar_t* path) {
        Note(asked, path);
        return GetFileAttributesW(path);
    }
    static HMODULE Loaded() { return GetModuleHandleW(L"VantikFrameTab.ocx"); }

    static Counts opened, asked;

    PatchedImport open_{Loaded(), "CreateFileW", reinterpret_cast<const void*>(Open)};
    PatchedImport askMore_{Loaded(), "GetFileAttributesExW", reinterpret_cast<const void*>(AskMore)};
    PatchedImport ask_{Loaded(), "GetFileAttributesW", reinterpret_cast<const void*>(Ask)};
};

Questions::Counts Questions::opened, Questions::asked;

// As if all files were links.
class Links {
private:
    static BOOL WINAPI Ask(const wchar_t* path, GET_FILEEX_INFO_LEVELS level, void* data) {
        const BOOL isKnown = GetFileAttributesExW(path, level, data);
        if (isKnown)
            static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data)->dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
        return isKnown;
    }

    PatchedImport ask_{GetModuleHandleW(L"VantikFrameTab.ocx"), "GetFileAttributesExW",
                       reinterpret_cast<const void*>(Ask)};
};

// Also while somebody reads the file, and without keeping anybody from it.
void GiveAge(const fs::path& path, int minutes) {
    ULARGE_INTEGER time = {};
    FILETIME written = {};
    GetSystemTimeAsFileTime(&written);
    time.LowPart = written.dwLowDateTime;
    time.HighPart = written.dwHighDateTime;
    time.QuadPart -= 600'000'000ull * static_cast<unsigned>(minutes);
    written = {time.LowPart, time.HighPart};
    const HANDLE file = CreateFileW(path.wstring().c_str(), FILE_WRITE_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    CHECK(SetFileTime(file, nullptr, nullptr, &written));
    CloseHandle(file);
}

// With its time, as people copy files.
void Copy(const fs::path& from, const fs::path& to) {
    REQUIRE(CopyFileW(from.wstring().c_str(), to.wstring().c_str(), FALSE));
}

void Write(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

} // namespace

TEST_CASE("a further control of a skin opens no file, and asks once for each that it loads") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared");
    ControlModule module(FindBuiltControl());
    Form first(module), second(module);
    first.Load("Shared");
    const Snapshot expected = first.Show();
    {
        const Questions questions;
        second.Load("Shared");
        CHECK(Questions::Opened().empty());
        CHECK(Questions::Asked() ==
              "bar0.png:1 bar1.png:1 delete1.png:1 menubar.png:1 skin.ini:1 skin2.bmp:1");
    }
    const Questions questions;
    CHECK(second.Show() == expected);
    CHECK(Questions::Opened().empty());
    CHECK(Questions::Asked().find("bar0.png:1 bar1.png:1 ") == 0);
    CHECK(Questions::Asked().find("skin") == std::string::npos);
}

TEST_CASE("nor does one whose skin is missing, of which the built-in one stands there") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared"); // so that there is the other
    ControlModule module(FindBuiltControl());
    Form(module).Load("none"); // so that what stands there is the skin of this build
    MakeOld(Beside(L"Temp"));
    Form first(module), second(module);
    first.Load("none");
    const Snapshot expected = first.Show();
    const Questions questions;
    second.Load("none");
    CHECK(second.Show() == expected);
    CHECK(Questions::Opened().empty());
}

TEST_CASE("links are read each time, since the system tells of them and not of what they lead to") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared");
    ControlModule module(FindBuiltControl());
    Form first(module), second(module);
    const auto openedBy = [](Form& form) {
        const Questions questions;
        const Links links;
        form.Load("Shared");
        form.Show();
        return Questions::Opened();
    };
    const std::string opened = openedBy(first);
    CHECK(opened.find("skin.ini:1 skin2.bmp:1") != std::string::npos);
    CHECK(openedBy(second) == opened);
}

TEST_CASE("a file of a skin that differs is read by the next control, whatever happened to it") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared"), other(L"Other");
    ControlModule module(FindBuiltControl());
    Form first(module);
    first.Load("Shared");
    const Snapshot before = first.Show();
    for (const wchar_t* name : {L"bar0.png", L"sun.png", L"delete1.png"})
        Copy(Beside(L"Temp") / L"menubar.png", other.Path / name);
    const std::string definition =
        "Start\n[Tab]\nFile: Skin2.bmp\n18: 30,30,30,30\n[Icon]\nSun: sun.png\nHandNo: sun.png\n";
    Write(other.Path / L"skin.ini", definition);
    MakeOld(other.Path);
    Form reading(module);
    reading.Load("Other");
    const Snapshot after = reading.Show();
    REQUIRE(!(after == before));
    for (const auto& file : fs::directory_iterator(other.Path))
        Copy(file, skin.Path / file.path().filename());
    Form second(module);
    second.Load("Shared");
    CHECK(second.Show() == after);
    fs::remove(skin.Path / L"skin2.bmp");
    Form third(module);
    CHECK_THROWS(third.Load("Shared"));
    Copy(other.Path / L"skin2.bmp", skin.Path / L"skin2.bmp");
    Form fourth(module);
    fourth.Load("Shared");
    CHECK(fourth.Show() == after);
}

TEST_CASE("what files were read for goes with the last control, and is read again for the next") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared");
    ControlModule module(FindBuiltControl());
    const auto openedByOne = [&] {
        const Questions questions;
        Form form(module);
        form.Load("Shared");
        form.Show();
        return Questions::Opened();
    };
    const std::string all = openedByOne();
    CHECK(all.find("skin.ini:1 skin2.bmp:1") != std::string::npos);
    CHECK(openedByOne() == all);
    Form staying(module);
    staying.Load("Shared");
    staying.Show();
    CHECK(openedByOne().empty());
}

namespace {

void LiveAsItCan(Form& form) {
    try {
        form.Load("Shared");
        form.Show();
    } catch (const HostError&) { // it says that it failed
    }
}

// Of one that loads while another lives that `starve` kept from something.
template <class Starve>
Snapshot NextOneAfter(ControlModule& module, Starve starve) {
    Form first(module), second(module);
    starve(first);
    second.Load("Shared");
    return second.Show();
}

} // namespace

TEST_CASE("what one control could not read for want of memory, the next one does not miss") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared");
    ControlModule module(FindBuiltControl());
    const Snapshot expected = NextOneAfter(module, [](Form&) {});
    bool hasFailed = true;
    for (long number = 0; hasFailed; ++number) {
        CAPTURE(number);
        REQUIRE(number < 20000);
        CHECK(NextOneAfter(module, [&](Form& first) {
                  ModuleMemory memory(GetModuleHandleW(L"VantikFrameTab.ocx"));
                  memory.FailAt(number);
                  LiveAsItCan(first);
                  hasFailed = memory.HasFailed();
              }) == expected);
    }
}

TEST_CASE("nor what the system refused to one") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared");
    std::ofstream(skin.Path / L"skin.ini", std::ios::app) << std::string(20000, '\n'); // not read at once
    MakeOld(skin.Path);
    ControlModule module(FindBuiltControl());
    const Snapshot expected = NextOneAfter(module, [](Form&) {});
    for (FaultyImport& import : FaultyImports()) {
        const std::string name = import.Name;
        if (name == "CloseHandle") continue; // a file that stays open cannot be removed
        CAPTURE(name);
        bool hasFailed = true;
        for (long number = 1; hasFailed; ++number) {
            CAPTURE(number);
            CHECK(NextOneAfter(module, [&](Form& first) {
                      const FaultInjector injector(GetModuleHandleW(L"VantikFrameTab.ocx"));
                      import.FailsFrom = import.FailsTo = number;
                      LiveAsItCan(first);
                      hasFailed = import.Calls >= number;
                  }) == expected);
        }
    }
}

TEST_CASE("controls of several apartments share, also while files get other times under them") {
    const OleApartment apartment;
    const SkinCopy skin(L"Shared");
    ControlModule module(FindBuiltControl());
    Form staying(module);
    staying.Load("Shared");
    const Snapshot expected = staying.Show();
    Worker workers[3];
    bool same[3] = {};
    const auto live = [&](bool& isSame) {
        try {
            int right = 0;
            for (int life = 0; life < 2 * Rounds(5); ++life) {
                Form form(module);
                form.Load("Shared");
                right += form.Show() == expected;
            }
            isSame = right == 2 * Rounds(5);
        } catch (const HostError&) { // it is not the same
        }
    };
    for (int i = 0; i < 3; ++i) workers[i].Begin([&, i] { live(same[i]); });
    // The same bytes at other times: nothing to be seen, all to be read.
    for (int i = 0; i < 20 * Rounds(5); ++i) {
        GiveAge(skin.Path / L"sun.png", i + 1);
        GiveAge(skin.Path / L"skin2.bmp", i % 3 + 1);
        Sleep(5);
    }
    for (int i = 0; i < 3; ++i) {
        workers[i].Finish();
        CHECK(same[i]);
    }
}

} // namespace vantik
