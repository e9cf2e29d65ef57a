#include "skin/SkinLoader.h"

#include <doctest/doctest.h>

#include "platform/Files.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/PngBytes.h"
#include "tests/render/FakeUserControl.h"
#include "tests/skin/BitmapFile.h"
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
        const RaisedError raised = ErrorRaisedBy([&] { LoadSkin(Host, State, Surfaces); });
        Text = raised.Text;
        return raised.Number;
    }
    void Write(const Bytes& bitmap) const {
        Folder.Write(u"Skin\\a.bmp", std::string(bitmap.begin(), bitmap.end()));
    }
    // A path in the host's folder, as an error shows it.
    std::string Path(std::string_view name) const {
        return std::string(Folder.Path().begin(), Folder.Path().end()) + "\\" + std::string(name);
    }

    std::string Text; // what the error of the last load says
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
    CHECK(test.Text == test.Path("Skin\\mine.ini") +
                           " is missing, and the built-in skin has skin.ini only: " +
                           test.Path("Temp\\mine.ini") + ": File not found");
    CHECK(test.State.Properties.SkinPath == u"Temp");
    CHECK(test.Folder.Read(u"Temp\\skin.ini").starts_with("Start"));
}

TEST_CASE("a host folder that cannot be written ends in the file error and leaves the control unskinned") {
    Loaded test;
    test.Host.Folder = u"C:\\no such folder";
    CHECK(test.Load() == 76);
    CHECK(test.Text ==
          "C:\\no such folder\\Skin\\skin.ini is missing, and the built-in skin cannot be written to "
          "C:\\no such folder\\Temp: Path not found. Ship a skin with the application, or let it write "
          "there");
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
    CHECK(test.Text == test.Path("Skin\\skin.ini") +
                           ", line 5: \"1,2,3\" is too short: left, right, top and bottom are expected");
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
    CHECK(test.Text == "The skin's bitmap " + test.Path("Skin\\A.BMP") + ": File not found");
    test.Folder.Write(u"Skin\\a.bmp", "");
    CHECK(test.Load() == 481);
    CHECK(test.Text == "The skin's bitmap " + test.Path("Skin\\A.BMP") + ": Invalid picture");
    test.Folder.Write(u"Skin\\a.bmp", "no picture at all");
    CHECK(test.Load() == 481);
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\nFile: folder\\a.bmp\n");
    CHECK(test.Load() == 76);
}

TEST_CASE("a bitmap that promises more than it holds is an invalid picture") {
    Loaded test;
    test.Folder.MakeFolder(u"Skin");
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\nFile: a.bmp\n");
    test.Write(BitmapFile{.Width = 214, .Height = 100000, .Pixels = Bytes(306)}.File());
    CHECK(test.Load() == 481);
    CHECK(test.Text == "The skin's bitmap " + test.Path("Skin\\A.BMP") + ": Invalid picture");
    test.Write(BitmapFile{.Pixels = Bytes(47)}.File());
    CHECK(test.Load() == 481);
    test.Write(BitmapFile{}.File());
    CHECK(test.Load() == 0);
}

TEST_CASE("all legal kinds of bitmaps are skins, and the loader's other formats") {
    const Bytes gif = {'G', 'I',  'F', '8', '9', 'a', 1, 0, 1, 0, 0x80, 0, 0, 0x55, 0x55, 0x55, 0,   0,
                       0,   0x2C, 0,   0,   0,   0,   1, 0, 1, 0, 0,    2, 2, 0x44, 1,    0,    0x3B};
    const HeaderFields grey = {.ColourType = 0};
    const Bytes indexes(24), rle = {5, 0, 0, 0, 0, 5, 0, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0, 1};
    const BitmapFile indexed = {.Bits = 8, .TableSize = 1024, .TableFill = 0x55, .Pixels = indexes};
    BitmapFile core = indexed, runs = indexed, topDown = indexed, v4 = indexed, v5 = indexed, os2 = indexed;
    core.HeaderSize = 12;
    core.TableSize = 768;
    runs.Compression = 1;
    runs.Pixels = rle;
    runs.ImageSize = static_cast<std::uint32_t>(rle.size());
    topDown.Height = -3;
    v4.HeaderSize = 108;
    v5.HeaderSize = 124;
    os2.HeaderSize = 64;
    for (const Bytes& file :
         {BitmapFile{}.File(), indexed.File(), core.File(), runs.File(), topDown.File(), v4.File(), v5.File(),
          os2.File(), gif, PngBytes().Header(grey).StoredImage({0, 0x55}).End().All()}) {
        CAPTURE(file[14]);
        Loaded test;
        test.Folder.MakeFolder(u"Skin");
        test.Folder.Write(u"Skin\\skin.ini", "Start\n[Tab]\nFile: a.bmp\n");
        test.Write(file);
        CHECK(test.Load() == 0);
        CHECK((GetPixel(test.Surfaces.SkinDC.hdc(), 0, 0) & 0xFFFFFF) == 0x555555);
    }
}

TEST_CASE("a definition or a button's picture that cannot be opened is named") {
    Loaded test;
    test.Folder.MakeFolder(u"Skin");
    const auto lock = [&](const char16_t* name) {
        const std::u16string path = test.Folder.Path() + name;
        return CreateFileW(AsWide(path), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    };
    test.Folder.Write(u"Skin\\skin.ini", "Start\n[Icon]\nSun:none.png\nMenuBar: menu.png\n");
    test.Folder.Write(u"Skin\\menu.png", "");
    for (const auto& [name, text] :
         {std::pair{u"\\Skin\\skin.ini", test.Path("Skin\\skin.ini") + ": Path/File access error"},
          std::pair{u"\\Skin\\menu.png", test.Path("Skin\\skin.ini") + ", line 4: " +
                                             test.Path("Skin\\MENU.PNG") + ": Path/File access error"}}) {
        const HANDLE held = lock(name);
        CHECK(test.Load() == 75);
        CHECK(test.Text == text);
        CloseHandle(held);
    }
}

TEST_CASE("a file in the way of the built-in skin is named") {
    Loaded test;
    test.Folder.MakeFolder(u"Temp\\skin2.bmp");
    CHECK(test.Load() == 75);
    CHECK(test.Text ==
          test.Path("Skin\\skin.ini") + " is missing, and the built-in skin cannot be written to " +
              test.Path("Temp\\skin2.bmp") +
              ": Path/File access error. Ship a skin with the application, or let it write there");
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
