#include "skin/Decorations.h"

#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"
#include "tests/skin/SkinnedControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// Three tabs of which the second is active, the first has an icon.
SkinnedControl& WithThreeTabs(SkinnedControl& control) {
    control.AddButtons();
    control.AddIcon(u"SUN", RandomIcon(16, 16, 21));
    control.SetTabCount(3);
    control.State.Properties.ActiveTab = 1;
    control.State.Tabs(0).Ico = u"SUN";
    return control;
}

bool IsBitmap(BitmapSlot slot) { return GetObjectType(reinterpret_cast<HGDIOBJ>(slot)) == OBJ_BITMAP; }

// The slots that hold a picture, such as "13".
std::string Filled(const SkinIcon* icon) {
    std::string text;
    for (std::size_t i = 0; i < SkinIcon::HandleCount; ++i)
        if (icon->Handles[i] != NoBitmap) text += std::to_string(i + 1);
    return text;
}

struct Drawn {
    std::uint8_t State, Flag;
};

Drawn DrawClose(SkinnedControl& control, std::int16_t tab, std::uint8_t state, std::uint8_t flag) {
    control.Decorations.DrawCloseButton(tab, state, flag);
    return {state, flag};
}

Drawn RedrawClose(SkinnedControl& control, std::int16_t tab, std::uint8_t state, std::uint8_t flag) {
    control.Decorations.RedrawCloseButton(tab, state, flag);
    return {state, flag};
}

} // namespace

TEST_CASE("a full repaint shows icons, close buttons and row buttons, each mixed over what lies beneath it") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        CAPTURE(side);
        SkinnedControl control;
        WithThreeTabs(control);
        control.State.Tabs(1).Ico = u"SUN";
        control.State.Tabs(2).Ico = u"SUN";
        control.State.Tabs(2).Enable = False;
        control.State.Properties.TabPos = side;
        control.RepaintAll();
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
        CHECK(Difference(control.Shown(), control.WithoutDecorations()) != "same");
    }
}

TEST_CASE("a disabled tab in look 1 uses the code 13 and the fourth slot") {
    SkinnedControl control;
    const SkinIcon* sun = WithThreeTabs(control).State.SkinIcons.At(4);
    control.State.Properties.DelButton = False;
    control.State.Tabs(0).Enable = False;
    control.State.HoverTab = 0;
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same"); // grey from the green channel
    CHECK(Filled(sun) == "4");
    control.Decorations.DrawTabIcon(0, 1);
    CHECK(control.State.StateCode == u"13");
    CHECK(Filled(sun) == "4");
}

TEST_CASE("once cached, a tab icon is copied as a square of 20 x 20, whatever its PNG size") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.AddIcon(u"BIG", RandomIcon(30, 21, 22));
    control.State.Tabs(0).Ico = u"BIG";
    control.State.Properties.DelButton = False;
    control.RepaintAll();
    const Pixels whole = control.Shown();
    CHECK(Difference(whole, control.Expected()) == "same");
    const Pixels bare = control.WithoutDecorations();
    control.RepaintAll();
    const Pixels copied = control.Shown();
    const LayoutRect& strip = control.State.Layout.BarStripRect;
    const std::int32_t x = strip.Left + control.State.SkinRects[LeftPic0].Width;
    const std::int32_t fill = control.State.SkinRects[FillPic0].Height;
    const std::int32_t y = strip.Bottom - fill + (fill - 21) / 2;
    CHECK(copied.Cut(x, y, 20, 20) == whole.Cut(x, y, 20, 20));
    CHECK(copied.Cut(x + 20, y, 10, 21) == bare.Cut(x + 20, y, 10, 21));
    CHECK(copied.Cut(x, y + 20, 30, 1) == bare.Cut(x, y + 20, 30, 1));
}

TEST_CASE("an icon smaller than 20 x 20 leaves no box around it when it is copied") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.AddIcon(u"SMALL", RandomIcon(5, 3, 23));
    control.State.Tabs(0).Ico = u"SMALL";
    control.RepaintAll();
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
}

TEST_CASE("a cached picture needs its file no more") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.RepaintAll();
    const Pixels before = control.Shown();
    control.RemoveFile(4);
    control.RemoveFile(control.State.SkinIcons.DeleteButtonIcon);
    control.RepaintAll();
    CHECK(Difference(control.Shown(), before) == "same");
}

TEST_CASE("a picture that is missing or broken leaves its bar without it, and the painting goes on") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.RemoveFile(4);
    control.Folder.Write(u"icona.png", "\x89PNG\r\n\x1A\n broken");
    control.RemoveFile(control.State.SkinIcons.MenuBarIcon);
    CHECK(NumberRaisedBy([&] { control.RepaintAll(); }) == 0);
    Pixels expected = control.WithoutDecorations();
    control.Pictures[0] = control.Pictures[3] = control.Pictures[4] = {};
    control.MixNavButtons(expected);
    const LayoutRect& strip = control.State.Layout.BarStripRect;
    CHECK(control.Shown().Cut(strip.Left, strip.Top, strip.Width, strip.Height) ==
          expected.Cut(strip.Left, strip.Top, strip.Width, strip.Height));
    CHECK(Filled(control.State.SkinIcons.At(4)).empty());
}

