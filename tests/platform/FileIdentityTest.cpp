#include "platform/FileIdentity.h"

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>

#include "tests/skin/TemporaryFolder.h"

namespace vantik {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

struct File {
    test::TemporaryFolder Folder;
    std::u16string Path = Folder.Path() + u"\\a.png";

    File() { Write("12345", 1h); }

    void Write(const char* bytes, std::chrono::seconds age) const {
        Folder.Write(u"a.png", bytes);
        fs::last_write_time(Path, fs::file_time_type::clock::now() - age);
    }
};

} // namespace

TEST_CASE("a file is still what it was until it is written") {
    const File file;
    const FileIdentity before = IdentityOf(file.Path);
    CHECK(before.IsFile);
    CHECK(before.Size == 5);
    CHECK(IdentityOf(file.Path).IsStill(before));
    file.Write("54321", 30min);
    CHECK(!IdentityOf(file.Path).IsStill(before));
}

TEST_CASE("another size shows though the time is put back") {
    const File file;
    const auto time = fs::last_write_time(file.Path);
    const FileIdentity before = IdentityOf(file.Path);
    file.Folder.Write(u"a.png", "123456");
    fs::last_write_time(file.Path, time);
    CHECK(!IdentityOf(file.Path).IsStill(before));
}

TEST_CASE("a file that was written just now may be written again at the same time") {
    const File file;
    file.Write("12345", 1s);
    const FileIdentity fresh = IdentityOf(file.Path);
    CHECK(fresh.IsFile);
    CHECK(!fresh.ShowsChanges);
    CHECK(!IdentityOf(file.Path).IsStill(fresh));
    file.Write("12345", 5s);
    const FileIdentity settled = IdentityOf(file.Path);
    CHECK(settled.ShowsChanges);
    CHECK(IdentityOf(file.Path).IsStill(settled));
}

TEST_CASE("nor does one whose time is in the future show its changes") {
    const File file;
    file.Write("12345", -1h);
    CHECK(!IdentityOf(file.Path).ShowsChanges);
}

TEST_CASE("a folder is no file, and neither is what is not there") {
    const File file;
    CHECK(!IdentityOf(file.Folder.Path()).IsFile);
    const FileIdentity missing = IdentityOf(file.Folder.Path() + u"\\none");
    CHECK(!missing.IsFile);
    CHECK(!IdentityOf(file.Folder.Path() + u"\\none").IsStill(missing));
    CHECK(!IdentityOf(u"").IsFile);
}

} // namespace vantik
