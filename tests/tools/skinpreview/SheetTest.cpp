// A skin of plain colours on a sheet: each piece has a colour of its own, so that a pixel tells which piece stands there.
#include "tools/skinpreview/Sheet.h"

#include <doctest/doctest.h>

#include <fstream>
#include <set>

#include "host/BuiltControl.h"
#include "host/HostError.h"
#include "host/OleApartment.h"
#include "tests/png/PngBytes.h"
#include "tools/skinpreview/Cutout.h"

using namespace vantik;

namespace {

namespace fs = std::filesystem;

constexpr int SkinWidth = 64, SkinHeight = 48, BarHeight = 24, BarWidth = 80, Lead = 4;
constexpr std::uint32_t Page = 0xEEEEEE, Red = 0xFF0000, Green = 0x00FF00, Blue = 0x0000FF;

struct Piece {
    int Index, Left, Right, Top, Bottom;

    // Different for each, and none of the other colours here.
    std::uint32_t Colour() const {
        return Index == 18 ? Page : 0x203040u + 0x050301u * static_cast<std::uint32_t>(Index);
    }
};

// The left and right pieces are 3 and 5 pixels wide, so that they cannot be taken for each other.
const Piece Pieces[] = {{0, 0, 9, 0, 23},     {1, 0, 9, 0, 23},     {2, 4, 4, 0, 23},    {3, 18, 18, 0, 23},
                        {4, 32, 32, 0, 23},   {5, 0, 2, 0, 23},     {6, 14, 16, 0, 23},  {7, 28, 30, 0, 23},
                        {8, 6, 10, 0, 23},    {9, 20, 24, 0, 23},   {10, 34, 38, 0, 23}, {11, 42, 42, 0, 23},
                        {12, 44, 44, 0, 23},  {13, 46, 46, 0, 23},  {14, 0, 3, 26, 29},  {15, 10, 13, 26, 29},
                        {16, 0, 3, 36, 39},   {17, 10, 13, 36, 39}, {18, 6, 6, 32, 32},  {19, 16, 16, 26, 26},
                        {20, 18, 18, 26, 26}, {21, 20, 20, 26, 26}, {22, 22, 22, 26, 26}};

std::uint32_t ColourOf(int index) { return Pieces[index].Colour(); }

bool IsDrawn(const Piece& piece) { return piece.Index > 1; }

Snapshot MakeBitmap() {
    Snapshot bitmap = {SkinWidth, SkinHeight, std::vector<std::uint32_t>(SkinWidth * SkinHeight, Page)};
    for (const Piece& piece : Pieces)
        for (int y = piece.Top; IsDrawn(piece) && y <= piece.Bottom; ++y)
            for (int x = piece.Left; x <= piece.Right; ++x)
                bitmap.Pixels[static_cast<std::size_t>(y * SkinWidth + x)] = piece.Colour();
    return bitmap;
}

std::string MadeDefinition() {
    std::string text = "Start\n[Tab]\nFile: skin.bmp\n";
    for (const Piece& each : Pieces)
        text += std::to_string(each.Index) + ": " + std::to_string(each.Left) + "," +
                std::to_string(each.Right) + "," + std::to_string(each.Top) + "," +
                std::to_string(each.Bottom) + "\n";
    return text + "[Icon]\nLeftButton: red.png\nRightButton: green.png\nMenuBar: blue.png\nEnd\n";
}

void WriteFile(const fs::path& path, const void* bytes, std::size_t size) {
    std::ofstream(path, std::ios::binary)
        .write(static_cast<const char*>(bytes), static_cast<std::streamsize>(size));
}

void WriteText(const fs::path& path, const std::string& text) { WriteFile(path, text.data(), text.size()); }

// Bottom-up rows of blue, green and red, whose length divides by four.
void WriteBitmap(const fs::path& path, const Snapshot& bitmap) {
    BITMAPFILEHEADER file = {0x4D42, 0, 0, 0, sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)};
    BITMAPINFOHEADER header = {sizeof header, bitmap.Width, bitmap.Height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    std::string bytes(reinterpret_cast<const char*>(&file), sizeof file);
    bytes.append(reinterpret_cast<const char*>(&header), sizeof header);
    for (int y = bitmap.Height - 1; y >= 0; --y)
        for (int x = 0; x < bitmap.Width; ++x)
            for (const int shift : {0, 8, 16}) bytes.push_back(static_cast<char>(bitmap.At(x, y) >> shift));
    WriteText(path, bytes);
}

// With an alpha channel: the control changes the colours of such pictures only.
void WriteIcon(const fs::path& path, std::uint32_t colour) {
    constexpr std::uint32_t Size = 10, Opaque = 0xFF000000;
    Bytes rows;
    for (std::uint32_t y = 0; y < Size; ++y) {
        rows.push_back(0);
        for (std::uint32_t x = 0; x < Size; ++x)
            for (const int shift : {16, 8, 0, 24})
                rows.push_back(static_cast<std::uint8_t>((colour | Opaque) >> shift));
    }
    const Bytes png =
        PngBytes().Header({.Width = Size, .Height = Size, .ColourType = 6}).StoredImage(rows).End();
    WriteFile(path, png.data(), png.size());
}

class SkinOfPlainColours {
public:
    SkinOfPlainColours() : folder_(fs::absolute(L"plain-" + std::to_wstring(GetCurrentProcessId()))) {
        fs::create_directory(folder_);
        WriteText(Definition(), MadeDefinition());
        WriteText(folder_ / "SETTINGS.TXT", "BarWidth = 80\nTabToTab = 0\nTabBorder = True\n");
        WriteBitmap(folder_ / "skin.bmp", MakeBitmap());
        WriteIcon(folder_ / "red.png", Red);
        WriteIcon(folder_ / "green.png", Green);
        WriteIcon(folder_ / "blue.png", Blue);
    }
    ~SkinOfPlainColours() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    fs::path Definition() const { return folder_ / "SKIN.INI"; }

private:
    fs::path folder_;
};

// Taken once: it takes seconds.
struct MadeSheet {
    OleApartment Apartment;
    SkinOfPlainColours Files;
    ControlModule Module{FindBuiltControl()};
    PreviewedSkin Skin{Files.Definition()};
    vantik::Sheet Sheet = MakeSheet(Module, Skin);