TEST_CASE(
    "a tab icon too large for 16 bits is not drawn; of the last size it changes what fits before the fault") {
    for (const auto& [width, height] : {std::pair{40000u, 5u}, std::pair{5u, 40000u}}) {
        CAPTURE(width);
        SkinnedControl control;
        WithThreeTabs(control).RepaintAll();
        const std::int16_t huge = control.AddIcon(u"HUGE", FlatIcon(1, 1, {}));
        control.Folder.Write(u"iconf.png", FlatPng(width, height));
        control.State.Tabs(0).Ico = u"HUGE";
        control.State.LastPng = {11, 12};
        control.Pictures[static_cast<std::size_t>(huge)] = {};
        control.Decorations.DrawTabIcon(0, 0);
        CHECK(control.State.LastPng.LastPngWidth == (width == 5 ? 5 : 11));
        CHECK(control.State.LastPng.LastPngHeight == 12);
        CHECK(control.State.SkinIcons.At(huge)->Width == -1);
        CHECK(control.State.SkinIcons.At(huge)->Height == -1);
        control.RepaintAll();
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
    }
}

TEST_CASE(
    "with DelButton off no close button is drawn and nothing cached, yet State becomes the slot number") {
    SkinnedControl control;
    WithThreeTabs(control).State.Properties.DelButton = False;
    control.RepaintAll();
    const Pixels before = control.Shown();
    const Drawn drawn = DrawClose(control, 0, 1, 3);
    CHECK(drawn.State == 3);
    CHECK(drawn.Flag == 3);
    CHECK(control.State.StateCode == u"11");
    CHECK(RedrawClose(control, 0, 2, 0).State == 4);
    CHECK(Difference(control.Shown(), before) == "same");
    CHECK(Filled(control.State.SkinIcons.At(0)).empty());
}

TEST_CASE("a skin without a DELETEBUTTON draws no close button, yet State becomes the slot number") {
    SkinnedControl control;
    control.SetTabCount(2);
    control.RepaintAll();
    const Pixels before = control.Shown();
    CHECK(DrawClose(control, 0, 2, 0).State == 4);
    CHECK(RedrawClose(control, 0, 0, 3).State == 1);
    CHECK(Difference(control.Shown(), before) == "same");
}

TEST_CASE(
    "a close button with State 2 and Flag 3 uses the code 21 and the sixth slot, and leaves 5 in State") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    CHECK(Filled(control.State.SkinIcons.At(0)) == "1"); // a repaint passes State 0 and Flag 0 for every bar
    CHECK(RedrawClose(control, 1, 2, 3).State == 5);
    CHECK(control.State.StateCode == u"21");
    CHECK(Filled(control.State.SkinIcons.At(0)) == "16");
}

TEST_CASE("each close button sits on its own bar, though all looks share the slot of State 0") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.RepaintAll();
    for (const std::int16_t active : std::initializer_list<std::int16_t>{2, 0, 1, 0}) {
        control.State.Properties.ActiveTab = active;
        control.State.HoverTab = 1;
        control.RedrawBars();
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
    }
}

TEST_CASE("the hover look is mixed over the bar without the plain button, and goes again without a trace") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        CAPTURE(side);
        SkinnedControl control;
        WithThreeTabs(control).State.Properties.TabPos = side;
        control.State.Properties.BarWidth = 30; // so that all three are seen on every side
        control.RepaintAll();
        const Pixels plain = control.Shown();
        for (const std::int16_t tab : std::initializer_list<std::int16_t>{0, 1, 2}) {
            Pixels hovered = plain;
            const RECT slot = control.Slot(tab);
            const Pixels bare = control.WithoutDecorations();
            for (std::int32_t y = slot.top; y < slot.bottom; ++y)
                for (std::int32_t x = slot.left; x < slot.right; ++x) hovered.Set(x, y, bare.At(x, y));
            control.MixTabIcon(hovered, tab);
            control.MixCloseButton(hovered, tab, 3);
            control.Host.TakeLog();
            RedrawClose(control, tab, 1, 3);
            CHECK(Difference(control.Shown(), hovered) == "same");
            CHECK(control.Host.TakeLog() == "Refresh");
            RedrawClose(control, tab, 1, 3);
            CHECK(Difference(control.Shown(), hovered) == "same");
            RedrawClose(control, tab, 0, 0);
            CHECK(Difference(control.Shown(), plain) == "same");
        }
    }
}

