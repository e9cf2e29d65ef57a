#include "tools/skinview/model/LocalNames.h"

#include <doctest/doctest.h>

using namespace vantik;

namespace {

const std::string Sample =
    "Start\r\n[Tab]\r\nFile: ..\\art\\Skin.bmp //drawn\r\n0: 1,2,3,4\r\n"
    "[Icon]\r\nMenuBar: m.png\r\nHome: home.png\r\nLeftButton:M.PNG\r\nMail :x/mail.png\r\n"
    "End\r\nFile: not.bmp\r\n";

} // namespace

TEST_CASE("Every file gets a plain name of its own, and nothing else changes") {
    const LocalSkin skin = WithLocalNames(DefinitionText(Sample));
    CHECK(skin.Definition ==
          "Start\r\n[Tab]\r\nFile: file-0 //drawn\r\n0: 1,2,3,4\r\n"
          "[Icon]\r\nMenuBar: file-1\r\nHome: file-2\r\nLeftButton:file-1\r\nMail :file-3\r\n"
          "End\r\nFile: not.bmp\r\n");
    REQUIRE(skin.Files.size() == 4);
    CHECK(skin.Files[0].Named == u"..\\ART\\SKIN.BMP");
    CHECK(skin.Files[1].Named == u"M.PNG");
    CHECK(skin.Files[1].Local == "file-1");
    CHECK(skin.Files[3].Named == u"X/MAIL.PNG");
}

TEST_CASE("Another bitmap takes the place of every one that is named") {
    const std::string twice = "Start\n[Tab]\nFile: a.bmp\nFile: b.bmp\n";
    CHECK(WithBitmap(DefinitionText(twice), "lit") == "Start\n[Tab]\nFile: lit\nFile: lit\n");
    CHECK(BitmapNameOf(DefinitionText(twice)) == u"B.BMP");
    CHECK(BitmapNameOf(DefinitionText("Start\n")).empty());
}

TEST_CASE("Tabs show the icons that are no buttons") {
    CHECK(TabIconsOf(DefinitionText(Sample)) == std::vector<std::u16string>{u"HOME", u"MAIL "});
}
