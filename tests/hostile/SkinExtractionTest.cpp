// The built-in skin's files, and what stands in their way.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "host/TextPropertyBag.h"
#include "host/ThreadErrorInfo.h"
#include "hostile/PatchedImport.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

namespace fs = std::filesystem;

constexpr HRESULT NoAccess = static_cast<HRESULT>(0x800A004B);

fs::path Extracted() { return fs::path(ProgramFolder()) / L"Temp"; }

std::string Read(const wchar_t* name) {
    std::ostringstream bytes;
    bytes << std::ifstream(Extracted() / name, std::ios::binary).rdbuf();
    return bytes.str();
}

// What the control sees as a link: no test relies on a file system that has some.
std::wstring linked;

bool IsLinked(const std::wstring& path) {
    return !linked.empty() && path.size() >= linked.size() &&
           path.compare(path.size() - linked.size(), linked.size(), linked) == 0;
}

DWORD WINAPI AttributesWithLink(const wchar_t* path) {
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && IsLinked(path) ? attributes | FILE_ATTRIBUTE_REPARSE_POINT
                                                                   : attributes;
}

HANDLE WINAPI OpenReadOnly(const wchar_t* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                           DWORD disposition, DWORD flags, HANDLE model) {
    if (!(access & GENERIC_WRITE))
        return CreateFileW(path, access, share, security, disposition, flags, model);
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI MakeNoFolder(const wchar_t*, SECURITY_ATTRIBUTES*) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

HMODULE Loaded() { return GetModuleHandleW(L"VantikFrameTab.ocx"); }

// A folder in which nothing can be written, for the control.
struct ReadOnlyFolder {
    PatchedImport Files{Loaded(), "CreateFileW", reinterpret_cast<const void*>(OpenReadOnly)};
    PatchedImport Folders{Loaded(), "CreateDirectoryW", reinterpret_cast<const void*>(MakeNoFolder)};
};

// Whether the last error names this part of a path as what stands in the way.
bool ErrorNames(const std::wstring& path) {
    return ThreadErrorInfo::Take().Description.find(path + L": ") != std::wstring::npos;
}

struct LoadingControl : LooseControl {
    LoadingControl() { fs::remove_all(Extracted()); }

    HRESULT Load() { return As<IPersistPropertyBag>()->Load(MakeCom<TextPropertyBag>().Get(), nullptr); }
};

} // namespace

TEST_CASE("a complete skin in a read-only folder is used as it is, and an incomplete one is an error") {
    LoadingControl control;
    CHECK(control.Load() == S_OK);
    {
        const ReadOnlyFolder folder;
        CHECK(control.Load() == S_OK);
        std::ofstream(Extracted() / L"skin.ini", std::ios::app) << "a tail";
        CHECK(control.Load() == S_OK);
        fs::remove(Extracted() / L"bar1.png");
        CHECK(control.Load() == NoAccess);
        CHECK(ErrorNames(L"\\Temp\\bar1.png"));
        fs::remove_all(Extracted());
        CHECK(control.Load() == NoAccess);
        CHECK(ErrorNames(L"\\Temp"));
    }
    CHECK(control.Load() == S_OK);
}

TEST_CASE("a file that is right already is not written to") {
    LoadingControl control;
    CHECK(control.Load() == S_OK);
    const auto longAgo = fs::last_write_time(Extracted() / L"sun.png") - std::chrono::hours(1);
    fs::last_write_time(Extracted() / L"sun.png", longAgo);
    CHECK(control.Load() == S_OK);
    CHECK(fs::last_write_time(Extracted() / L"sun.png") == longAgo);
}

TEST_CASE("a link in a file's way is not followed") {
    LoadingControl control;
    REQUIRE(control.Load() == S_OK);
    const PatchedImport attributes(Loaded(), "GetFileAttributesW",
                                   reinterpret_cast<const void*>(AttributesWithLink));
    for (const wchar_t* name : {L"sun.png", L"skin2.bmp", L"handno.png"}) {
        linked = std::wstring(L"\\Temp\\") + name;
        std::ofstream(Extracted() / name, std::ios::binary) << "somebody else's";
        CHECK(control.Load() == NoAccess);
        CHECK(ErrorNames(linked));
        CHECK(Read(name) == "somebody else's");
        linked.clear();
        CHECK(control.Load() == S_OK);
    }
}

TEST_CASE("nor is one in place of the folder") {
    LoadingControl control;
    fs::create_directory(Extracted());
    const PatchedImport attributes(Loaded(), "GetFileAttributesW",
                                   reinterpret_cast<const void*>(AttributesWithLink));
    linked = L"\\Temp";
    CHECK(control.Load() == NoAccess);
    CHECK(ErrorNames(L"\\Temp"));
    CHECK(fs::is_empty(Extracted()));
    linked.clear();
    CHECK(control.Load() == S_OK);
}

} // namespace vantik
