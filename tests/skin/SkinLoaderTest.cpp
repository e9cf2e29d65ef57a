#include "skin/SkinLoader.h"

#include <doctest/doctest.h>

#include "platform/Files.h"
#include "tests/RunTimeErrors.h"
#include "tests/render/FakeUserControl.h"
#include "tests/skin/TemporaryFolder.h"

using namespace vantik;
using namespace vantik::test;

namespace {

struct Loaded {
    TemporaryFolder Folder;
    FakeUserControl Host{10, 10};
    ControlState State;
    vantik::Surfaces Surfaces;

    Loaded() { Host.Folder = Folder.Path(); }

    int Load() {
        return NumberRaisedBy([&] { LoadSkin(Host, State, Surfaces); });
    }
};

// A top-down picture of one colour as a file.
std::string Bitmap(LONG width, LONG height) {
    BITMAPINFOHEADER info = {};
    info.biSize = sizeof info;
    info.biWidth = width;
    info.biHeight = height;
    info.biPlanes = 1;
    info.biBitCount = 32;
    const std::string pixels(static_cast<std::size_t>(width * height * 4), '\x55');
    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof info;
    file.bfSize = file.bfOffBits + static_cast<DWORD>(pixels.size());
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof file);
    bytes.append(reinterpret_cast<const char*>(&info), sizeof info);
    return bytes + pixels;
}

} // namespace

TEST_CASE("a skin is loaded from the host's folder through the doubled backslash, and its bitmap with it") {
    Loaded test;
    test.Folder.MakeFolder(u"Skin");
    test.Folder.Write(u"Skin\\skin.ini", "Start\r\n[Tab]\r\nFile: my skin.bmp\r\n25: 1,2,3,4\r\nEnd\r\n");
    test.Folder.Write(u"Skin\\my skin.bmp", Bitmap(7, 5));
    CHECK(test.Load() == 0);
    CHECK(test.State.Properties.SkinPath == u"Skin\\");
    CHECK(test.State.SkinRects[25].Right == 2);
    CHECK(test.Surfaces.SkinDC.width() == 7);
    CHECK(test.Surfaces.SkinDC.height() == 5);
    CHECK((GetPixel(test.Surfaces.SkinDC.hdc(), 6, 4) & 0xFFFFFF) == 0x555555);
    CHECK(test.Folder.Files(u"") == "Skin"); // nothing was written
}

TEST_CASE("a missing definition recreates the folder Temp with the built-in skin and draws with that") {
    Loaded test;
    CHECK(test.Load() == 0);
    CHECK(test.State.Properties.SkinPath == u"Temp");
    CHECK(test.Host.TakeLog() == ""); // not marked changed, so it is not saved
    CHECK(test.State.SkinBitmapPath == test.Folder.Path() + u"\\Temp\\SKIN2.BMP");
    CHECK(test.Surfaces.SkinDC.width() == 214);
    CHECK(test.Surfaces.SkinDC.height() == 188);
    CHECK(test.State.SkinIcons.SkinIconCount() == 6);
    const SkinIcon* menu = test.State.SkinIcons.At(test.State.SkinIcons.MenuBarIcon);
    REQUIRE(menu);
    CHECK(menu->Width > 0);
    CHECK(FileExists(menu->FilePath));
}

TEST_CASE("the built-in skin is written each time its definition is missing") {
    Loaded test;
    CHECK(test.Load() == 0);
    test.Folder.Remove(u"Temp");
    CHECK(test.Load() == 0); // SkinPath is "Temp" now, and nothing is there
    CHECK(test.Folder.Files(u"Temp") ==
          "bar0.png bar1.png delete1.png handno.png menubar.png skin.ini skin2.bmp sun.png");
    CHECK(test.State.SkinIcons.SkinIconCount() == 12);
}

TEST_CASE("a missing definition of another name is still not found after the built-in skin was written") {
    Loaded test;
    test.State.Properties.SkinFile = u"mine.ini";
    CHECK(test.Load() == 53);
    CHECK(test.State.Properties.SkinPath == u"Temp");
    CHECK(test.Folder.Read(u"Temp\\skin.ini").starts_with("Start"));
}

TEST_CASE("a host folder that cannot be written ends in the file error and leaves the control unskinned") {
    Loaded test;
    test.Host.Folder = u"C:\\no such folder";
    CHECK(test.Load() == 76);
    CHECK(test.State.Properties.SkinPath == u"Skin\\");
    CHECK(test.State.SkinIcons.SkinIconCount() == 0);
    CHECK(test.Surfaces.SkinDC.width() == 0);
}

TEST_CASE("a definition that fails midway leaves what it said before in force and loads no bitmap") {
    Loaded test;
    test.Folder.MakeFolder(u"Skin");
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\nFile: a.bmp\n3: 1,2,3,4\n4: 1,2,3\n");
    test.Folder.Write(u"Skin\\a.bmp", Bitmap(7, 5));
    CHECK(test.Load() == 9);
    CHECK(test.State.SkinRects[3].Left == 1);
    CHECK(test.Surfaces.SkinDC.width() == 0);
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\n4: 1,2,3,4\n");
    CHECK(test.Load() == 0); // the file is not left open, and the bitmap of before is named still
    CHECK(test.Surfaces.SkinDC.width() == 7);
}

TEST_CASE("a bitmap that is missing is not found, one that is none is an invalid picture") {
    Loaded test;
    test.Folder.MakeFolder(u"Skin");
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\nFile: a.bmp\n");
    CHECK(test.Load() == 53);
    test.Folder.Write(u"Skin\\a.bmp", "");
    CHECK(test.Load() == 481);
    test.Folder.Write(u"Skin\\a.bmp", "no picture at all");
    CHECK(test.Load() == 481);
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\nFile: folder\\a.bmp\n");
    CHECK(test.Load() == 76);
}

TEST_CASE("a definition without a bitmap is in force with its rectangles and icons") {
    Loaded test;
    test.Folder.MakeFolder(u"Skin");
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\n3: 1,2,3,4\n[Icon]\nSun: sun.png\n");
    CHECK(test.Load() == 0);
    CHECK(test.State.SkinIcons.SkinIconCount() == 1);
    CHECK(test.Surfaces.SkinDC.width() == 0);
}

TEST_CASE("the definition's bytes are in the ANSI code page") {
    Loaded test;
    test.Folder.MakeFolder(u"Skin");
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Icon]\n\xC9\xE9: a.png\n");
    CHECK(test.Load() == 0);
    const char16_t* expected = GetACP() == 936 ? u"\u7837" : GetACP() == 1252 ? u"\u00C9\u00C9" : nullptr;
    REQUIRE_MESSAGE(expected, "run this in code page 936 or 1252");
    CHECK(test.State.SkinIcons.Entries[0].Name == expected);
}
