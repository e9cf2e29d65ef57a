// What the page "Skin" says is wrong in the chosen skin.
#include <doctest/doctest.h>

#include "base/FilePath.h"
#include "check/CheckSkin.h"
#include "host/HostError.h"
#include "ole/pages/SkinPageTest.h"

namespace vantik {

namespace {

struct FaultsTest : SkinPageTest {
    FaultsTest() { WriteSkin(Skin); }

    void WriteLines(const std::vector<std::string>& lines) const { Skin.Write(L"skin.ini", Joined(lines)); }
    void Choose() const {
        Edit();
        Page.Type(SKIN_FOLDER, Skin.SkinPath().c_str());
    }
    std::wstring Shown() const {
        const HWND box = Page.Item(SKIN_FAULTS);
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(box)) + 1, L'\0');
        text.resize(
            static_cast<std::size_t>(GetWindowTextW(box, text.data(), static_cast<int>(text.size()))));
        return text;
    }

    // As skincheck finds it, written down as people read it.
    std::wstring Found(const std::wstring& file = L"skin.ini") const {
        const std::filesystem::path path(Skin.PathOf(file));
        const FolderSource source(path.parent_path().u16string() + u"\\", path.filename().u16string());
        std::string text;
        for (const Fault& fault : CheckSavedSkin(source)) {
            if (!text.empty()) text += "\r\n";
            text += "Line " + std::to_string(fault.Line) + ", column " + std::to_string(fault.Column) + ": ";
            text += fault.Severity == Severity::Error ? "error: " : "warning: ";
            text += fault.What;
            if (!fault.Meant.empty()) text += "; did you mean " + fault.Meant + "?";
            if (!fault.Effect.empty()) text += "\r\n    " + fault.Effect;
        }
        return FromUtf8(text);
    }
    // Another control of the page gets the keyboard, as when its window becomes the active one again.
    void ComeBack() const {
        SetFocus(Page.Item(SKIN_LIST));
        SetFocus(Page.Item(SKIN_FAULTS));
        Page.Pump();
    }
};

bool Has(const std::wstring& text, const wchar_t* part) { return text.find(part) != text.npos; }

} // namespace

TEST_CASE("A skin without faults shows none") {
    const FaultsTest test;
    CHECK(test.Shown().empty()); // nothing is edited yet
    test.Choose();
    CHECK(test.Shown() == L"None.");
}

TEST_CASE("Every fault of a skin is told, with its place, what is meant, and its effect") {
    const FaultsTest test;
    auto lines = LinesWithoutFaults();
    lines[3] = "0: 0,9,zero,9";
    lines[8] = "5: 0,1,0,900";
    lines[26] = "[Icons]";
    lines[31] = "Home: hoem.png";
    test.WriteLines(lines);
    test.Skin.Write(L"a.png", "no picture");
    test.Choose();
    const std::wstring shown = test.Shown();
    CHECK(shown == test.Found());
    CHECK(Has(shown, L"Line 4, column 8: error: "));
    CHECK(Has(shown, L"Line 9, column 10: error: rectangle 5 (LeftPic0) lies outside the bitmap"));
    CHECK(
        Has(shown,
            L"Line 27, column 1: error: \"[Icons]\" is no section of a skin; did you mean [Icon]?\r\n    "));
}

TEST_CASE("Faults follow the fields") {
    const FaultsTest test;
    test.Skin.Write(L"second.ini", "Start\n[Tab]\n0: 1,2,three,4\nEnd\n");
    test.Choose();
    CHECK(test.Shown() == L"None.");
    test.Page.Type(SKIN_FILE, L"second.ini");
    CHECK(Has(test.Shown(), L"Line 3, column 8: error: "));
    CHECK(test.Shown() == test.Found(L"second.ini"));
    test.Page.Type(SKIN_FILE, L"third.ini");
    CHECK(Has(test.Shown(), L"Line 1, column 1: error: there is no such file"));
    test.Page.Type(SKIN_FILE, L"skin.ini");
    CHECK(test.Shown() == L"None.");
    test.Page.Type(SKIN_FOLDER, L"no such folder");
    CHECK(Has(test.Shown(), L"there is no such file"));
}

TEST_CASE("Faults are those of the files as they are when the user comes back to the page") {
    const FaultsTest test;
    test.Choose();
    test.WriteLines({"Start", "[Tab]", "[Icon]", "End"});
    test.ComeBack();
    CHECK(Has(test.Shown(), L"no entry File names the bitmap"));
    test.WriteLines(LinesWithoutFaults());
    std::filesystem::remove(test.Skin.PathOf(L"Skin.BMP"));
    test.ComeBack();
    CHECK(Has(test.Shown(), L"there is no file \"skin.bmp\""));
    std::filesystem::remove_all(std::filesystem::path(test.Skin.PathOf(L"x")).parent_path());
    test.ComeBack();
    CHECK(Has(test.Shown(), L"there is no such file"));
}

TEST_CASE("Of controls with different skins no faults are told") {
    const FaultsTest test;
    LooseControl other;
    Put(other.Dispatch(), L"SkinPath", test.Skin.SkinPath());
    test.Page.Edit({test.Control.Object(), other.Object()});
    CHECK(test.Shown().empty());
    test.Page.Type(SKIN_FOLDER, test.Skin.SkinPath().c_str());
    CHECK(test.Shown() == L"None.");
}

TEST_CASE("The faults can be reached and read by the keyboard, whose other keys stay the page's") {
    const FaultsTest test;
    test.Skin.Write(L"skin.ini", "Start\n[Tab]\nStart & End\n[Icon]\n");
    test.Choose();
    const auto send = [&](UINT kind, WPARAM key) {
        MSG message = {GetFocus(), kind, key, 1 << 29, 0, {}};
        return test.Page.Page->TranslateAccelerator(&message);
    };
    const HWND box = test.Page.Item(SKIN_FAULTS);
    CHECK(send(WM_SYSCHAR, 'e') == S_FALSE); // the text underlines nothing
    SetFocus(test.Page.Item(SKIN_SETTINGS));
    EnableWindow(test.Page.Item(SKIN_LIST), FALSE);
    SetFocus(test.Page.Item(SKIN_FILE));
    CHECK(send(WM_KEYDOWN, VK_TAB) == S_OK);
    CHECK(GetFocus() == box);
    DWORD from = 1, to = 2;
    SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    CHECK(from == to); // not all of it is marked
    CHECK(test.Page.Text(PAGE_STATUS).find(L"Faults:") == 0);
    CHECK(send(WM_KEYDOWN, VK_DOWN) == S_OK);
    for (const WPARAM key : std::initializer_list<WPARAM>{VK_TAB, VK_RETURN, VK_ESCAPE}) {
        CAPTURE(key);
        const int before = test.Page.Site->KeysOffered;
        CHECK(send(WM_KEYDOWN, key) == S_FALSE);
        CHECK(test.Page.Site->KeysOffered == before + 1);
    }
    SendMessageW(box, WM_CHAR, 'x', 0);
    CHECK(test.Shown() == test.Found());
}

} // namespace vantik
