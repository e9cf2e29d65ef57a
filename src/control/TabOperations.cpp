// The list of tabs: counting, inserting, removing, captions, icons, enabled flags.
#include "base/Checked.h"
#include "base/ErrorText.h"
#include "base/Text.h"
#include "control/PaintingFreeze.h"
#include "control/VantikFrameTab.h"

namespace vantik {

namespace {

constexpr char16_t NoSuchTab[] = u"-1";

} // namespace

void VantikFrameTab::TabCount(std::int16_t count) {
    if (count < 1 || count == TabCount()) return;
    state_.PreviousTabCount = TabCount();
    state_.Properties.TabCount = count;
    host_.PropertyChanged(Property::TabCount);
    ResizeTabList(TabCount()); // which may be another one after code of the host
    RepaintAll();
}

// The children of dropped tabs stay where they are.
void VantikFrameTab::ResizeTabList(std::int16_t newCount) {
    const std::int16_t oldCount = state_.Tabs.UpperBound();
    state_.Tabs.Resize(newCount);
    state_.Properties.TabCount = newCount;
    if (newCount < oldCount && ActiveTab() > newCount - 1)
        state_.Properties.ActiveTab = Subtract16(newCount, 1);
    for (std::int16_t i = oldCount; i < newCount; ++i)
        state_.Tabs(i) = {.Caption = NextDefaultCaption(), .Ico = u"", .Enable = True};
}

std::u16string VantikFrameTab::NextDefaultCaption() {
    const std::u16string caption = state_.Properties.DefaultCaption + DecimalText(state_.NewTabNumber);
    state_.NewTabNumber = Checked(state_.NewTabNumber) + 1;
    return caption;
}

void VantikFrameTab::ActiveTab(std::int16_t index) {
    if (!state_.HasTab(index) || !state_.Tabs(index).Enable) return;
    host_.PropertyChanged(Property::ActiveTab);
    SwitchTo(index);
}

void VantikFrameTab::SwitchTo(std::int16_t index) {
    children_.ShowTabControls(index);
    if (index > state_.Tabs.UpperBound())
        Raise(RunTimeErrorNumber::SubscriptOutOfRange); // by code of the host
    state_.Properties.ActiveTab = index;
    RedrawBars();
}

void VantikFrameTab::InsertTab(std::int16_t afterIndex, std::u16string& caption) {
    if (!state_.HasTab(afterIndex)) return;
    const std::int16_t newIndex = Add16(afterIndex, 1);
    if (TrimSpaces(caption).empty()) caption = NextDefaultCaption();

    PaintingFreeze freeze(host_.hWnd());
    const ChildVisibility::OneOperation once(children_);
    ActiveTab(0); // the rule that tells a child's tab holds while tab 0 is active
    children_.MakeRoomAfter(afterIndex);
    if (!state_.HasTab(afterIndex)) return; // moving children runs code of the host, which may remove tabs
    state_.Tabs.Move(TabCount(), newIndex); // the spare record becomes the last tab's
    state_.Tabs(newIndex) = state_.Tabs(afterIndex);
    if (TabCount() == INT16_MAX)
        Raise(RunTimeErrorNumber::Overflow, u"There are ", TabCount(), u" tabs, as many as can be");
    const std::int16_t count = Add16(TabCount(), 1);
    state_.Tabs.Resize(count); // one spare record past the last tab, as always
    state_.Properties.TabCount = count;
    state_.Tabs(newIndex) = {.Caption = caption, .Ico = NoSuchTab, .Enable = True};
    ActiveTab(newIndex);
    freeze.Release();
    RepaintAll();
}

void VantikFrameTab::RemoveTab(std::int16_t index) {
    if (TabCount() < 2 || !state_.HasTab(index)) return;
    PaintingFreeze freeze(host_.hWnd());
    const ChildVisibility::OneOperation once(children_);
    ActiveTab(0);
    children_.CloseGapOf(index);
    if (TabCount() < 2 || !state_.HasTab(index))
        return; // moving children runs host code, which may remove tabs
    const std::int16_t last = Subtract16(TabCount(), 1);
    if (index < last) {
        state_.Tabs.Move(index, last);
        state_.Tabs(last) =
            state_.Tabs(last - 1); // those behind moved up, and the last one stays behind as the spare
    }
    state_.Tabs.Resize(last);
    state_.Properties.TabCount = last;
    // One past the last tab, on purpose; it happens only while tab 0 is disabled and could not be made active above.
    if (ActiveTab() > last - 1) state_.Properties.ActiveTab = last;
    if (ActiveTab() >= 0)
        children_.ShowTabControls(ActiveTab()); // none is active while tab 0 is disabled, say
    RepaintAll();
}

void VantikFrameTab::SetBarIco(std::int16_t index, const std::u16string& key) {
    if (!state_.HasTab(index)) return;
    merged_.CarryOutOtherRow();
    state_.Tabs(index).Ico = UpperCase(key);
    RedrawBar(index);
}

void VantikFrameTab::SetBarCaption(std::int16_t index, const std::u16string& caption, Boolean refresh) {
    if (!state_.HasTab(index)) return;
    if (!refresh) merged_.CarryOut(); // the new caption shows at the next repaint only
    state_.Tabs(index).Caption = caption;
    if (refresh) RedrawBars();
}

// Leaves no tab active whether the active tab was disabled or enabled: the host selects one again.
void VantikFrameTab::SetBarEnable(std::int16_t index, Boolean enable) {
    if (!state_.HasTab(index)) return;
    if (index == ActiveTab()) children_.SetShownVisible(enable);
    merged_.CarryOutOtherRow();
    state_.Tabs(index).Enable = enable;
    if (index == ActiveTab()) {
        state_.Properties.ActiveTab = -1;
        RedrawBars();
    } else if (index == state_.HoverTab) {
        state_.HoverTab = -1;
        RedrawBars();
    } else {
        RedrawBar(index);
    }
}

void VantikFrameTab::RedrawBar(std::int16_t index) { merged_.RedrawBar(index, state_.StateOf(index)); }

std::u16string VantikFrameTab::GetTabCaption(std::int16_t index) const {
    return state_.HasTab(index) ? state_.Tabs(index).Caption : NoSuchTab;
}

std::u16string VantikFrameTab::GetTabIco(std::int16_t index) const {
    return state_.HasTab(index) ? state_.Tabs(index).Ico : NoSuchTab;
}

Boolean VantikFrameTab::GetTabEnable(std::int16_t index) const {
    return state_.HasTab(index) ? state_.Tabs(index).Enable : False;
}

} // namespace vantik
