// A control in a host of the tests.
#pragma once

#include <string>

#include "control/VantikFrameTab.h"
#include "tests/render/FakeUserControl.h"

namespace vantik::test {

struct ControlFixture {
    FakeUserControl Host;
    VantikFrameTab Control{Host};

    // A control as a host places it on a form, with this many tabs; without a window it never looks for a skin.
    explicit ControlFixture(std::int16_t tabs = 0, std::int32_t width = 440, bool withWindow = false)
        : Host(width, 300, withWindow) {
        Control.UserControl_InitProperties();
        if (tabs > 0) Control.TabCount(tabs);
        Host.TakeLog();
    }

    // "Tab0 Tab1 Tab2"; a disabled tab's caption stands in brackets.
    std::string Captions() const {
        std::string all;
        for (std::int16_t i = 0; i < Control.TabCount(); ++i) {
            const std::u16string caption = Control.GetTabCaption(i);
            const std::string ascii(caption.begin(), caption.end());
            all += (i ? " " : "") + (Control.GetTabEnable(i) ? ascii : "(" + ascii + ")");
        }
        return all;
    }

    void Insert(std::int16_t after, const char16_t* caption = u"") {
        std::u16string text = caption;
        Control.InsertTab(after, text);
    }

    FakeChild& AddChild(const char16_t* name, double left) {
        Host.Children.push_back({.Name = name, .Left = left});
        return Host.Children.back();
    }

    // Where the children stand, in the order in which they were added: "300 -39880".
    std::string Lefts() const {
        std::string all;
        for (const FakeChild& child : Host.Children)
            all += (all.empty() ? "" : " ") + std::to_string(static_cast<long>(child.Left));
        return all;
    }
};

} // namespace vantik::test
