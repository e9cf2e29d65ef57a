// The skins to choose from on the page "Skin", and their pictures.
#include <doctest/doctest.h>

#include <algorithm>

#include "ole/pages/SkinPageTest.h"

namespace vantik {

namespace {

constexpr int Width = 240, Height = 32; // of a line

std::uint32_t SystemColour(int index) {
    const COLORREF colour = GetSysColor(index);
    return static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour));
}

// The page shows its lists from when it is opened.
struct SkinListTest : SkinPageTest {
    SkinListTest() {
        WriteSkin(Skin, L"grey");
        WriteSkin(Skin, L"other");
    }
    void Open() const {
        const RECT place = {0, 0, 500, 400};
        REQUIRE(Page.Page->Deactivate() == S_OK);
        REQUIRE(Page.Page->Activate(Page.Frame, &place, FALSE) == S_OK);
        REQUIRE(Page.Page->Show(SW_SHOW) == S_OK);
        Edit();
    }

    HWND List() const { return Page.Item(SKIN_LIST); }
    std::wstring Name(const wchar_t* folder) const { return Skin.SkinPath() + L"\\" + folder; }
    int Line(const wchar_t* folder) const {
        return static_cast<int>(SendMessageW(List(), LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                             reinterpret_cast<LPARAM>(Name(folder).c_str())));
    }
    int Chosen() const { return static_cast<int>(SendMessageW(List(), LB_GETCURSEL, 0, 0)); }

    // As the list tells the page when the user does so.
    void Choose(const wchar_t* folder) const {
        SendMessageW(List(), LB_SETCURSEL, static_cast<WPARAM>(Line(folder)), 0);
        SendMessageW(Page.Window(), WM_COMMAND, MAKEWPARAM(SKIN_LIST, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(List()));
        Page.Pump();
    }

    // A line as it is drawn.
    test::Pixels Draw(const wchar_t* folder, UINT state = 0) const {
        const test::TestSurface surface(Width, Height);
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_LISTBOX;
        item.CtlID = SKIN_LIST;
        item.itemID = static_cast<UINT>(Line(folder));
        item.itemAction = ODA_DRAWENTIRE;
        item.itemState = state;
        item.hwndItem = List();
        item.hDC = surface.DC();
        item.rcItem = {0, 0, Width, Height};
        SendMessageW(Page.Window(), WM_DRAWITEM, SKIN_LIST, reinterpret_cast<LPARAM>(&item));
        return surface.Read();
    }
};

// Whether anything but the ground is in the half of the picture.
bool HasPicture(const test::Pixels& line, int ground = COLOR_WINDOW) {
    const auto half = line.Cut(Width / 2, 0, Width / 2, Height);
    return std::ranges::any_of(half.Values, [&](auto each) { return each != SystemColour(ground); });
}

bool HasName(const test::Pixels& line, int text = COLOR_WINDOWTEXT) {
    const auto half = line.Cut(0, 0, Width / 2, Height);
    return std::ranges::count(half.Values, SystemColour(text)) > 20;
}

} // namespace

TEST_CASE("The skins that lie below the program are listed by their folders, whatever is wrong in them") {
    const SkinListTest test;
    test.Skin.Write(L"other\\skin.ini", "no skin");
    test.Open();
    CHECK(test.Line(L"grey") >= 0);
    CHECK(test.Line(L"other") > test.Line(L"grey"));
    CHECK(SendMessageW(test.List(), LB_GETCOUNT, 0, 0) ==
          static_cast<LRESULT>(test.Page.List(SKIN_FOLDER).size()));
    CHECK((GetWindowLongW(test.List(), GWL_STYLE) & WS_TABSTOP) != 0);
    wchar_t label[20] = {};
    GetWindowTextW(GetWindow(test.List(), GW_HWNDPREV), label, 20); // what screen readers call it
    CHECK(std::wstring(label) == L"S&kins:");
}

TEST_CASE(
    "A skin chosen from the list is entered, folder and definition, and applied when that is asked for") {
    SkinListTest test;
    std::filesystem::rename(test.Skin.PathOf(L"other\\skin.ini"), test.Skin.PathOf(L"other\\plain.ini"));
    test.Skin.Write(L"other\\SETTINGS.TXT", "BarWidth = 77\n");
    test.Open();
    CHECK(test.Chosen() == LB_ERR); // the control's own is not among them
    test.Choose(L"grey");
    CHECK(test.Page.Text(SKIN_FOLDER) == test.Name(L"grey"));
    CHECK(test.Page.Text(SKIN_FILE) == L"skin.ini");
    test.Choose(L"other");
    CHECK(test.Page.Text(SKIN_FOLDER) == test.Name(L"other"));
    CHECK(test.Page.Text(SKIN_FILE) == L"plain.ini");
    CHECK(test.Page.IsDirty());
    IDispatch& control = test.Control.Dispatch();
    CHECK(Get(control, L"SkinPath").Text() == L"Skin\\");
    REQUIRE(test.Page.Page->Apply() == S_OK);
    CHECK(Get(control, L"SkinPath").Text() == test.Name(L"other"));
    CHECK(Get(control, L"SkinFile").Text() == L"plain.ini");
    CHECK(Get(control, L"BarWidth").Number() == 20); // settings are another request
    CHECK(!test.Page.IsDirty());
}

