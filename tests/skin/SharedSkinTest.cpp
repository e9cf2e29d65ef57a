// A skin that another control of the process has loaded is not read again, and nobody can tell: whatever a control held
// before, it holds afterwards what reading the files would have given it.
#include <doctest/doctest.h>

#include <array>
#include <filesystem>
#include <memory>
#include <random>
#include <sstream>
#include <tuple>

#include "platform/FileStore.h"
#include "render/PngIconDrawing.h"
#include "render/SharedPngSize.h"
#include "skin/SkinLoader.h"
#include "tests/RunTimeErrors.h"
#include "tests/gfx/TestSurface.h"
#include "tests/render/FakeUserControl.h"
#include "tests/skin/BitmapFile.h"
#include "tests/skin/IconPicture.h"
#include "tests/skin/TemporaryFolder.h"

namespace vantik {

namespace {

using namespace test;

std::string Narrow(std::u16string_view text) { return {text.begin(), text.end()}; }

struct Control {
    FakeUserControl Host{10, 10};
    ControlState State;
    vantik::Surfaces Surfaces;
    std::string Error; // of the last load

    explicit Control(const std::u16string& folder) { Host.Folder = folder; }

    void Load(const std::u16string& skinPath) {
        State.Properties.SkinPath = skinPath;
        const RaisedError raised = ErrorRaisedBy([&] { LoadSkin(Host, State, Surfaces); });
        Error = std::to_string(raised.Number) + " " + raised.Text;
    }

    // All that a load may change.
    std::string Held() {
        std::ostringstream text;
        text << Error << "\n" << Narrow(State.Properties.SkinPath) << "\n" << Narrow(State.SkinBitmapPath);
        text << "\n" << State.LastPng.LastPngWidth << " " << State.LastPng.LastPngHeight << "\n";
        for (std::int32_t i = 0; i < SkinRects::Count; ++i) {
            const SkinRect& r = State.SkinRects[i];
            for (const auto value : {r.Left, r.Top, r.Right, r.Bottom, r.Width, r.Height})
                text << value << " ";
        }
        const SkinIcons& icons = State.SkinIcons;
        for (const auto role :
             {icons.DeleteButtonIcon, icons.LeftButtonIcon, icons.RightButtonIcon, icons.MenuBarIcon})
            text << "\nrole " << role;
        for (const SkinIcon& icon : icons.Entries)
            text << "\n"
                 << Narrow(icon.Name) << " " << Narrow(icon.FilePath) << " " << icon.Width << " "
                 << icon.Height << " " << (icon.Handles == SkinIcon().Handles);
        return text.str();
    }

    Pixels Surface() {
        pcMemDC& skin = Surfaces.SkinDC;
        if (skin.width() == 0) return {};
        const TestSurface copy(skin.width(), skin.height());
        skin.Draw(copy.DC());
        return copy.Read();
    }

    // In every way that a skin's pieces are drawn.
    Pixels Pieces() {
        TestSurface surface(Patterned(60, 60, 5));
        pcMemDC& skin = Surfaces.SkinDC;
        const auto draw = [&](auto operation, std::int32_t at) {
            (skin.*operation)(surface.DC(), 1, 2, 6, 5, at, at, true);
            (skin.*operation)(surface.DC(), 0, 0, 0, 0, at + 3, 50 - at, true);
        };
        draw(&pcMemDC::Draw, 2);
        draw(&pcMemDC::Plg90Draw, 12);
        draw(&pcMemDC::Plg180Draw, 22);
        draw(&pcMemDC::Plg270Draw, 32);
        skin.Stretch270Draw(surface.DC(), 40, 40, 1, 9, 3, 1, 1, 6);
        skin.StretchDraw(surface.DC(), 20, 2, 9, 7, 1, 0, 3, 2);
        skin.StretchDraw(surface.DC(), 45, 20, -9, 7, 1, 0, 3, 2);
        skin.Draw(surface.DC(), 2, 1, 2, 3, 31, 2);
        skin.StretchDraw(surface.DC(), 0, 56, 60, 4, 3, 2, 1, 1);
        TestSurface large(100, 100);
        skin.StretchDraw(large.DC(), 0, 0, 100, 100, 3, 2, 1, 1);
        surface.Write([&] {
            Pixels pixels = surface.Read();
            pixels.Set(59, 0, large.Read().At(99, 99));
            return pixels;
        }());
        return surface.Read();
    }

