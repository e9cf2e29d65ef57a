// Whether all of a caption is seen. What is seen is asked of the pixels: a caption is whole where the bar shows the same as
// one that is wide and high enough.
#include <doctest/doctest.h>

#include "render/BarGeometry.h"
#include "render/CaptionPainter.h"
#include "tests/render/PaintedControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// One tab of 100 pixels.
struct OneCaption : PaintedControl {
    explicit OneCaption(const std::u16string& text, std::int32_t side = Windowtop)
        : PaintedControl(320, 320) {
        MakeSkin(2);
        AddTabs(1);
        State.Properties.TabPos = side;
        State.Properties.BarWidth = 100;
        State.Tabs(0).Caption = text;
    }

    bool IsWhole() {
        Driver.RepaintAll();
        const Pixels before = Read();
        const std::u16string shortened = Surfaces.ShortCaption;
        const bool whole = CaptionPainter(Host, State, Surfaces, Decorations).IsWhole(0, BarNormal);
        CHECK(Difference(Read(), before) == "same"); // asking draws nothing
        CHECK(Surfaces.ShortCaption == shortened);
        return whole;
    }
    void CloseButton(std::int16_t extent) {
        SkinIcon& icon = State.SkinIcons.Append();
        icon.Width = icon.Height = extent;
        State.SkinIcons.DeleteButtonIcon = 0;
        State.Properties.DelButton = True;
    }
};

constexpr std::int32_t Sides[] = {WindowLeft, WindowRight, Windowtop, WindowBottom};

} // namespace

TEST_CASE("a caption that fits is whole, one that is shortened is not") {
    for (const std::int32_t side : Sides) {
        CHECK(OneCaption(u"Text", side).IsWhole());
        CHECK(OneCaption(u"", side).IsWhole());
        CHECK(!OneCaption(u"A caption that no bar has room for", side).IsWhole());
        CHECK(!OneCaption(std::u16string(20, u'i'), side).IsWhole()); // shortened by counting letters
    }
}

TEST_CASE("a caption that is not shortened but cut off at the end is not whole") {
    for (const std::int32_t side : Sides) {
        CHECK(OneCaption(u"MMMMM", side).IsWhole());
        OneCaption wide(u"WWWWWWWWWWW", side); // for eleven letters A there is room
        CHECK(!wide.IsWhole());
        CHECK(wide.Surfaces.ShortCaption == u"WWWWWWWWWWW");
    }
}

TEST_CASE("a caption that is moved out of its bar, by a little or by all of it, is not whole") {
    for (const std::int32_t side : Sides)
        for (const std::int16_t shift :
             {std::int16_t{-40}, std::int16_t{40}, std::int16_t{-300}, std::int16_t{300}}) {
            CAPTURE(side);
            CAPTURE(shift);
            OneCaption across(u"Text", side);
            across.State.Properties.CaptionYjust = across.State.Properties.CaptionXjust = shift;
            CHECK(!across.IsWhole());
        }
}

TEST_CASE("a caption that steps aside for a close button is whole as long as there is room") {
    for (const std::int32_t side : Sides) {
        OneCaption narrow(u"MMMMM", side);
        narrow.State.Properties.CaptionPos = AlignRight;
        narrow.CloseButton(14);
        CHECK(narrow.IsWhole());
        OneCaption none(u"MMMMM", side);
        none.CloseButton(60);
        CHECK(!none.IsWhole());
    }
}

TEST_CASE("several lines are whole where the bar is high enough for all of them") {
    OneCaption lines(u"A\nB");
    CHECK(!lines.IsWhole());
    lines.State.Properties.CaptionPos = DT_SINGLELINE;
    CHECK(lines.IsWhole());
    OneCaption words(u"One Two Three");
    words.State.Properties.CaptionPos = DT_WORDBREAK;
    words.State.Properties.BarWidth = 60;
    CHECK(!words.IsWhole());
}

TEST_CASE("an ellipsis of the system's is as good as one of the control's") {
    for (const UINT flag : {UINT{DT_END_ELLIPSIS}, UINT{DT_WORD_ELLIPSIS}, UINT{DT_PATH_ELLIPSIS}}) {
        OneCaption cut(u"WWWW\\WWWWW");
        cut.State.Properties.CaptionPos = static_cast<std::int32_t>(flag | DT_SINGLELINE);
        CHECK(!cut.IsWhole());
        OneCaption fits(u"MM\\MM");
        fits.State.Properties.CaptionPos = static_cast<std::int32_t>(flag | DT_SINGLELINE);
        CHECK(fits.IsWhole());
    }
}

TEST_CASE("where there is no memory for a look, that is said") {
    OneCaption wide(u"Text");
    wide.State.Properties.BarWidth = 32000;
    wide.State.Properties.CaptionYjust = 32000;
    CHECK_THROWS(wide.IsWhole());
}