TEST_CASE("The list marks the folder that is entered, however it is written") {
    const SkinListTest test;
    test.Open();
    std::wstring name = test.Name(L"grey") + L"\\";
    CharUpperW(name.data());
    test.Page.Type(SKIN_FOLDER, name.c_str());
    CHECK(test.Chosen() == test.Line(L"grey"));
    CHECK(test.Page.Text(SKIN_FOLDER) == name); // and leaves it as it is
    test.Page.Type(SKIN_FOLDER, L"elsewhere");
    CHECK(test.Chosen() == LB_ERR);
}

// The bitmap of the skin is of one colour, so that its bars are, too.
TEST_CASE("A line shows the name and the bars of its skin") {
    const SkinListTest test;
    test.Open();
    const test::Pixels line = test.Draw(L"grey");
    CHECK(HasName(line));
    const auto half = line.Cut(Width / 2, 0, Width / 2, Height);
    CHECK(std::ranges::count(half.Values, 0x555555u) > 100);
    CHECK(line.At(Width - 1, 0) == SystemColour(COLOR_WINDOW));
}

TEST_CASE("The chosen line has the system's colours for it, whatever they are") {
    const SkinListTest test;
    test.Open();
    const test::Pixels line = test.Draw(L"grey", ODS_SELECTED);
    CHECK(line.At(0, 0) == SystemColour(COLOR_HIGHLIGHT));
    CHECK(line.At(Width - 1, Height - 1) == SystemColour(COLOR_HIGHLIGHT));
    CHECK(HasName(line, COLOR_HIGHLIGHTTEXT));
    CHECK(HasPicture(line, COLOR_HIGHLIGHT));
    const test::Pixels focused = test.Draw(L"grey", ODS_SELECTED | ODS_FOCUS);
    CHECK(!(focused == line));
    CHECK(focused.Cut(1, 1, Width - 2, Height - 2) == line.Cut(1, 1, Width - 2, Height - 2));
    CHECK(test.Draw(L"grey", ODS_SELECTED | ODS_FOCUS | ODS_NOFOCUSRECT) == line);
}

TEST_CASE("What is no skin, or is gone, has a name and no picture") {
    const SkinListTest test;
    for (const wchar_t* folder : {L"no-bitmap", L"no-lines", L"gone"}) WriteSkin(test.Skin, folder);
    test.Skin.Write(L"no-bitmap\\Skin.BMP", "no bitmap");
    test.Skin.Write(L"no-lines\\skin.ini", "Start\n[Tab]\n0: one\n");
    test.Open();
    std::filesystem::remove_all(test.Skin.PathOf(L"gone"));
    for (const wchar_t* folder : {L"no-bitmap", L"no-lines", L"gone"}) {
        CAPTURE(folder);
        const test::Pixels line = test.Draw(folder);
        CHECK(HasName(line));
        CHECK(!HasPicture(line));
    }
    test.Choose(L"gone");
    CHECK(test.Status().find(L"gone") != std::wstring::npos);
    CHECK(FAILED(test.Page.Page->Apply()));
    CHECK(HasPicture(test.Draw(L"grey")));
}

TEST_CASE("Settings that make no sense spoil no picture") {
    const SkinListTest test;
    test.Skin.Write(L"other\\SETTINGS.TXT", "BarWidth = wide\n");
    test.Open();
    CHECK(HasPicture(test.Draw(L"other")));
}

TEST_CASE("A picture is made when its line is first seen, and kept") {
    const SkinListTest test;
    for (int i = 0; i < 200; ++i) WriteSkin(test.Skin, L"skin" + std::to_wstring(1000 + i));
    test.Open();
    CHECK(SendMessageW(test.List(), LB_GETCOUNT, 0, 0) >= 200);
    REQUIRE(HasPicture(test.Draw(L"skin1100")));
    for (const wchar_t* folder : {L"skin1100", L"skin1199"})
        std::filesystem::remove_all(test.Skin.PathOf(folder));
    CHECK(HasPicture(test.Draw(L"skin1100")));
    CHECK(!HasPicture(test.Draw(L"skin1199")));
}

} // namespace vantik