    // A pixel of a part, counted before it was enlarged.
    std::uint32_t At(const SheetPart& part, int x, int y) const {
        return Sheet.Picture.At(part.Place.left + x * part.Zoom + part.Zoom / 2,
                                part.Place.top + y * part.Zoom + part.Zoom / 2);
    }
    int WidthOf(const SheetPart& part) const { return (part.Place.right - part.Place.left) / part.Zoom; }
    int HeightOf(const SheetPart& part) const { return (part.Place.bottom - part.Place.top) / part.Zoom; }
};

const MadeSheet& TheSheet() {
    static const MadeSheet sheet;
    return sheet;
}

// As bars on the top have it: `along` from the beginning of the row, `across` from its outer edge.
std::uint32_t OnBars(const wchar_t* side, int along, int across) {
    const MadeSheet& made = TheSheet();
    const SheetPart& part = made.Sheet.Part(side);
    const std::wstring name = side;
    if (name == L"Top") return made.At(part, Lead + along, across);
    if (name == L"Bottom") return made.At(part, Lead + along, made.HeightOf(part) - 1 - across);
    if (name == L"Left") return made.At(part, across, Lead + along);
    return made.At(part, made.WidthOf(part) - 1 - across, Lead + along);
}

// The colours that follow each other along the middle of a row of buttons; the page is none.
std::vector<std::uint32_t> ButtonColours(const std::wstring& part) {
    const MadeSheet& made = TheSheet();
    const SheetPart& buttons = made.Sheet.Part(part);
    const bool lies = part.starts_with(L"Top") || part.starts_with(L"Bottom");
    const int length = lies ? made.WidthOf(buttons) : made.HeightOf(buttons);
    const int middle = (lies ? made.HeightOf(buttons) : made.WidthOf(buttons)) / 2;
    std::vector<std::uint32_t> colours;
    for (int along = 0; along < length; ++along) {
        const std::uint32_t colour = lies ? made.At(buttons, along, middle) : made.At(buttons, middle, along);
        if (colour != Page && (colours.empty() || colours.back() != colour)) colours.push_back(colour);
    }
    return colours;
}

constexpr const wchar_t* Sides[] = {L"Top", L"Bottom", L"Left", L"Right"};

} // namespace

