// What assigning a property sets off, for every one of them: what is painted again and what is not.
#include <doctest/doctest.h>

#include <algorithm>
#include <functional>

#include "tests/control/DrivenControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// Of 440 x 300 pixels with three bars of 60 x 22 on top, which begin behind the corner of 6 pixels.
constexpr std::int32_t Width = 440, Height = 300;
constexpr RECT Strip = {6, 0, 6 + 3 * 60, 22};
constexpr char StripEdges[] = "6,0,186,22", AllEdges[] = "0,0,440,300";
constexpr std::uint32_t Paint = 0x00FF00; // on no skin

enum class Area : std::uint8_t { Nothing, Bars, FrameAndBars, All };

struct Assignment {
    Property Which;
    std::function<void(DrivenControl&)> Assign;
    Area Repainted;
};

template <class Value>
Assignment To(Property property, Value value, Area area) {
    return {property, [=](DrivenControl& f) { f.Control.Let<Value>(property, value); }, area};
}

Assignment Number(Property property, int value, Area area) {
    return To(property, static_cast<std::int16_t>(value), area);
}

std::vector<Assignment> Assignments() {
    using enum Area;
    using enum Property;
    return {
        {TabCount, [](DrivenControl& f) { f.Control.TabCount(5); }, All},
        {ActiveTab, [](DrivenControl& f) { f.Control.ActiveTab(1); }, Bars},
        {Picture, [](DrivenControl& f) { f.Control.Picture(PictureOf(Pixels(Width, Height, 0xFF))); },
         Nothing},
        To(TabBarPos, std::int32_t{TabMiddle}, All),
        To(TabPos, std::int32_t{WindowBottom}, All),
        Number(BarWidth, 70, All),
        Number(TabBarPosXJust, 3, All),
        Number(TabBarPosYJust, 3, All),
        To(TabOffSet, std::int32_t{20000}, Nothing),
        To(DefaultCaption, std::u16string(u"Page"), Nothing),
        {Font, [](DrivenControl& f) { f.Control.Font(FontOf(u"DejaVu Sans", 14)); }, Bars},
        To(CaptionPos, std::int32_t{AlignRight}, Bars),
        To(CaptionColor0, std::int32_t{0xFF}, Bars),
        To(CaptionColor1, std::int32_t{0xFF}, Bars),
        Number(CaptionXjust, 3, Bars),
        Number(CaptionYjust, 3, Bars),
        Number(IcoXjust, 3, Bars),
        Number(IcoYjust, 3, Bars),
        Number(DelButton, False, Bars),
        Number(DelBtnXJust, 3, Bars),
        Number(DelBtnYJust, 3, Bars),
        Number(NavBtnYjust, 3, All),
        Number(NavBtnXjust, 3, All),
        To(FixOcxList, std::u16string(u"child"), Nothing),
        Number(TabToTab, 3, FrameAndBars),
        Number(TabBorder, True, All),
        Number(FrameDist, 3, Nothing),
        {SkinFile, [](DrivenControl& f) { f.Control.SkinFile(u"skin.ini"); }, All},
        {SkinPath, [](DrivenControl& f) { f.Control.SkinPath(u"Temp"); }, Nothing},
    };
}

std::string KeyOf(Property property) {
    const std::u16string key = InfoOf(property).Key;
    return {key.begin(), key.end()};
}

// Whether a part of the surface was painted over, and whether all of it was.
struct Coverage {
    std::int32_t Painted = 0, Left = 0;
    bool operator==(const Coverage&) const = default;
};

Coverage CoverageOf(const Pixels& surface, const std::function<bool(std::int32_t, std::int32_t)>& counts) {
    Coverage coverage;
    for (std::int32_t y = 0; y < Height; ++y)
        for (std::int32_t x = 0; x < Width; ++x)
            if (counts(x, y)) ++(surface.At(x, y) == Paint ? coverage.Left : coverage.Painted);
    return coverage;
}

bool IsInStrip(std::int32_t x, std::int32_t y) {
    return x >= Strip.left && x < Strip.right && y >= Strip.top && y < Strip.bottom;
}

// Inside the frame's edges, and neither under the bars nor under the buttons beside them.
bool IsOnPage(std::int32_t x, std::int32_t y) { return x >= 20 && x < 420 && y >= 40 && y < 280; }

