#include <doctest/doctest.h>

#include "render/DecorationGeometry.h"
#include "tests/skin/SkinnedControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// Forty tabs in a row that shows a few, the middle ones.
struct Scrolled : SkinnedControl {
    Scrolled() {
        AddButtons();
        SetTabCount(40);
        RepaintAll();
        ScrollTo(20);
    }
    void ScrollTo(std::int16_t first) {
        State.Layout.FirstVisibleTab = first;
        RepaintAll();
    }
    ButtonRects Rects() const { return NavButtonRects(State); }
    bool Prev(Boolean pressed) {
        return Decorations.DrawPrevButton(Rects().Previous.Left, Rects().Previous.Top, pressed);
    }
    bool Next(Boolean pressed) {
        return Decorations.DrawNextButton(Rects().Next.Left, Rects().Next.Top, pressed);
    }
    bool Menu(Boolean pressed) {
        return Decorations.DrawMenuButton(Rects().Menu.Left, Rects().Menu.Top, pressed);
    }
};

} // namespace

TEST_CASE("the buttons beside the row show their own colours, greyed at the row's ends") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom})
        for (const std::int32_t placement : {TabLeft, TabMiddle, TabRight}) {
            CAPTURE(side);
            CAPTURE(placement);
            Scrolled control;
            control.State.Properties.TabPos = side;
            control.State.Properties.TabBarPos = placement;
            for (const std::int16_t first :
                 std::initializer_list<std::int16_t>{0, 1, 20, 40}) { // 40 is pulled back to the end
                control.ScrollTo(first);
                CHECK(Difference(control.Shown(), control.Expected()) == "same");
            }
        }
}

TEST_CASE("drawing the buttons again and again changes nothing") {
    Scrolled control;
    const Pixels once = control.Shown();
    for (int i = 0; i < 5; ++i) control.Decorations.DrawNavButtons();
    CHECK(Difference(control.Shown(), once) == "same");
}

TEST_CASE("a pressed button is drawn at 80 percent value, says so, and is released without a trace") {
    Scrolled control;
    const IconPicture grey = FlatIcon(7, 6, {10, 10, 10, 255});
    control.Folder.Write(u"iconb.png", AsPng(grey));
    control.RepaintAll();
    const Pixels released = control.Shown();
    control.Host.TakeLog();
    CHECK(control.Prev(True));
    CHECK(control.Host.TakeLog() == "Refresh");
    CHECK(control.State.ButtonPressed == True);
    Pixels expected = released;
    const LayoutRect at = control.Rects().Previous;
    Mix(expected, grey, at.Left, at.Top, 4, {0, 0, expected.Width, expected.Height});
    CHECK(expected.At(at.Left, at.Top) == 0xCCCCCC);
    CHECK(Difference(control.Shown(), expected) == "same");
    control.Decorations.DrawNavButtons();
    CHECK(Difference(control.Shown(), released) == "same");
}

TEST_CASE("each button reports whether it was drawn pressed") {
    Scrolled control;
    CHECK_FALSE(control.Prev(False));
    CHECK_FALSE(control.Next(False));
    CHECK_FALSE(control.Menu(False));
    CHECK(control.State.ButtonPressed == False);
    CHECK(control.Next(True));
    CHECK(control.Menu(True));
    CHECK(control.State.ButtonPressed == True);
}

TEST_CASE("a greyed button is never drawn pressed, the menu button is never greyed") {
    Scrolled control;
    control.ScrollTo(0);
    CHECK_FALSE(control.Prev(True));
    CHECK(control.Next(True));
    control.ScrollTo(40);
    control.State.ButtonPressed = False;
    CHECK_FALSE(control.Next(True));
    CHECK(control.State.ButtonPressed == False);
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    CHECK(control.Prev(True));
    control.SetTabCount(1);
    control.RepaintAll();
    CHECK_FALSE(control.Prev(True));
    CHECK_FALSE(control.Next(True));
    CHECK(control.Menu(True));
}

