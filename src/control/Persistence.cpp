// Loading and saving through the host's property bag, and the first placement of a control.
#include <algorithm>
#include <variant>

#include "base/ErrorText.h"
#include "control/VantikFrameTab.h"
#include "platform/PictureLoading.h"
#include "skin/SkinLoader.h"

namespace vantik {

namespace {

const PropertyValues Defaults;

constexpr Property At(std::size_t row) { return static_cast<Property>(row); }

// Calls the visitor with the property's field, for the properties that have one.
template <class Visitor>
void VisitField(Property property, Visitor visit) {
    std::visit(
        [&](auto field) {
            if constexpr (!std::is_same_v<decltype(field), std::monostate>) visit(InfoOf(property), field);
        },
        InfoOf(property).Field);
}

// What is done with a value that was read: its error is the reader's affair, too, who may keep a log by property.
template <class Use>
void With(PropertyReader& bag, Property property, Use use) {
    try {
        use();
    } catch (const RunTimeError& error) {
        bag.Rejected(InfoOf(property), error);
        throw;
    }
}

} // namespace

// Host code runs between the steps of a first placement and of a load: the count and the list agree all the while.
void VantikFrameTab::StartFromDefaults() {
    state_.Tabs = Tabs();
    state_.Properties = Defaults;
    state_.PreviousTabCount = 0;
    state_.HoverTab = -1;
    state_.HoverCloseTab = -1;
    state_.Layout.FirstVisibleTab = 0;
    state_.ReplacedSkinPath.reset();
}

void VantikFrameTab::UserControl_InitProperties() {
    merged_.CarryOut(); // no repaint follows
    StartFromDefaults();
    state_.SkinIcons.Entries.clear();
    state_.SkinIcons.DeleteButtonIcon = -1;
    state_.SkinIcons.LeftButtonIcon = -1;
    state_.SkinIcons.RightButtonIcon = -1; // the menu's index is not among those that are set
    surfaces_.Picture = EmptyPicture();
    surfaces_.Font = host_.AmbientFont();
}

// No setter runs: no side effect, no change mark. ActiveTab moves no children, as their saved positions match it. Where a
// value cannot be read those before it stand, TabCount with its list.
void VantikFrameTab::UserControl_ReadProperties(PropertyReader& bag) {
    merged_.CarryOut(); // no repaint follows when it fails
    StartFromDefaults();
    std::int16_t tabs = 0;
    try {
        ReadFields(bag, tabs);
        surfaces_.CaptionFont = StartingCaptionFont();
        MeasureCaptionHeight();
    } catch (...) {
        MakeTabs(std::max<std::int16_t>(tabs, 0));
        throw;
    }
    With(bag, Property::TabCount, [&] { MakeTabs(tabs); });
    wasShown_ = true; // also when it fails: the error went to the loader
    With(bag, Property::SkinFile, [&] { ReadSkin(); });
    With(bag, Property::BarWidth,
         [&] { RepaintAll(); }); // on which, more than on any other, the layout depends
    InstallHookAtRunTime();
}

// But for the number of tabs, which becomes true together with their list.
void VantikFrameTab::ReadFields(PropertyReader& bag, std::int16_t& tabs) {
    surfaces_.Picture = nullptr;
    surfaces_.Font = host_.AmbientFont();
    for (std::size_t row = 0; row < PropertyCount; ++row) {
        const Property property = At(row);
        if (property == Property::Picture) bag.Read(InfoOf(property), surfaces_.Picture);
        if (property == Property::Font) bag.Read(InfoOf(property), surfaces_.Font);
        if (property == Property::TabCount)
            bag.Read(InfoOf(property), tabs);
        else
            VisitField(property, [&](const PropertyInfo& info, auto field) {
                bag.Read(info, state_.Properties.*field);
            });
    }
}

// In place of those that host code may have made while the values were read. SubscriptOutOfRange below 0.
void VantikFrameTab::MakeTabs(std::int16_t count) {
    state_.Properties.TabCount = 0;
    state_.Tabs = Tabs();
    state_.NewTabNumber = 0;
    state_.PreviousTabCount = 0;
    state_.Layout = {};
    if (count < 0) Raise(RunTimeErrorNumber::SubscriptOutOfRange, u"The saved TabCount is ", count);
    ResizeTabList(count);
}

// The objects are held while they are written: code of the host that runs meanwhile may replace them.
void VantikFrameTab::UserControl_WriteProperties(PropertyWriter& bag) const {
    for (std::size_t row = 0; row < PropertyCount; ++row) {
        const Property property = At(row);
        if (property == Property::Picture) bag.Write(InfoOf(property), Picture().Get());
        if (property == Property::Font) bag.Write(InfoOf(property), Font().Get(), host_.AmbientFont().Get());
        if (property == Property::SkinPath)
            bag.Write(InfoOf(property), SavedSkinPath(), Defaults.SkinPath);
        else
            VisitField(property, [&](const PropertyInfo& info, auto field) {
                bag.Write(info, state_.Properties.*field, Defaults.*field);
            });
    }
}

const std::u16string& VantikFrameTab::SavedSkinPath() const {
    return state_.ReplacedSkinPath ? *state_.ReplacedSkinPath : state_.Properties.SkinPath;
}

void VantikFrameTab::InstallHookAtRunTime() {
    wantsHook_ = host_.AmbientUserMode() != False;
    UserControl_WindowCreated();
}

// Saved properties are often loaded before the window is there, and a window may come and go several times.
void VantikFrameTab::UserControl_WindowCreated() {
    const HWND window = host_.hWnd();
    if (!wantsHook_ || !window || hook_.IsHooked(window)) return;
    hook_.SubclassStart(window);
    hook_.SubclassAddMsg(window, WM_MOUSEWHEEL, HookTime::Before);
}

} // namespace vantik
