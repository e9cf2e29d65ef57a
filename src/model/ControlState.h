// The whole portable state of one control: what the operations change and the painting reads.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Checked.h"
#include "model/LayoutRect.h"
#include "model/PngSize.h"
#include "model/Properties.h"
#include "model/Skin.h"
#include "model/Tabs.h"

namespace vantik {

struct ControlState {
    PropertyValues Properties; // TabCount counts from 1; ActiveTab from 0, -1: none
    vantik::Tabs Tabs;

    std::int16_t PreviousTabCount = 0; // the count before the last change through the TabCount property
    std::int16_t HoverTab = -1;        // bar under the pointer
    std::int16_t HoverCloseTab = -1;   // close button under the pointer
    std::int32_t NewTabNumber = 0;     // appended to DefaultCaption for the next new tab
    Boolean ButtonPressed = False;     // a press landed on a button beside the strip

    LayoutCache Layout;

    vantik::SkinRects SkinRects;
    vantik::SkinIcons SkinIcons;
    std::u16string SkinBitmapPath; // empty until a definition names a bitmap
    // The SkinPath that the host set last, while the built-in skin's folder stands in its place. This one is saved.
    std::optional<std::u16string> ReplacedSkinPath;

    PngSize LastPng;          // size of the PNG file read most recently
    std::u16string StateCode; // the decoration code built most recently

    // The look of a tab's bar; the active test is made first, so an active bar under the pointer is active.
    BarState StateOf(std::int16_t tab) const noexcept {
        if (tab == Properties.ActiveTab) return BarActive;
        return tab == HoverTab ? BarHover : BarNormal;
    }

    // How many tabs there are behind the last bar, as painting and presses count them. Overflow.
    std::int16_t TabsBehind() const {
        return Subtract16(Properties.TabCount, Add16(Layout.FirstVisibleTab, Layout.VisibleBarCount));
    }

    // Whether there are tabs before the first bar, and behind the last one. The second is for those who only look on: it
    // has an answer also where that count overflows.
    bool HasTabsBefore() const noexcept { return Layout.FirstVisibleTab > 0; }
    bool HasTabsBehind() const noexcept {
        return Properties.TabCount - (Layout.FirstVisibleTab + Layout.VisibleBarCount) > 0;
    }

    // Whether the index names a tab.
    bool HasTab(std::int16_t index) const noexcept { return index >= 0 && index < Properties.TabCount; }
};

} // namespace vantik