TEST_CASE("the pointer's close button does not show a caption that waits for the next repaint") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    const Pixels plain = control.Shown();
    control.State.Tabs(0).Caption = u"MMMMMMMMMMMM";
    RedrawClose(control, 0, 1, 3);
    RedrawClose(control, 0, 0, 0);
    CHECK(Difference(control.Shown(), plain) == "same");
}

TEST_CASE(
    "a close button of a bar that is not on the surface is not drawn, yet State becomes the slot number") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.SetTabCount(40);
    control.RepaintAll();
    const Pixels before = control.Shown();
    for (const std::int16_t tab : std::initializer_list<std::int16_t>{-1, 30, 39, 40, 32767, -32768})
        CHECK(RedrawClose(control, tab, 1, 3).State == 3);
    CHECK(Difference(control.Shown(), before) == "same");
}

TEST_CASE("DelBtnXJust and DelBtnYJust move the button after its pictures were released") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    RedrawClose(control, 0, 1, 3);
    const SkinIcon before = *control.State.SkinIcons.At(0);
    CHECK(Filled(&before) == "14");
    control.State.Properties.DelBtnXJust = -3;
    control.State.Properties.DelBtnYJust = 2;
    control.Decorations.ReleaseCloseButton();
    CHECK(Filled(control.State.SkinIcons.At(0)).empty());
    CHECK_FALSE(IsBitmap(before.Handles[0]));
    CHECK_FALSE(IsBitmap(before.Handles[3]));
    control.RedrawBars();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
}

TEST_CASE("a decoration that is shifted off its bar is cut off at the slot's edges") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.State.Properties.DelBtnXJust = 12;
    control.State.Properties.DelBtnYJust = -9;
    control.State.Properties.IcoXjust = -9;
    control.State.Properties.IcoYjust = 7;
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    const Pixels plain = control.Shown();
    RedrawClose(control, 0, 1, 3);
    RedrawClose(control, 0, 0, 0);
    CHECK(Difference(control.Shown(), plain) == "same");
}

TEST_CASE("the close button's picture as a tab icon keeps its own colours") {
    SkinnedControl control;
    WithThreeTabs(control);
    control.State.Tabs(0).Ico = u"DELETEBUTTON";
    control.State.Tabs(2).Ico = u"DELETEBUTTON";
    control.RepaintAll();
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
}

TEST_CASE("a look above 2 and a tab without a record are subscript errors") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    CHECK(NumberRaisedBy([&] { control.Decorations.DrawTabIcon(0, 3); }) == 9);
    CHECK(NumberRaisedBy([&] { control.Decorations.DrawTabIcon(4, 0); }) == 9);
    CHECK(NumberRaisedBy([&] { control.Decorations.DrawTabIcon(-1, 0); }) == 9);
    CHECK(NumberRaisedBy([&] { DrawClose(control, 0, 3, 0); }) == 9);
    CHECK(NumberRaisedBy([&] { control.Decorations.TabIconWidth(4); }) == 9);
}

TEST_CASE("the end of the control releases the first three slots of every icon and keeps the other three") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    for (const std::uint8_t state : std::initializer_list<std::uint8_t>{0, 1, 2})
        for (const std::uint8_t flag : std::initializer_list<std::uint8_t>{0, 3})
            RedrawClose(control, 0, state, flag);
    const SkinIcon before = *control.State.SkinIcons.At(0);
    CHECK(Filled(&before) == "123456");
    control.Decorations.Terminate();
    CHECK(Filled(control.State.SkinIcons.At(0)).empty());
    for (std::size_t slot = 0; slot < 6; ++slot) {
        CHECK(IsBitmap(before.Handles[slot]) == (slot >= 3));
        DeleteObject(reinterpret_cast<HGDIOBJ>(before.Handles[slot]));
    }
    control.Decorations.Terminate();
}

TEST_CASE("any number of different backgrounds leaves few pictures behind") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    std::vector<BitmapSlot> handles;
    for (std::uint32_t seed = 100; seed < 120; ++seed) {
        control.Surfaces.SkinDC.CreateFromPicture(PictureOf(Patterned(64, 64, seed)).Get());
        control.RepaintAll();
        handles.push_back(control.State.SkinIcons.At(4)->Handles[0]);
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
    }
    std::size_t alive = 0;
    for (std::size_t i = 0; i + 1 < handles.size(); ++i)
        alive += handles[i] != handles.back() && IsBitmap(handles[i]);
    CHECK(alive < MixedPictures::PicturesPerSlot);
}