TEST_CASE("a button without an icon is not drawn, not even pressed") {
    Scrolled control;
    control.State.SkinIcons.LeftButtonIcon = -1;
    control.RepaintAll();
    CHECK_FALSE(control.Prev(True));
    CHECK(control.State.ButtonPressed == False);
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
}

TEST_CASE("a button's entry holds the size read and the picture drawn last") {
    Scrolled control;
    SkinIcon& menu = *control.State.SkinIcons.At(control.State.SkinIcons.MenuBarIcon);
    const BitmapSlot first = menu.Handles[0];
    CHECK(GetObjectType(reinterpret_cast<HGDIOBJ>(first)) == OBJ_BITMAP);
    control.Folder.Write(u"icond.png", AsPng(RandomIcon(5, 4, 77)));
    control.Decorations.DrawNavButtons();
    CHECK(menu.Width == 5);
    CHECK(menu.Height == 4);
    CHECK(control.State.LastPng.LastPngWidth == 5);
    BITMAP picture = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(menu.Handles[0]), sizeof picture, &picture);
    CHECK(picture.bmWidth == 5);
    for (std::size_t slot = 1; slot < 6; ++slot) CHECK(menu.Handles[slot] == NoBitmap);
}

TEST_CASE("a button shows its file as it is now, unlike the cached decorations of the bars") {
    Scrolled control;
    const IconPicture other = RandomIcon(6, 9, 78);
    const auto menu = static_cast<std::size_t>(control.State.SkinIcons.MenuBarIcon);
    Sleep(20); // so that the file's time differs
    control.Folder.Write(u"icond.png", AsPng(other));
    control.Pictures[menu] = other;
    control.Decorations.DrawNavButtons();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    control.RemoveFile(control.State.SkinIcons.MenuBarIcon);
    control.Pictures[menu] = {};
    control.Decorations.DrawNavButtons();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
}

TEST_CASE("a smaller picture leaves nothing of the larger one that was there") {
    Scrolled control;
    const LayoutRect at = control.Rects().Menu;
    const Pixels bare = control.WithoutDecorations();
    Pixels expected = control.Shown();
    for (std::int32_t y = at.Top; y <= at.Bottom; ++y)
        for (std::int32_t x = at.Left; x <= at.Right; ++x) expected.Set(x, y, bare.At(x, y));
    const IconPicture small = RandomIcon(4, 5, 78);
    Mix(expected, small, at.Left, at.Top, 3, {0, 0, expected.Width, expected.Height});
    control.Folder.Write(u"icond.png", AsPng(small));
    control.Decorations.DrawNavButtons();
    CHECK(Difference(control.Shown(), expected) == "same");
}

TEST_CASE("a button whose file is gone or no picture takes the size read last, whosever that was") {
    for (const char* content : {"", "GIF89a no PNG"}) {
        Scrolled control;
        SkinIcon& left = *control.State.SkinIcons.At(control.State.SkinIcons.LeftButtonIcon);
        control.RemoveFile(control.State.SkinIcons.LeftButtonIcon);
        if (*content) control.Folder.Write(u"iconb.png", content);
        control.RepaintAll();
        CHECK(left.Width == 6); // the menu button's, read last by the repaint before
        CHECK(left.Height == 9);
        CHECK(left.Handles[0] == NoBitmap);
        control.RepaintAll(); // the layout follows
        control.Pictures[1] = {};
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
    }
}

TEST_CASE("a button that shows the picture it has counts as read, too") {
    Scrolled control;
    control.Folder.Write(u"iconc.png",
                         AsPng(RandomIcon(5, 4, 77))); // the next button's, read before the menu's
    control.Decorations.DrawNavButtons();
    CHECK(control.State.SkinIcons.At(control.State.SkinIcons.RightButtonIcon)->Width == 5);
    CHECK(control.State.LastPng.LastPngWidth == 6);
    CHECK(control.State.LastPng.LastPngHeight == 9);
    control.RemoveFile(control.State.SkinIcons.LeftButtonIcon);
    control.Decorations.DrawNavButtons();
    const SkinIcon& left = *control.State.SkinIcons.At(control.State.SkinIcons.LeftButtonIcon);
    CHECK(left.Width == 6);
    CHECK(left.Height == 9);
}

