// Captions while the user has high contrast on: the built control, with another system behind its imports.
#include <doctest/doctest.h>

#include <algorithm>

#include "hostile/PatchedImport.h"
#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

// Where the system has others.
constexpr COLORREF WindowText = RGB(1, 200, 3), HighlightText = RGB(200, 5, 6), GreyText = RGB(7, 8, 200);
constexpr COLORREF Window = RGB(30, 0, 0), Highlight = RGB(0, 30, 0);
bool isOn = false;

BOOL WINAPI AnswerParameters(UINT action, UINT, void* answer, UINT) {
    CHECK(action == SPI_GETHIGHCONTRAST);
    auto& contrast = *static_cast<HIGHCONTRASTW*>(answer);
    CHECK(contrast.cbSize == sizeof contrast);
    contrast.dwFlags = HCF_AVAILABLE | (isOn ? HCF_HIGHCONTRASTON : 0);
    return TRUE;
}

HRESULT WINAPI Translate(OLE_COLOR colour, HPALETTE, COLORREF* translated) {
    switch (colour & 0x7FFFFFFF) {
    case COLOR_WINDOWTEXT: *translated = WindowText; break;
    case COLOR_HIGHLIGHTTEXT: *translated = HighlightText; break;
    case COLOR_GRAYTEXT: *translated = GreyText; break;
    case COLOR_WINDOW: *translated = Window; break;
    case COLOR_HIGHLIGHT: *translated = Highlight; break;
    default: *translated = colour;
    }
    CHECK((colour == *translated || colour & 0x80000000));
    return S_OK;
}

HMODULE BuiltModule() { return GetModuleHandleW(L"VantikFrameTab.ocx"); }

// Two tabs with captions of nothing but ink, the first of them active.
struct Captions : ReadControl {
    Captions() : ReadControl(2) {
        isOn = true;
        for (const short tab : {short{0}, short{1}}) Caption(tab, L"\u2588\u2588");
    }
    bool Shows(COLORREF colour) const {
        const std::uint32_t pixel = (std::uint32_t{GetRValue(colour)} << 16) |
                                    (std::uint32_t{GetGValue(colour)} << 8) | GetBValue(colour);
        const test::Pixels picture = InWindow->Picture();
        return std::ranges::find(picture.Values, pixel) != picture.Values.end();
    }
    bool ShowAll(std::initializer_list<COLORREF> colours) const {
        return std::ranges::all_of(colours, [this](COLORREF colour) { return Shows(colour); });
    }
    bool ShowNone(std::initializer_list<COLORREF> colours) const {
        return std::ranges::none_of(colours, [this](COLORREF colour) { return Shows(colour); });
    }
    void Repaint() const { Tab->put_CaptionXjust(0); }

    PatchedImport Parameters{BuiltModule(), "SystemParametersInfoW",
                             reinterpret_cast<const void*>(&AnswerParameters)};
    PatchedImport Colours{BuiltModule(), "OleTranslateColor", reinterpret_cast<const void*>(&Translate)};
};

} // namespace

TEST_CASE(
    "in high contrast captions whose colours are still the default take those that the user chose, in "
    "pairs") {
    const Captions control;
    CHECK(control.ShowAll({WindowText, HighlightText}));
    for (const short tab : {short{0}, short{1}}) control.Caption(tab, L" "); // nothing but its ground
    CHECK(control.ShowAll({Window, Highlight}));
    control.Tab->put_TabPos(WindowLeft);
    CHECK(control.ShowAll({Window, Highlight}));
}

TEST_CASE(
    "in high contrast a disabled tab is as grey as the user chose it, on the ground that belongs to it") {
    const Captions control;
    control.Tab->put_CaptionColor0(RGB(9, 8, 7)); // is for the others
    control.Enable(1, false);
    CHECK(control.ShowAll({GreyText}));
    control.Caption(1, L" ");
    CHECK(control.ShowAll({Window}));
}

TEST_CASE("in high contrast the host's own colours stay, each by itself") {
    const Captions control;
    control.Tab->put_CaptionColor0(RGB(9, 8, 7));
    CHECK(control.ShowAll({RGB(9, 8, 7), HighlightText}));
    CHECK(control.ShowNone({WindowText, Window}));
    control.Tab->put_CaptionColor0(0);
    control.Tab->put_CaptionColor1(RGB(7, 8, 9));
    CHECK(control.ShowAll({RGB(7, 8, 9), WindowText}));
    CHECK(control.ShowNone({HighlightText, Highlight}));
}

TEST_CASE("without high contrast the default colours are black, and in it they read and save as ever") {
    const Captions control;
    OLE_COLOR colour = 1;
    CHECK(control.Tab->get_CaptionColor0(&colour) == S_OK);
    CHECK(colour == 0);
    CHECK(control.Tab->get_CaptionColor1(&colour) == S_OK);
    CHECK(colour == 0);
    isOn = false;
    control.Repaint();
    CHECK(control.Shows(RGB(0, 0, 0)));
    CHECK(control.ShowNone({WindowText, HighlightText, Window, Highlight}));
}

} // namespace vantik