TEST_CASE("a kept picture is not shown over what differs in one row or one column") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    const Pixels plain = Patterned(64, 64, 100);
    for (std::int32_t line = 0; line < 64; ++line) {
        CAPTURE(line);
        Pixels inRow = plain, inColumn = plain;
        for (std::int32_t i = 0; i < 64; ++i) {
            inRow.Set(i, line, ~plain.At(i, line) & 0xFFFFFF);
            inColumn.Set(line, i, ~plain.At(line, i) & 0xFFFFFF);
        }
        for (const Pixels& skin : {plain, inRow, inColumn}) {
            control.Surfaces.SkinDC.CreateFromPicture(PictureOf(skin).Get());
            control.RepaintAll();
            CHECK(Difference(control.Shown(), control.Expected()) == "same");
        }
    }
}

TEST_CASE("icons that were forgotten leave no picture to those that take their places") {
    SkinnedControl control;
    WithThreeTabs(control).RepaintAll();
    control.State.SkinIcons = {};
    control.Pictures.clear();
    control.AddButtons();
    control.AddIcon(u"SUN", RandomIcon(16, 16, 99));
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
}

namespace {

// Both extents beyond the longest bar of these controls.
IconPicture LargeIcon(std::uint32_t seed) { return RandomIcon(300, 290, seed); }

SIZE SizeOf(BitmapSlot slot) {
    BITMAP bitmap = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(slot), sizeof bitmap, &bitmap);
    return {bitmap.bmWidth, bitmap.bmHeight};
}

} // namespace

TEST_CASE(
    "of a close button that is larger than its bar the part on the bar is kept, and shown again without its "
    "file") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        for (const std::int16_t shift : std::initializer_list<std::int16_t>{0, -150}) {
            CAPTURE(side);
            CAPTURE(shift);
            SkinnedControl control;
            control.AddButtons();
            const std::int16_t icon = control.AddIcon(u"DELETEBUTTON", LargeIcon(31));
            control.SetTabCount(3);
            control.State.Properties.TabPos = side;
            control.State.Properties.DelBtnXJust = control.State.Properties.DelBtnYJust = shift;
            control.RepaintAll();
            CHECK(Difference(control.Shown(), control.Expected()) == "same");
            CHECK(Difference(control.Shown(), control.WithoutDecorations()) != "same");
            const RECT room = control.Room(0);
            const SIZE kept = SizeOf(control.State.SkinIcons.At(icon)->Handles[0]);
            CHECK(kept.cx <= room.right - room.left);
            CHECK(kept.cy <= room.bottom - room.top);
            control.RemoveFile(icon);
            control.RepaintAll();
            CHECK(Difference(control.Shown(), control.Expected()) == "same");
        }
    }
}

TEST_CASE("a large close button is kept over each bar's own caption, whichever tab is active") {
    SkinnedControl control;
    control.AddButtons();
    const std::int16_t icon = control.AddIcon(u"DELETEBUTTON", LargeIcon(35));
    control.SetTabCount(4);
    control.State.Properties.BarWidth = 30;
    const auto showEach = [&](bool isExpected) {
        for (std::int16_t tab = 0; tab < 4; ++tab) {
            control.State.Properties.ActiveTab = tab;
            control.RepaintAll();
            if (isExpected) CHECK(Difference(control.Shown(), control.Expected()) == "same");
        }
    };
    for (std::int16_t tab = 0; tab < 4; ++tab)
        control.State.Tabs(tab).Caption = std::u16string(1, static_cast<char16_t>(u'A' + tab));
    showEach(false);
    control.RemoveFile(icon);
    showEach(true);
}

TEST_CASE("a large close button's hover look is mixed over the bar without the plain button, too") {
    SkinnedControl control;
    control.AddButtons();
    control.AddIcon(u"DELETEBUTTON", LargeIcon(32));
    control.SetTabCount(3);
    control.RepaintAll();
    const Pixels plain = control.Shown();
    RedrawClose(control, 1, 0, 3);
    CHECK(Difference(control.Shown(), control.Expected(1)) == "same");
    RedrawClose(control, 1, 0, 0);
    CHECK(Difference(control.Shown(), plain) == "same");
}

TEST_CASE("of a large tab icon no more is kept than is copied again") {
    SkinnedControl control;
    control.AddButtons();
    const std::int16_t icon = control.AddIcon(u"BIG", LargeIcon(33));
    control.SetTabCount(1);
    control.State.Tabs(0).Ico = u"BIG";
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    const SIZE kept = SizeOf(control.State.SkinIcons.At(icon)->Handles[0]);
    CHECK(kept.cx <= 20);
    CHECK(kept.cy <= 20);
    CHECK(kept.cx > 0);
}

TEST_CASE("a large decoration that lies beside its bar is not drawn at all") {
    SkinnedControl control;
    control.AddButtons();
    const std::int16_t icon = control.AddIcon(u"DELETEBUTTON", LargeIcon(34));
    control.SetTabCount(2);
    control.State.Properties.DelBtnYJust = 2000;
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    CHECK(Filled(control.State.SkinIcons.At(icon)).empty());
}
