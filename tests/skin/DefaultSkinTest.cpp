#include "skin/DefaultSkin.h"

#include <doctest/doctest.h>

#include "platform/Module.h"
#include "tests/RunTimeErrors.h"
#include "tests/skin/TemporaryFolder.h"

using namespace vantik;
using namespace vantik::test;

namespace {

std::string Resource(const wchar_t* name) {
    const auto bytes = ResourceBytes(name, L"CUSTOM");
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

TEST_CASE("the built-in skin is written as eight files to the folder Temp, which is made") {
    const TemporaryFolder host;
    ExtractDefaultSkin(host.Path());
    CHECK(host.Files(u"Temp") ==
          "bar0.png bar1.png delete1.png handno.png menubar.png skin.ini skin2.bmp sun.png");
    CHECK(host.Read(u"Temp\\sun.png") == Resource(L"SUN"));
    CHECK(host.Read(u"Temp\\skin.ini") == Resource(L"SKINFILE"));
    CHECK(host.Read(u"Temp\\skin2.bmp") == Resource(L"SKINBMP"));
    CHECK(host.Read(u"Temp\\menubar.png") == Resource(L"MENUBAR"));
    CHECK(host.Read(u"Temp\\bar0.png") == Resource(L"BAR0"));
    CHECK(host.Read(u"Temp\\bar1.png") == Resource(L"BAR1"));
    CHECK(host.Read(u"Temp\\delete1.png") == Resource(L"DELETE1"));
    CHECK(host.Read(u"Temp\\handno.png") == Resource(L"HANDNO"));
    CHECK(Resource(L"SKINFILE").starts_with("Start\r\n"));
}

TEST_CASE("a file that is there already is overwritten in place, and keeps a longer tail") {
    const TemporaryFolder host;
    host.MakeFolder(u"Temp");
    const std::string sun = Resource(L"SUN");
    host.Write(u"Temp\\sun.png", std::string(sun.size(), 'x') + "tail");
    host.Write(u"Temp\\skin.ini", "short");
    ExtractDefaultSkin(host.Path());
    CHECK(host.Read(u"Temp\\sun.png") == sun + "tail"); // not truncated first
    CHECK(host.Read(u"Temp\\skin.ini") == Resource(L"SKINFILE"));
}

TEST_CASE("a host folder that is not there is a path-not-found error") {
    CHECK(NumberRaisedBy([] { ExtractDefaultSkin(u"C:\\no such folder"); }) == 76);
}

TEST_CASE("a file in the way of the folder or of a file is an access error") {
    const TemporaryFolder host;
    host.Write(u"Temp", "");
    CHECK(NumberRaisedBy([&] { ExtractDefaultSkin(host.Path()); }) == 75);
    host.Remove(u"Temp");
    host.MakeFolder(u"Temp\\skin2.bmp");
    CHECK(NumberRaisedBy([&] { ExtractDefaultSkin(host.Path()); }) == 75);
    CHECK(host.Files(u"Temp") == "skin.ini skin2.bmp sun.png"); // those before it were written
}

TEST_CASE("the files are written in their order: where one fails, those before it are there") {
    const std::u16string inOrder[] = {u"sun.png",  u"skin.ini", u"skin2.bmp",   u"menubar.png",
                                      u"bar0.png", u"bar1.png", u"delete1.png", u"handno.png"};
    for (const auto& blocked : inOrder) {
        CAPTURE(std::string(blocked.begin(), blocked.end()));
        const TemporaryFolder host;
        host.MakeFolder(u"Temp\\" + blocked);
        CHECK(NumberRaisedBy([&] { ExtractDefaultSkin(host.Path()); }) == 75);
        bool isBefore = true;
        for (const auto& name : inOrder) {
            if (name == blocked) isBefore = false;
            CHECK(host.Read(u"Temp\\" + name).empty() == !isBefore);
        }
    }
}

TEST_CASE("a file that somebody else has open is permission denied") {
    const TemporaryFolder host;
    host.MakeFolder(u"Temp");
    host.Write(u"Temp\\sun.png", "");
    const std::u16string path = host.Path() + u"\\Temp\\sun.png";
    const HANDLE other = CreateFileW(AsWide(path), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    CHECK(NumberRaisedBy([&] { ExtractDefaultSkin(host.Path()); }) == 70);
    CloseHandle(other);
    CHECK(NumberRaisedBy([&] { ExtractDefaultSkin(host.Path()); }) == 0);
}

TEST_CASE("a resource that the module does not carry is an internal error, and writes no file") {
    const TemporaryFolder host;
    CHECK(NumberRaisedBy([&] { SaveResourceToFile(u"NONE", u"CUSTOM", host.Path() + u"\\a"); }) == 51);
    CHECK(host.Files(u"") == "");
}