    // Beyond the edges of the skin.
    Pixels PiecesBeyond() {
        TestSurface surface(Patterned(60, 60, 5));
        pcMemDC& skin = Surfaces.SkinDC;
        const std::int32_t right = skin.width() - 2, bottom = skin.height() - 2;
        skin.Draw(surface.DC(), right, bottom, 5, 5, 2, 2);
        skin.Draw(surface.DC(), -2, -1, 5, 5, 12, 2);
        skin.Draw(surface.DC(), right, bottom, 5, 5, 22, 2, true);
        skin.StretchDraw(surface.DC(), 2, 30, 20, 20, right, bottom, 4, 4);
        return surface.Read();
    }
};

void CheckSame(Control& control, Control& expected) {
    CHECK(control.Held() == expected.Held());
    CHECK(Difference(control.Surface(), expected.Surface()) == "same");
    CHECK(Difference(control.Pieces(), expected.Pieces()) == "same");
    CHECK(Difference(control.PiecesBeyond(), expected.PiecesBeyond()) == "same");
    CHECK(Difference(control.Pieces(), expected.Pieces()) == "same");
}

// A 24-bit bitmap with pixels of the key colour.
std::string RandomBitmap(std::mt19937& random) {
    BitmapFile file;
    file.Bits = 24;
    file.Width = 4 + static_cast<std::int32_t>(random() % 30);
    file.Height = 4 + static_cast<std::int32_t>(random() % 30);
    const auto stride = static_cast<std::size_t>((file.Width * 24 + 31) / 32 * 4);
    file.Pixels.resize(stride * static_cast<std::size_t>(file.Height));
    for (auto& byte : file.Pixels) byte = static_cast<std::uint8_t>(random());
    for (std::size_t i = 0; i + 3 <= file.Pixels.size(); i += 3)
        if (random() % 5 == 0) file.Pixels[i] = file.Pixels[i + 2] = 255, file.Pixels[i + 1] = 0;
    const Bytes bytes = file.File();
    return {bytes.begin(), bytes.end()};
}

constexpr std::array<const char*, 5> Pictures = {"a.png", "b.png", "c.png", "none.png", "text.png"};

// Definitions as people write them, and worse.
std::string RandomDefinition(std::mt19937& random) {
    const auto one = [&](auto... choices) {
        const std::array<std::string, sizeof...(choices)> all = {choices...};
        return all[random() % all.size()];
    };
    const auto number = [&] { return std::to_string(static_cast<int>(random() % 60) - 5); };
    const std::string end = one("\r\n", "\n", "\r");
    const bool isSound = random() % 4 != 0;
    std::string text = one("", "5: 1,2,3,4" + end) + one("Start", "  start ", "STARTED") + end;
    for (unsigned lines = random() % 40; lines > 0; --lines) {
        const std::string rect = std::to_string(random() % 26) + one(":", " :", ": ") + number() + "," +
                                 number() + " ," + number() + "," + number() + one("", " //text", ",9");
        const std::string icon = one("Sun:", "DeleteButton:", "LeftButton: ", "rightbutton:", "MenuBar:",
                                     "menubar :", "two words:") +
                                 Pictures[random() % Pictures.size()];
        const std::string bad = one("27: 1,2,3,4", "x: 1,2,3,4", "3: 1,2", "4: 1,2,x,4", "File : a.bmp");
        const std::string file = one("File: a.bmp", "file:b.bmp // the bitmap", "File:none.bmp");
        switch (random() % 9) {
        case 0: text += one("[Tab]", "[ tab ]", "[Icon]", "[Other]", "[Tab] // no section"); break;
        case 1: text += one("", "// a comment", "no entry", "Title: x"); break;
        case 2: text += "[Tab]" + end + (isSound ? one("File: a.bmp", "File: b.bmp") : file); break;
        case 3: text += isSound ? rect : "[Tab]" + end + bad; break;
        case 4:
        case 5: text += "[Tab]" + end + rect; break;
        default: text += "[Icon]" + end + icon; break;
        }
        text += end;
    }
    return text + one("", "End", "ending" + end + "[Tab]" + end + "7: 1,2,3,4");
}

// A skin as if it had been written an hour ago.
void WriteSkin(const TemporaryFolder& folder, const std::u16string& name, const std::string& definition,
               std::mt19937 random) {
    folder.MakeFolder(name);
    const auto write = [&](const char16_t* file, const std::string& bytes) {
        folder.Write(name + u"\\" + file, bytes);
    };
    write(u"skin.ini", definition);
    write(u"a.bmp", RandomBitmap(random));
    write(u"b.bmp", RandomBitmap(random));
    write(u"a.png", AsPng(RandomIcon(7, 5, 1)));
    write(u"b.png", AsPng(RandomIcon(12, 9, 2)));
    write(u"c.png", FlatPng(3, 40000)); // beyond 16 bits, which its width is not
    write(u"text.png", "no picture");
    folder.MakeOld(name);
}

std::string BuiltInDefinition() {
    const TemporaryFolder folder;
    Control control(folder.Path());
    control.Load(u"none");
    return folder.Read(u"Temp\\skin.ini");
}

// Opened by somebody who lets nobody else in.
class Locked {
public:
    explicit Locked(const std::u16string& path)
        : file_(CreateFileW(AsWide(path), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}
    ~Locked() { CloseHandle(file_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

private:
    HANDLE file_;
};

struct LockedSkin {
    Locked Definition, First, Second, Small, Large;
    explicit LockedSkin(const std::u16string& folder)
        : Definition(folder + u"\\skin.ini"),
          First(folder + u"\\a.bmp"),
          Second(folder + u"\\b.bmp"),
          Small(folder + u"\\a.png"),
          Large(folder + u"\\b.png") {}
};

// The built-in one and random ones.
std::vector<std::string> Definitions() {
    std::vector<std::string> definitions = {BuiltInDefinition(), ""};
    std::mt19937 random(20);
    while (definitions.size() < 200) definitions.push_back(RandomDefinition(random));
    return definitions;
}

} // namespace

TEST_CASE("a shared load leaves what reading the files leaves, in fresh controls and over any other skin") {
    const std::vector<std::string> definitions = Definitions();
    std::mt19937 random(21);
    int shared = 0;
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        CAPTURE(definitions[i]);
        const TemporaryFolder folder;
        WriteSkin(folder, u"Skin", definitions[i], random);
        WriteSkin(folder, u"Before", definitions[random() % definitions.size()], std::mt19937(random()));
        // Without a user of the store nothing is kept: this is the plain reading.
        Control expected(folder.Path()), expectedOver(folder.Path());
        expected.Load(u"Skin");
        expectedOver.Load(u"Before");
        expectedOver.Load(u"Skin");
        expectedOver.Load(u"Skin");
        REQUIRE(KeptBytes() == 0);

        const FileStoreUser user;
        Control first(folder.Path()), fresh(folder.Path()), over(folder.Path());
        first.Load(u"Skin");
        CheckSame(first, expected);
        over.Load(u"Before");
        std::unique_ptr<LockedSkin> locked; // so that nobody can read it again
        if (expected.Error == "0 ") locked = std::make_unique<LockedSkin>(folder.Path() + u"\\Skin");
        shared += locked != nullptr;
        fresh.Load(u"Skin");
        CheckSame(fresh, expected);
        over.Load(u"Skin");
        over.Load(u"Skin");
        CheckSame(over, expectedOver);
    }
    CHECK(shared > 50);
    CHECK(shared < 190);
}

TEST_CASE("the same definition named by another folder finds its files there") {
    const TemporaryFolder folder;
    folder.MakeFolder(u"Skin\\Inner");
    const std::string definition = "Start\n[Tab]\nFile: a.bmp\n[Icon]\nSun: sun.png\n";
    folder.Write(u"Skin\\Inner\\skin.ini", definition);
    std::mt19937 random(1);
    folder.Write(u"Skin\\a.bmp", RandomBitmap(random));
    folder.Write(u"Skin\\Inner\\a.bmp", RandomBitmap(random));
    folder.MakeOld(u"Skin\\Inner");
    const FileStoreUser user;
    Control inner(folder.Path()), outer(folder.Path());
    inner.Load(u"Skin\\Inner");
    outer.State.Properties.SkinFile = u"Inner\\skin.ini";
    outer.Load(u"Skin");
    CHECK(Narrow(inner.State.SkinBitmapPath) == Narrow(folder.Path() + u"\\Skin\\Inner\\A.BMP"));
    CHECK(Narrow(outer.State.SkinBitmapPath) == Narrow(folder.Path() + u"\\Skin\\A.BMP"));
    CHECK(Narrow(outer.State.SkinIcons.Entries.at(0).FilePath) == Narrow(folder.Path() + u"\\Skin\\SUN.PNG"));
    CHECK(inner.Surface() != outer.Surface());
}

TEST_CASE("too many icons are an overflow in the line that adds one too many, shared or not") {
    const TemporaryFolder folder;
    std::mt19937 random(1);
    WriteSkin(folder, u"Skin", "Start\n[Icon]\nSun: a.png\nMenuBar: b.png\nMoon: a.png\n", random);
    const auto loadedWith = [&](std::size_t icons) {
        auto control = std::make_unique<Control>(folder.Path());
        control->State.SkinIcons.Entries.resize(icons);
        control->Load(u"Skin");
        return control;
    };
    for (const std::size_t icons : {std::size_t{32764}, std::size_t{32765}, std::size_t{32766}}) {
        CAPTURE(icons);
        const auto expected = loadedWith(icons);
        const FileStoreUser user;
        loadedWith(0);
        CheckSame(*loadedWith(icons), *expected);
        CHECK((expected->Error == "0 ") == (icons == 32764));
    }
}

TEST_CASE("a bitmap is shared as large as it is, whatever the control showed that read it first") {
    const TemporaryFolder folder;
    for (const std::uint32_t seed : {6u, 7u})
        WriteSkin(folder, seed == 6 ? u"One" : u"Two", "Start\n[Tab]\nFile: a.bmp\n", std::mt19937(seed));
    for (const auto& [before, now] : {std::pair(u"One", u"Two"), std::pair(u"Two", u"One")}) {
        Control expected(folder.Path());
        expected.Load(now);
        const FileStoreUser user;
        Control over(folder.Path()), fresh(folder.Path());
        over.Load(before);
        over.Load(now);
        fresh.Load(now);
        CHECK(fresh.Surface().Width == expected.Surface().Width);
        CHECK(fresh.Surface().Height == expected.Surface().Height);
        CheckSame(fresh, expected);
    }
}

TEST_CASE("a control that draws on its skin changes no other's") {
    const TemporaryFolder folder;
    std::mt19937 random(3);
    WriteSkin(folder, u"Skin", "Start\n[Tab]\nFile: a.bmp\n", random);
    Control expected(folder.Path());
    expected.Load(u"Skin");
    const FileStoreUser user;
    Control first(folder.Path()), second(folder.Path()), third(folder.Path());
    first.Load(u"Skin");
    second.Load(u"Skin");
    for (Control* control : {&first, &second})
        PatBlt(control->Surfaces.SkinDC.hdc(), 0, 0, 99, 99, WHITENESS);
    CHECK(second.Pieces() != expected.Pieces());
    third.Load(u"Skin");
    CheckSame(third, expected);
    second.Load(u"Skin");
    CheckSame(second, expected);
}

namespace {

enum class Change { SameSize, Smaller, Larger, Replaced, SameTime, Gone };

void Apply(Change change, const TemporaryFolder& folder, const std::u16string& name,
           const std::string& bytes) {
    namespace fs = std::filesystem;
    const fs::path path = folder.Path() + u"\\" + name;
    const auto time = fs::last_write_time(path);
    fs::remove(path);
    if (change == Change::Gone) return;
    if (change == Change::Replaced) {
        folder.Write(name + u".new", bytes);
        fs::rename(path.u16string() + u".new", path);
    } else {
        folder.Write(name, bytes);
    }
    if (change == Change::SameTime) fs::last_write_time(path, time);
}

} // namespace

TEST_CASE("an icon's file that differs shows at the next drawing, and again and again") {
    const auto draw = [](const std::u16string& path) {
        TestSurface surface(Patterned(20, 20, 9));
        PngSize size;
        std::string error = TextRaisedBy([&] {
            ReadSharedPngFileSize(path, size);
            DrawPngFile(path, surface.DC(), nullptr, 2, 1, 3, 0, surface.DC());
        });
        return std::tuple(surface.Read().Values, size.LastPngWidth, error.empty());
    };
    const TemporaryFolder folder;
    const std::u16string path = folder.Path() + u"\\a.png";
    for (const Change change : {Change::SameSize, Change::Smaller, Change::Larger, Change::Replaced,
                                Change::SameTime, Change::Gone}) {
        CAPTURE(static_cast<int>(change));
        const std::string before = AsPng(RandomIcon(8, 8, 1));
        const bool isOther = change != Change::SameSize && change != Change::Replaced;
        const std::string after = AsPng(RandomIcon(change == Change::Larger ? 9 : isOther ? 6 : 8, 8, 2));
        folder.Write(u"a.png", after);
        const auto shownAfter = draw(path);
        folder.Write(u"a.png", before);
        folder.MakeOld(u"");
        const auto shownBefore = draw(path);
        const FileStoreUser user;
        CHECK(draw(path) == shownBefore);
        CHECK(draw(path) == shownBefore);
        Apply(change, folder, u"a.png", after);
        CHECK((draw(path) == shownAfter) == (change != Change::Gone));
        CHECK(draw(path) != shownBefore);
        folder.Write(u"a.png", before); // just now: written again at the same time it would look the same
        CHECK(draw(path) == shownBefore);
        folder.Write(u"a.png", after);
        CHECK(draw(path) == shownAfter);
    }
}

namespace {

// The file's bytes with another meaning, in just as much room.
std::string Other(const std::u16string& name, std::string bytes) {
    if (name == u"skin.ini") std::swap(bytes.at(bytes.find('7')), bytes.at(bytes.find('8')));
    if (name == u"a.bmp")
        for (std::size_t i = 54; i < bytes.size(); ++i) bytes[i] = static_cast<char>(~bytes[i]);
    if (name == u"a.png") std::swap(bytes.at(19), bytes.at(23)); // its width and height
    return bytes;
}

} // namespace

TEST_CASE("a skin's file that differs is seen by the next load") {
    for (const std::u16string name : {u"skin.ini", u"a.bmp", u"a.png"})
        for (const Change change :
             {Change::SameSize, Change::Larger, Change::Replaced, Change::SameTime, Change::Gone}) {
            CAPTURE(Narrow(name));
            CAPTURE(static_cast<int>(change));
            const TemporaryFolder folder;
            WriteSkin(folder, u"Skin", "Start\n[Tab]\nFile: a.bmp\n5: 1,2,7,8\n[Icon]\nMenuBar: a.png\n",
                      std::mt19937(4));
            const std::u16string path = u"Skin\\" + name;
            const std::string before = folder.Read(path);
            std::string after = Other(name, before);
            if (change == Change::Larger || change == Change::SameTime) after += "\n";
            folder.Write(path, after);
            if (change == Change::Gone) folder.Remove(path);
            Control expected(folder.Path());
            expected.Load(u"Skin");
            folder.Remove(u"Temp");
            folder.Write(path, before);
            folder.MakeOld(u"Skin");

            const FileStoreUser user;
            Control first(folder.Path()), second(folder.Path()), third(folder.Path());
            first.Load(u"Skin");
            second.Load(u"Skin");
            CHECK((second.Held() != expected.Held() || second.Surface() != expected.Surface()));
            Apply(change, folder, path, after);
            third.Load(u"Skin");
            CheckSame(third, expected);
        }
}

TEST_CASE("what could not be read is tried again by the next load") {
    const TemporaryFolder folder;
    WriteSkin(folder, u"Skin", "Start\n[Tab]\nFile: a.bmp\n[Icon]\nMenuBar: a.png\n", std::mt19937(5));
    Control expected(folder.Path());
    expected.Load(u"Skin");
    for (const std::u16string name : {u"skin.ini", u"a.bmp", u"a.png"}) {
        CAPTURE(Narrow(name));
        const FileStoreUser user;
        Control first(folder.Path()), second(folder.Path());
        {
            const Locked locked(folder.Path() + u"\\Skin\\" + name);
            first.Load(u"Skin");
            CHECK(first.Error != expected.Error);
        }
        second.Load(u"Skin");
        CheckSame(second, expected);
    }
}

TEST_CASE("whoever draws on a picture that he got draws on his own, in whatever style he got it") {
    const TemporaryFolder folder;
    const std::u16string path = folder.Path() + u"\\a.png";
    TestSurface surface(20, 20);
    const auto draw = [&](std::uint8_t style) {
        surface.Write(Patterned(20, 20, 9));
        return DrawPngFile(path, surface.DC(), nullptr, 2, 1, style, 0, surface.DC());
    };
    for (const std::string& bytes : {AsPng(RandomIcon(8, 8, 1)), FlatPng(8, 8)}) {
        folder.Write(u"a.png", bytes);
        folder.MakeOld(u"");
        draw(3);
        const Pixels expected = surface.Read();
        const FileStoreUser user;
        for (const std::uint8_t style : std::initializer_list<std::uint8_t>{0, 1, 2, 3, 4, 5}) {
            const OwnedBitmap drawn = draw(style);
            const MemoryDC memory(CreateCompatibleDC(nullptr));
            const Selection selected = Select(memory.Get(), drawn.Get());
            CHECK(PatBlt(memory.Get(), 0, 0, 8, 8, WHITENESS));
            draw(3);
            CHECK(Difference(surface.Read(), expected) == "same");
        }
    }
}

TEST_CASE("what is kept is counted with all its pixels and texts") {
    const TemporaryFolder folder;
    const std::string longName(100, 'n');
    std::string definition = "Start\n[Tab]\nFile: a.bmp\n[Icon]\n";
    for (int i = 0; i < 50; ++i) definition += "Key" + std::to_string(i) + ": " + longName + "\n";
    WriteSkin(folder, u"Skin", definition, std::mt19937(8));
    folder.Write(u"Skin\\b.png", AsPng(RandomIcon(100, 100, 1)));
    folder.MakeOld(u"Skin");
    const FileStoreUser user;
    Control control(folder.Path());
    control.Load(u"Skin");
    const std::size_t pixelsOfSkin = control.Surface().Values.size();
    const std::size_t keptOfSkin = KeptBytes();
    CHECK(keptOfSkin > 4 * pixelsOfSkin + 50 * 2 * longName.size());
    CHECK(keptOfSkin < 3 * (4 * pixelsOfSkin + 50 * 2 * longName.size()));
    const TestSurface surface(20, 20);
    DrawPngFile(folder.Path() + u"\\Skin\\b.png", surface.DC(), nullptr, 0, 0, 3, 0, surface.DC());
    CHECK(KeptBytes() - keptOfSkin > 40000);
    CHECK(KeptBytes() - keptOfSkin < 50000);
}

TEST_CASE("a file that is no picture is looked at again each time, and one that is locked is not needed") {
    const TemporaryFolder folder;
    const std::u16string path = folder.Path() + u"\\a.png";
    folder.Write(u"a.png", "no picture");
    folder.MakeOld(u"");
    const FileStoreUser user;
    TestSurface surface(20, 20);
    const auto draw = [&] {
        return bool(DrawPngFile(path, surface.DC(), nullptr, 0, 0, 3, 0, surface.DC()));
    };
    CHECK(!draw());
    CHECK(KeptBytes() == 0);
    {
        const Locked locked(path);
        CHECK(NumberRaisedBy(draw) == 75);
    }
    folder.Write(u"a.png", AsPng(RandomIcon(8, 8, 1)));
    folder.MakeOld(u"");
    CHECK(draw());
    const Locked locked(path);
    CHECK(draw());
}

} // namespace vantik
