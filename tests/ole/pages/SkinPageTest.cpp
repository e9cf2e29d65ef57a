// The page "Skin".
#include <doctest/doctest.h>

#include <algorithm>

#include "ole/pages/SkinPageTest.h"

namespace vantik {

namespace {

std::wstring TextOf(LooseControl& control, const wchar_t* property) {
    return Get(control.Dispatch(), property).Text();
}

// With a definition of another name than the control has, and a file that is none.
struct OtherSkin : SkinPageTest {
    OtherSkin() {
        Skin.Write(L"other.ini", "");
        Skin.Write(L"readme.txt", "");
    }
};

} // namespace

TEST_CASE("The folders and definitions to choose from are those that lie there") {
    const OtherSkin test;
    const PageUnderTest page(SkinPageId);
    page.Edit({test.Control.Object()});
    CHECK(page.Text(SKIN_FOLDER) == L"Skin\\");
    CHECK(page.Text(SKIN_FILE) == L"skin.ini");
    const auto folders = page.List(SKIN_FOLDER);
    CHECK(std::ranges::count(folders, test.Skin.SkinPath()) == 1);
    page.Type(SKIN_FOLDER, test.Skin.SkinPath().c_str());
    CHECK(page.List(SKIN_FILE) == std::vector<std::wstring>{L"other.ini"});
    CHECK(page.Text(SKIN_FILE) == L"other.ini"); // the one that is there
    CHECK(page.Text(SKIN_FOLDER) == test.Skin.SkinPath());
}

TEST_CASE("What is not there is refused by the page, without a message box of the control") {
    OtherSkin test;
    test.Edit();
    test.Page.Type(SKIN_FOLDER, L"no such folder");
    CHECK(test.Status().find(L"no such folder") != std::wstring::npos);
    CHECK(FAILED(test.Page.Page->Apply()));
    CHECK(test.Status().find(L"no such folder") != std::wstring::npos);
    CHECK(test.Page.IsDirty());
    CHECK(TextOf(test.Control, L"SkinPath") == L"Skin\\");
}

TEST_CASE("A faulty definition is refused with its line, before any object has it") {
    OtherSkin test;
    test.Skin.Write(L"other.ini", "Start\r\n[Tab]\r\n0: 1,2,three,4\r\n");
    test.Edit();
    test.Page.Type(SKIN_FOLDER, test.Skin.SkinPath().c_str());
    CHECK(test.Status().find(L"line 3") != std::wstring::npos);
    CHECK(FAILED(test.Page.Page->Apply()));
    CHECK(test.Status().find(L"line 3") != std::wstring::npos);
    CHECK(TextOf(test.Control, L"SkinPath") == L"Skin\\");
    CHECK(TextOf(test.Control, L"SkinFile") == L"skin.ini");
}

TEST_CASE("The chosen skin is set, its folder first, and its settings where that is wanted") {
    OtherSkin test;
    test.Skin.Write(L"SETTINGS.TXT",
                    "// a skin\r\nBarWidth = 132\r\nTabBorder = True\r\n\r\nCaptionPos = AlignMiddle\r\n"
                    "CaptionColor0 = #102030\r\n");
    test.Edit();
    CHECK(!IsWindowEnabled(test.Page.Item(SKIN_SETTINGS)));
    test.Page.Type(SKIN_FOLDER, test.Skin.SkinPath().c_str());
    CHECK(IsWindowEnabled(test.Page.Item(SKIN_SETTINGS)));
    REQUIRE(test.Page.Page->Apply() == S_OK);
    CHECK(TextOf(test.Control, L"SkinPath") == test.Skin.SkinPath());
    CHECK(TextOf(test.Control, L"SkinFile") == L"other.ini");
    CHECK(Get(test.Control.Dispatch(), L"BarWidth").Number() == 20);
    CHECK(!test.Page.IsDirty());
    test.Page.Press(SKIN_SETTINGS);
    CHECK(test.Page.IsDirty());
    CHECK(test.Page.Check(SKIN_SETTINGS) == BST_CHECKED);
    REQUIRE(test.Page.Page->Apply() == S_OK);
    CHECK(Get(test.Control.Dispatch(), L"BarWidth").Number() == 132);
    CHECK(Get(test.Control.Dispatch(), L"TabBorder").Flag());
    CHECK(Get(test.Control.Dispatch(), L"CaptionPos").Number() == 1);
    CHECK(Get(test.Control.Dispatch(), L"CaptionColor0").Number() == 0x302010);
    test.Page.Pump();
    CHECK(test.Page.Check(SKIN_SETTINGS) == BST_UNCHECKED);
    CHECK(!test.Page.IsDirty());
}

TEST_CASE("A definition for the sides goes with settings of its own, and the plainest one is taken first") {
    OtherSkin test;
    test.Skin.Write(L"a-longer-sides.ini", "");
    test.Skin.Write(L"SETTINGS.TXT", "BarWidth = 132\n");
    test.Skin.Write(L"SETTINGS-SIDES.TXT", "BarWidth = 99\n");
    test.Edit();
    test.Page.Type(SKIN_FOLDER, test.Skin.SkinPath().c_str());
    CHECK(test.Page.Text(SKIN_FILE) == L"other.ini");
    test.Page.Type(SKIN_FILE, L"a-longer-sides.ini");
    test.Page.Press(SKIN_SETTINGS);
    REQUIRE(test.Page.Page->Apply() == S_OK);
    CHECK(Get(test.Control.Dispatch(), L"BarWidth").Number() == 99);
}

TEST_CASE("Settings that make no sense are refused with their line") {
    for (const char* line : {"BarWidth", "Colour = 3", "BarWidth = wide"}) {
        CAPTURE(line);
        OtherSkin test;
        test.Skin.Write(L"SETTINGS.TXT", std::string("TabToTab = 3\n") + line + "\n");
        test.Edit();
        test.Page.Type(SKIN_FOLDER, test.Skin.SkinPath().c_str());
        REQUIRE(test.Page.Page->Apply() == S_OK);
        test.Page.Press(SKIN_SETTINGS);
        CHECK(FAILED(test.Page.Page->Apply()));
        CHECK(test.Page.IsDirty());
        CHECK(Get(test.Control.Dispatch(), L"TabToTab").Number() == 0);
    }
}

} // namespace vantik
