#include "skin/SkinLocation.h"

#include <doctest/doctest.h>

#include "tests/render/FakeUserControl.h"
#include "tests/skin/TemporaryFolder.h"

using namespace vantik;
using namespace vantik::test;

namespace {

struct HostWithSkin {
    TemporaryFolder Folder;
    FakeUserControl Host{10, 10};
    ControlState State;

    HostWithSkin() {
        Host.Folder = Folder.Path();
        Folder.MakeFolder(u"Skin\\Deep");
        Folder.Write(u"Skin\\skin.ini", "Start");
        Folder.Write(u"other.ini", "Start");
    }
};

} // namespace

TEST_CASE("a skin file is looked for in the current SkinPath only") {
    HostWithSkin test;
    CHECK(SkinFileExists(test.Host, test.State, u"skin.ini")); // behind a doubled backslash
    CHECK(SkinFileExists(test.Host, test.State, u"SKIN.INI"));
    CHECK_FALSE(SkinFileExists(test.Host, test.State, u"other.ini")); // it exists elsewhere
    CHECK(SkinFileExists(test.Host, test.State, u"..\\other.ini"));
    test.State.Properties.SkinPath = u"";
    CHECK(SkinFileExists(test.Host, test.State, u"other.ini"));
}

TEST_CASE("a folder is no skin file, and a file is no skin folder") {
    HostWithSkin test;
    CHECK_FALSE(SkinFileExists(test.Host, test.State, u""));
    CHECK_FALSE(SkinFileExists(test.Host, test.State, u"Deep"));
    CHECK_FALSE(SkinFolderExists(test.Host, u"other.ini"));
}

TEST_CASE("a skin folder is looked for in the host folder, with or without a backslash at its end") {
    HostWithSkin test;
    CHECK(SkinFolderExists(test.Host, u"Skin"));
    CHECK(SkinFolderExists(test.Host, u"Skin\\"));
    CHECK(SkinFolderExists(test.Host, u"skin\\deep"));
    CHECK(SkinFolderExists(test.Host, u""));
    CHECK_FALSE(SkinFolderExists(test.Host, u"Deep"));
}

TEST_CASE("names that no file can have are not there") {
    HostWithSkin test;
    for (const char16_t* name : {u"a*b", u"<>", u"a\nb", u"con\\x"}) {
        CHECK_FALSE(SkinFileExists(test.Host, test.State, name));
        CHECK_FALSE(SkinFolderExists(test.Host, name));
    }
    CHECK_FALSE(SkinFileExists(test.Host, test.State, std::u16string(100000, u'x')));
}

TEST_CASE("the messages are the stated texts") {
    CHECK(NoSuchSkinFile == std::u16string(u"不存在此文件，请确定文件是否存在，或请先设SkinPath属性"));
    CHECK(NoSuchSkinFolder == std::u16string(u"皮肤目录不存在，请先创建目录!"));
}
