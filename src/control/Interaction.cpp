// Pointer, keys and wheel. A press acts on the hover state that the last pointer move left behind.
#include "base/Checked.h"
#include "base/Rounding.h"
#include "control/VantikFrameTab.h"
#include "render/BarGeometry.h"
#include "render/DecorationGeometry.h"

namespace vantik {

namespace {

constexpr std::int16_t KeyLeft = 37, KeyRight = 39;
constexpr std::uint8_t FlagPlain = 0, FlagHover = 3;

} // namespace

// The variable is the event's by-reference argument: the switch goes where the handler left it.
void VantikFrameTab::SwitchByUser(std::int16_t& index, std::int16_t button) {
    host_.Events().TabDown(index, button);
    SwitchTo(index);
}

void VantikFrameTab::StepForward() {
    const LayoutCache& layout = state_.Layout;
    const std::int16_t past = Add16(layout.FirstVisibleTab, layout.VisibleBarCount);
    std::int16_t target = Add16(ActiveTab(), 1);
    if (target >= past) target = Subtract16(past, 1);
    SwitchByUser(target, 0);
}

void VantikFrameTab::StepBack() {
    std::int16_t target = Subtract16(ActiveTab(), 1);
    if (target < state_.Layout.FirstVisibleTab) target = state_.Layout.FirstVisibleTab;
    SwitchByUser(target, 0);
}

void VantikFrameTab::UserControl_KeyDown(std::int16_t keyCode, std::int16_t /*shift*/) {
    if (keyCode == KeyRight) StepForward();
    if (keyCode == KeyLeft) StepBack();
}

// Never marks the message handled: the wheel always reaches the window's own procedure afterwards. A wheel turned
// towards the user has its negative distance in the high half, so the whole number is negative.
void VantikFrameTab::zSubclass_Proc(Boolean /*before*/, Boolean& /*handled*/, std::int32_t& /*result*/,
                                    std::int32_t& /*window*/, std::int32_t& message, std::int32_t& wParam,
                                    std::int32_t& /*lParam*/) {
    if (message != WM_MOUSEWHEEL) return;
    if (wParam < 1)
        StepBack();
    else
        StepForward();
}

void VantikFrameTab::HookedInput::zSubclass_Proc(Boolean before, Boolean& handled, std::int32_t& result,
                                                 std::int32_t& window, std::int32_t& message,
                                                 std::int32_t& wParam, std::int32_t& lParam) {
    if (!control_.host_.TakesWheel(wParam)) return;
    control_.zSubclass_Proc(before, handled, result, window, message, wParam, lParam);
}

void VantikFrameTab::UserControl_MouseDown(std::int16_t button, std::int16_t /*shift*/, float x, float y) {
    const SeenButtons seen = {NavButtonRects(state_), RowRect(state_)};
    if (state_.HoverCloseTab < 0 || !state_.Properties.DelButton) {
        if (state_.HoverTab > -1) {
            if (state_.HoverTab == ActiveTab()) return;
            SwitchByUser(state_.HoverTab, button);
        }
    } else {
        CloseHoveredTab();
    }
    HitTestButtons(seen, TwipsToPixels(x, host_.TwipsPerPixelX()), TwipsToPixels(y, host_.TwipsPerPixelY()));
}

// The hover state is the event's by-reference argument.
void VantikFrameTab::CloseHoveredTab() {
    host_.Events().TabClose(state_.HoverCloseTab);
    RemoveTab(state_.HoverCloseTab);
    state_.HoverCloseTab = -1;
    RedrawBars();
}

void VantikFrameTab::ChooseTab(std::int16_t index) {
    if (index != ActiveTab()) SwitchByUser(index, 0);
}

// No pointer is there whose next move would end the hover that an error leaves behind.
void VantikFrameTab::PressCloseButton(std::int16_t tab) {
    EndCloseHover();
    state_.HoverCloseTab = tab;
    try {
        CloseHoveredTab();
    } catch (...) {
        state_.HoverCloseTab = -1;
        throw;
    }
}

void VantikFrameTab::PressBesideRow(std::int32_t x, std::int32_t y) {
    HitTestButtons({NavButtonRects(state_), RowRect(state_)}, x, y);
    UserControl_MouseUp(0, 0, 0, 0);
}

// A press means the button that was seen under the pointer: by now the press itself may have moved the row. The button
// is drawn where it lies now.
void VantikFrameTab::HitTestButtons(const SeenButtons& seen, std::int32_t x, std::int32_t y) {
    LayoutCache& layout = state_.Layout;
    const auto hit = [&](const LayoutRect& rect) {
        return PointInRect(float(x), float(y), rect) && !IsPixelOf(seen.Bars, x, y);
    };
    if (!hit(seen.Rects.Previous) && !hit(seen.Rects.Next) && !hit(seen.Rects.Menu)) return;
    merged_.CarryOut(); // what waits would paint over the pressed button
    const ButtonRects buttons = NavButtonRects(state_);
    if (hit(seen.Rects.Previous) &&
        decorations_.DrawPrevButton(buttons.Previous.Left, buttons.Previous.Top, True) &&
        state_.HasTabsBefore()) {
        layout.FirstVisibleTab = Subtract16(layout.FirstVisibleTab, 1);
        RedrawBars();
        host_.Events().PreTabDown(layout.FirstVisibleTab);
        return;
    }
    if (hit(seen.Rects.Next) && decorations_.DrawNextButton(buttons.Next.Left, buttons.Next.Top, True) &&
        state_.TabsBehind() > 0) {
        layout.FirstVisibleTab = Add16(layout.FirstVisibleTab, 1);
        RedrawBars();
        host_.Events().NextTabDown(layout.FirstVisibleTab);
        return;
    }
    if (hit(seen.Rects.Menu)) {
        decorations_.DrawMenuButton(buttons.Menu.Left, buttons.Menu.Top, True);
        state_.ButtonPressed = True;
        host_.Events().DownBarDown();
    }
}

void VantikFrameTab::UserControl_MouseMove(std::int16_t /*button*/, std::int16_t /*shift*/, float x,
                                           float y) {
    const auto px = float(TwipsToPixels(x, host_.TwipsPerPixelX()));
    const auto py = float(TwipsToPixels(y, host_.TwipsPerPixelY()));
    const LayoutRect& strip = state_.Layout.BarStripRect;
    if (!PointInRect(px, py, strip)) {
        host_.ReleaseCapture();
        return EndHover();
    }

    const std::int32_t slot = BarSlotAt(px - float(strip.Left), py - float(strip.Top), state_);
    const auto tabThere = [&] { return Narrow<std::int16_t>(state_.Layout.FirstVisibleTab + slot); };
    if (!PointInRect(px, py, CloseButtonRect(state_, slot)))
        EndCloseHover();
    else if (state_.HoverCloseTab == -1)
        HoverCloseButton(tabThere());

    const std::int16_t tab = tabThere();
    if (tab == state_.HoverTab) return;
    state_.HoverTab = tab;
    host_.Events().TabMove(state_.HoverTab);
}

void VantikFrameTab::HoverCloseButton(std::int16_t tab) {
    std::uint8_t look = BarHover, flag = FlagHover;
    merged_.CarryOut();
    decorations_.RedrawCloseButton(tab, look, flag);
    state_.HoverCloseTab = tab;
}

void VantikFrameTab::EndCloseHover() {
    if (state_.HoverCloseTab < 0) return;
    std::uint8_t look = BarNormal, flag = FlagPlain;
    merged_.CarryOut();
    decorations_.RedrawCloseButton(state_.HoverCloseTab, look, flag);
    state_.HoverCloseTab = -1;
}

void VantikFrameTab::EndHover() {
    EndCloseHover();
    state_.HoverTab = -1;
}

void VantikFrameTab::UserControl_MouseUp(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/,
                                         float /*y*/) {
    merged_.CarryOut();
    decorations_.DrawNavButtons();
}

} // namespace vantik