TEST_CASE("a button whose picture is too large for 16 bits keeps its size and is not drawn") {
    for (const auto& [width, height] : {std::pair{40000u, 5u}, std::pair{5u, 40000u}}) {
        CAPTURE(width);
        Scrolled control;
        SkinIcon& left = *control.State.SkinIcons.At(control.State.SkinIcons.LeftButtonIcon);
        control.Folder.Write(u"iconb.png", FlatPng(width, height));
        control.RepaintAll();
        CHECK(left.Width == 7);
        CHECK(left.Height == 6);
        control.Pictures[1] = {};
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
    }
}

TEST_CASE("a button that is shifted over the strip stays behind the bars") {
    Scrolled control;
    control.State.Properties.NavBtnXjust = -20;
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    const Pixels all = control.Shown();
    control.RedrawBars();
    CHECK(Difference(control.Shown(), all) == "same");
}

TEST_CASE("buttons that a longer bar at the row's end pushes aside leave nothing where they were") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        CAPTURE(side);
        Scrolled control;
        PropertyValues& p = control.State.Properties;
        p.TabPos = side;
        p.TabBorder = True;
        const bool isFar = side == WindowBottom || side == WindowRight;
        // Towards the page, so that they are not only on what a frame's repaint restores.
        (side == Windowtop || side == WindowBottom ? p.NavBtnYjust : p.NavBtnXjust) = isFar ? -15 : 15;
        control.SetTabCount(2);
        control.RepaintAll();
        const ButtonRects before = control.Rects();
        p.TabToTab = -22;
        control.Driver.RepaintFrame(); // what follows an assignment of TabToTab
        control.RedrawBars();
        CHECK(control.Rects() != before);
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
        p.TabToTab = 0;
        control.Driver.RepaintFrame();
        control.RedrawBars();
        CHECK(Difference(control.Shown(), control.Expected()) == "same");
    }
}

TEST_CASE("the window paints the buttons' places again") {
    SkinnedControl control(1, true);
    control.AddButtons();
    control.SetTabCount(40);
    control.RepaintAll();
    control.Host.TakeInvalidated();
    control.Decorations.DrawNavButtons();
    const ButtonRects rects = NavButtonRects(control.State);
    const LONG top = std::min({rects.Previous.Top, rects.Next.Top, rects.Menu.Top});
    const LONG bottom = std::max({rects.Previous.Bottom, rects.Next.Bottom, rects.Menu.Bottom});
    CHECK(control.Host.TakeInvalidated() == std::to_string(rects.Previous.Left) + "," + std::to_string(top) +
                                                "," + std::to_string(rects.Menu.Right + 1) + "," +
                                                std::to_string(bottom + 1));
}

TEST_CASE("a button larger than the control is kept, as much of it as lies on the control") {
    SkinnedControl control;
    control.AddIcon(u"MENUBAR", RandomIcon(400, 390, 78));
    control.Folder.MakeOld(u"");
    control.SetTabCount(2);
    control.RepaintAll();
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
    const BitmapSlot first = control.State.SkinIcons.At(0)->Handles[0];
    BITMAP kept = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(first), sizeof kept, &kept);
    CHECK(kept.bmWidth <= control.State.Layout.ControlRect.Width);
    CHECK(kept.bmHeight <= control.State.Layout.ControlRect.Height);
    control.RepaintAll();
    CHECK(control.State.SkinIcons.At(0)->Handles[0] == first); // another one would be another picture
    CHECK(Difference(control.Shown(), control.Expected()) == "same");
}
