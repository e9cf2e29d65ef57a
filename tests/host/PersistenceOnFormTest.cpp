// The control's properties go into the form's text file and come back.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/SavedObjects.h"

namespace vantik {

namespace {

std::string SavedText(HostForm& form) {
    const auto bag = MakeCom<TextPropertyBag>();
    form.SaveTo(*bag.Get());
    return bag->Text();
}

// Every property that is neither an object nor a path with a value unlike its default.
void ChangeEverything(IDispatch& control) {
    Put(control, L"TabCount", std::int16_t{6});
    Put(control, L"ActiveTab", std::int16_t{2});
    Put(control, L"TabBarPos", std::int32_t{1});
    Put(control, L"TabPos", std::int32_t{0});
    Put(control, L"BarWidth", std::int16_t{48});
    Put(control, L"TabBarPosXJust", std::int16_t{-3});
    Put(control, L"TabBarPosYJust", std::int16_t{4});
    Put(control, L"TabOffSet", std::int32_t{30000});
    Put(control, L"DefaultCaption", L"\u9875 \"x\"");
    Put(control, L"CaptionPos", std::int32_t{2});
    Put(control, L"CaptionColor0", std::int32_t{0x123456});
    Put(control, L"CaptionColor1", std::int32_t{0xFF});
    for (const wchar_t* name : {L"CaptionXjust", L"CaptionYjust", L"IcoXjust", L"IcoYjust", L"DelBtnXJust",
                                L"DelBtnYJust", L"NavBtnYjust", L"NavBtnXjust", L"TabToTab", L"FrameDist"}) {
        Put(control, name, std::int16_t{2});
    }
    Put(control, L"DelButton", false);
    Put(control, L"FixOcxList", L"a,b");
    Put(control, L"TabBorder", true);
    SavedFont font;
    font.Name = L"DejaVu Sans";
    font.Size = 10;
    font.Italic = true;
    PutReference(control, L"Font", MakeAgain(font).Get());
}

} // namespace

TEST_CASE("What was saved to a text file and loaded from it is saved as the same text") {
    const std::wstring path = L"saved.txt";
    ControlOnForm test;
    test.Form().OpenNew();
    ChangeEverything(test.Control());
    const std::string before = SavedText(test.Form());
    const auto saved = MakeCom<TextPropertyBag>();
    test.Form().SaveTo(*saved.Get());
    saved->Save(path);
    const auto loaded = MakeCom<TextPropertyBag>();
    loaded->Load(path);
    test.Form().OpenFrom(*loaded.Get());
    CHECK(SavedText(test.Form()) == before);
    CHECK(test.Number(L"TabPos") == 0);
    CHECK(Get(test.Control(), L"DefaultCaption").Text() == L"\u9875 \"x\"");
    CHECK(Call(test.Control(), L"GetTabCaption", {std::int16_t{3}}).Text() == L"\u9875 \"x\"3");
    DeleteFileW(path.c_str());
}

TEST_CASE("A new control saves no value that equals its default") {
    ControlOnForm test;
    test.Form().OpenNew();
    const std::string text = SavedText(test.Form());
    CHECK(text.find("TabCount") == std::string::npos);
    CHECK(text.find("SkinFile") == std::string::npos);
    CHECK(text.find("Picture") == std::string::npos);
}

TEST_CASE("Captions given at run time are not saved") {
    ControlOnForm test;
    test.OpenWithTabs(2);
    Call(test.Control(), L"SetBarCaption", {std::int16_t{0}, L"Home", true});
    const auto bag = MakeCom<TextPropertyBag>();
    test.Form().SaveTo(*bag.Get());
    test.Form().OpenFrom(*bag.Get());
    CHECK(Call(test.Control(), L"GetTabCaption", {std::int16_t{0}}).Text() == L"Tab0");
}

TEST_CASE("The control opens on forms that lack one thing or another") {
    const auto without = [](auto change) {
        HostSwitches switches;
        change(switches);
        return switches;
    };
    const HostSwitches forms[] = {
        without([](HostSwitches&) {}),
        without([](HostSwitches& s) { s.UserMode = false; }),
        without([](HostSwitches& s) { s.Ambients = false; }),
        without([](HostSwitches& s) { s.AmbientFontIsText = true; }),
        without([](HostSwitches& s) { s.Container = false; }),
        without([](HostSwitches& s) { s.EnumerateObjects = false; }),
        without([](HostSwitches& s) { s.Extenders = false; }),
        without([](HostSwitches& s) { s.SimpleFrameSite = false; }),
        without([](HostSwitches& s) { s.Frame = false; }),
        without([](HostSwitches& s) { s.InitNew = false; }),
        without([](HostSwitches& s) { s.SiteFirst = false; }),
        without([](HostSwitches& s) { s.QuickActivate = true; }),
        without([](HostSwitches& s) { s.ForwardKeys = false; }),
    };
    for (std::size_t i = 0; i < std::size(forms); ++i) {
        CAPTURE(i);
        ControlOnForm test(forms[i]);
        test.OpenWithTabs(3);
        Put(test.Control(), L"ActiveTab", std::int16_t{2});
        CHECK(test.Number(L"ActiveTab") == 2);
        CHECK(IsWindow(test.Form().ControlWindow()));
        test.Form().Close();
        CHECK(test.Module().CanUnload());
    }
}

} // namespace vantik
