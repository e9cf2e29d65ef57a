#include "host/SafeFile.h"

#include <doctest/doctest.h>

#include <fstream>
#include <iterator>

#include "host/HostError.h"

namespace vantik {

namespace {

namespace fs = std::filesystem;

// An empty folder, gone again at the end.
class Folder {
public:
    Folder() { fs::create_directory(Path); }
    ~Folder() { fs::remove_all(Path); }

    const fs::path Path = L"safe-" + std::to_wstring(GetCurrentProcessId());
};

std::string TextOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::ptrdiff_t FilesIn(const fs::path& folder) { return std::distance(fs::directory_iterator(folder), {}); }

// Whoever has it open lets others read it, but not replace it.
class HeldFile {
public:
    explicit HeldFile(const fs::path& path)
        : file_(
              CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr)) {}
    ~HeldFile() { CloseHandle(file_); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    HANDLE file_;
};

} // namespace

TEST_CASE("a file that is written safely has its bytes and nothing of the ones before") {
    const Folder folder;
    const fs::path file = folder.Path / L"a.form";
    WriteFileSafely(file, "a longer text\r\nof two lines");
    WriteFileSafely(file, "short\n");
    CHECK(TextOf(file) == "short\n");
    CHECK(FilesIn(folder.Path) == 1);
}

TEST_CASE("a file that cannot be replaced stays as it was, and nothing else is left") {
    const Folder folder;
    const fs::path file = folder.Path / L"a.form";
    WriteFileSafely(file, "before");
    {
        const HeldFile held(file);
        CHECK_THROWS_WITH_AS(WriteFileSafely(file, "after"), doctest::Contains("a.form: "), HostError);
    }
    CHECK(TextOf(file) == "before");
    CHECK(FilesIn(folder.Path) == 1);
}

TEST_CASE("a file in a folder that is not there is refused by name") {
    CHECK_THROWS_WITH_AS(WriteFileSafely(L"nowhere/a.form", "text"),
                         doctest::Contains("cannot write nowhere"), HostError);
}

} // namespace vantik