void CheckRepainted(const Pixels& surface, Area area) {
    const Coverage strip = CoverageOf(surface, IsInStrip);
    const Coverage page = CoverageOf(surface, IsOnPage);
    const Coverage rest = CoverageOf(surface, [](auto x, auto y) { return !IsInStrip(x, y); });
    CHECK((strip.Left == 0) == (area != Area::Nothing));
    CHECK((strip.Painted == 0) == (area == Area::Nothing));
    CHECK((page.Left == 0) == (area == Area::All));
    CHECK((page.Painted == 0) == (area != Area::All));
    CHECK((rest.Left == 0) == (area == Area::All));
    CHECK((rest.Painted == 0) == (area == Area::Nothing || area == Area::Bars));
}

std::string EdgesOf(Area area) {
    if (area == Area::Nothing) return "";
    return area == Area::Bars ? StripEdges : AllEdges;
}

} // namespace

TEST_CASE("every property is marked changed first, and then exactly its own area is painted again") {
    const auto assignments = Assignments();
    REQUIRE(assignments.size() == PropertyCount);
    for (const auto& [property, assign, area] : assignments) {
        CAPTURE(KeyOf(property));
        DrivenControl f(3);
        f.Control.UserControl_Paint();
        f.Host.TakeLog();
        f.Host.TakeInvalidated();
        f.Host.Write(Pixels(Width, Height, Paint));
        std::string invalidatedWhenMarked = "not marked";
        Pixels whenMarked;
        f.Host.OnCall = [&] {
            if (invalidatedWhenMarked != "not marked") return;
            invalidatedWhenMarked = f.Host.TakeInvalidated();
            whenMarked = f.Host.Read();
        };
        assign(f);
        f.Host.OnCall = nullptr;
        CHECK(invalidatedWhenMarked == "");
        CHECK(Difference(whenMarked, Pixels(Width, Height, Paint)) == "same");
        CHECK(f.Host.TakeInvalidated() == EdgesOf(area));
        f.Control.UserControl_Paint();
        CheckRepainted(f.Host.Read(), area);
        const std::string log = f.Host.TakeLog();
        CHECK(log.find("PropertyChanged " + KeyOf(property)) == 0);
        CHECK((log.find("Cls") != std::string::npos) == (area == Area::All));
    }
}

TEST_CASE("what a property's own repaint leaves is what a full one would paint") {
    for (const auto& [property, assign, area] : Assignments()) {
        if (area == Area::Nothing) continue;
        CAPTURE(KeyOf(property));
        DrivenControl f(3), whole(3);
        for (DrivenControl* each : {&f, &whole}) {
            each->Control.UserControl_Paint();
            assign(*each);
        }
        whole.Control.RepaintAll();
        f.Control.UserControl_Paint();
        whole.Control.UserControl_Paint();
        CHECK(Difference(f.Host.Read(), whole.Host.Read()) == "same");
    }
}

TEST_CASE("shifting the close button releases its cached pictures at once") {
    for (const Property shift : {Property::DelBtnXJust, Property::DelBtnYJust}) {
        CAPTURE(KeyOf(shift));
        DrivenControl f(3);
        f.Control.UserControl_Paint();
        const auto& handles = f.State().SkinIcons.At(f.State().SkinIcons.DeleteButtonIcon)->Handles;
        const auto isEmpty = [](BitmapSlot slot) { return slot == NoBitmap; };
        REQUIRE_FALSE(std::ranges::all_of(handles, isEmpty));
        f.Control.Let<std::int16_t>(shift, 3);
        CHECK(std::ranges::all_of(handles, isEmpty));
        f.Control.UserControl_Paint();
        CHECK_FALSE(std::ranges::all_of(handles, isEmpty));
    }
}

TEST_CASE("a new picture stands under the bars as soon as they are redrawn") {
    DrivenControl f(3);
    f.Control.Let<std::int16_t>(Property::TabToTab, 10);
    f.Control.Let<std::int16_t>(Property::TabBorder, True); // bars end before the gap
    f.Control.UserControl_Paint();
    constexpr std::int32_t inGap = Strip.left + 60 - 5, y = 15;
    REQUIRE(f.Host.Read().At(inGap, y) != 0x123456);
    f.Control.Picture(PictureOf(Pixels(Width, Height, 0x123456)));
    f.Control.RedrawBars();
    f.Control.UserControl_Paint();
    CHECK(f.Host.Read().At(inGap, y) == 0x123456);
}