TEST_CASE("Each side shows its four bars in their looks") {
    constexpr int LookOf[] = {0, 1, 2, 0}; // normal, hover, active, and disabled, which has the normal bar
    for (const wchar_t* side : Sides) {
        for (int bar = 0; bar < 4; ++bar) {
            const std::string shown(side, side + wcslen(side));
            CAPTURE(shown);
            CAPTURE(bar);
            const int begin = bar * BarWidth, look = LookOf[bar];
            CHECK(OnBars(side, begin, 1) == ColourOf(5 + look));
            CHECK(OnBars(side, begin + 2, BarHeight - 2) == ColourOf(5 + look));
            CHECK(OnBars(side, begin + 3, 1) == ColourOf(2 + look));
            CHECK(OnBars(side, begin + BarWidth - 6, BarHeight - 2) == ColourOf(2 + look));
            CHECK(OnBars(side, begin + BarWidth - 5, 1) == ColourOf(8 + look));
            CHECK(OnBars(side, begin + BarWidth - 1, BarHeight - 2) == ColourOf(8 + look));
        }
        CHECK(OnBars(side, 4 * BarWidth, 1) == Page);
    }
}

TEST_CASE("The buttons beside the row are shown greyed, released and pressed on each side") {
    using Colours = std::vector<std::uint32_t>;
    for (const std::wstring side : Sides) {
        const std::string shown(side.begin(), side.end());
        CAPTURE(shown);
        CHECK(ButtonColours(side + L", released") == Colours{Red, Green, Blue});
        CHECK(ButtonColours(side + L", pressed") == Colours{0xCC0000, 0x00CC00, 0x0000CC});
        CHECK(ButtonColours(side + L", greyed") == Colours{0x000000, 0xFFFFFF, Blue}); // of the green channel
    }
}

TEST_CASE("The bitmap is shown enlarged, and each piece can be seen through its outline and its number") {
    const MadeSheet& made = TheSheet();
    const SheetPart& bitmap = made.Sheet.Part(L"Bitmap");
    CHECK(bitmap.Zoom > 4);
    CHECK(made.WidthOf(bitmap) == SkinWidth);
    CHECK(made.HeightOf(bitmap) == SkinHeight);
    for (const Piece& piece : Pieces) {
        if (!IsDrawn(piece)) continue;
        CAPTURE(piece.Index);
        CHECK(made.At(bitmap, (piece.Left + piece.Right) / 2, (piece.Top + piece.Bottom) / 2) ==
              piece.Colour());
        const int left = bitmap.Place.left + piece.Left * bitmap.Zoom,
                  top = bitmap.Place.top + piece.Top * bitmap.Zoom;
        const std::uint32_t edge = made.Sheet.Picture.At(left - 1, top + 1);
        CHECK((edge == 0x000000 || edge == 0xFFFFFF));
    }
}

TEST_CASE("The list names each rectangle with its place and size") {
    const std::vector<std::wstring> list = ListOfRects(TheSheet().Skin);
    REQUIRE(list.size() == 23);
    CHECK(list[1] == L"1  BRect:  24 high");
    CHECK(list[9] == L"9  RightPic1:  x 20..24, y 0..23  (5 x 24)");
    CHECK(list[18] == L"18  FBackPic:  x 6, y 32  (1 x 1)");
}

TEST_CASE("No part of the sheet hides another one or reaches out of the sheet") {
    const Sheet& sheet = TheSheet().Sheet;
    CHECK(sheet.Parts.size() == 4 + 4 * 3 + 2);
    for (const SheetPart& one : sheet.Parts) {
        CHECK((one.Place.left >= 0 && one.Place.top >= 0));
        CHECK((one.Place.right <= sheet.Picture.Width && one.Place.bottom <= sheet.Picture.Height));
        for (const SheetPart& other : sheet.Parts) {
            RECT both;
            const bool isBitmap = one.Name == L"Bitmap" || other.Name == L"Bitmap"; // within the cut-out
            if (&one != &other && !isBitmap) CHECK_FALSE(IntersectRect(&both, &one.Place, &other.Place));
        }
    }
    CHECK_THROWS_AS(sheet.Part(L"Middle"), HostError);
}

TEST_CASE("A skin that cannot be read is refused with words, and nothing of it stays") {
    const OleApartment apartment;
    const SkinOfPlainColours files;
    CHECK_THROWS_AS(PreviewedSkin(files.Definition().parent_path() / "OTHER.INI"), HostError);
    fs::remove(files.Definition().parent_path() / "skin.bmp");
    CHECK_THROWS_AS(PreviewedSkin{files.Definition()}, HostError);
    WriteText(files.Definition().parent_path() / "skin.bmp", "no picture");
    CHECK_THROWS_AS(PreviewedSkin{files.Definition()}, HostError);
    const std::wstring copy = L"skin-" + std::to_wstring(GetCurrentProcessId());
    CHECK_FALSE(fs::exists(fs::path(ProgramFolder()) / copy));
}
