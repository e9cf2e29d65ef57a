// A control with the built-in skin, and a hand to drive it.
#pragma once

#include "render/BarGeometry.h"
#include "render/DecorationGeometry.h"
#include "tests/control/ControlFixture.h"
#include "tests/skin/TemporaryFolder.h"

namespace vantik::test {

// Bars are 60 pixels wide; the log is empty at the start.
struct DrivenControl {
    TemporaryFolder Folder;
    ControlFixture Fixture;
    FakeUserControl& Host = Fixture.Host;
    VantikFrameTab& Control = Fixture.Control;

    explicit DrivenControl(std::int16_t tabs, std::int32_t width = 440) : Fixture(0, width, true) {
        Host.Folder = Folder.Path();
        Control.Let<std::int16_t>(Property::BarWidth, 60);
        Control.TabCount(tabs); // the first showing: now the skin is there
        Control.ActiveTab(0);
        Host.TakeLog();
    }

    const ControlState& State() const { return Control.State(); }

    // What the host was told, without the drawing's own traces.
    std::string Log() {
        std::string kept;
        std::string log = Host.TakeLog() + "; ";
        for (std::size_t end; (end = log.find("; ")) != std::string::npos; log.erase(0, end + 2)) {
            const std::string entry = log.substr(0, end);
            if (entry.empty() || entry == "Cls" || entry == "Refresh") continue;
            kept += (kept.empty() ? "" : "; ") + entry;
        }
        return kept;
    }

    // The pointer in pixels.
    void Move(std::int32_t x, std::int32_t y) { Control.UserControl_MouseMove(0, 0, Twips(x), Twips(y)); }
    void Press(std::int32_t x, std::int32_t y, std::int16_t button = 1) {
        Move(x, y);
        Control.UserControl_MouseDown(button, 0, Twips(x), Twips(y));
        Control.UserControl_MouseUp(button, 0, Twips(x), Twips(y));
    }
    void MoveTo(const LayoutRect& rect) { Move((rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2); }
    void Click(const LayoutRect& rect, std::int16_t button = 1) {
        Press((rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2, button);
    }
    // A press that no move comes before and no release after.
    void PressAt(const LayoutRect& rect) {
        Control.UserControl_MouseDown(1, 0, Twips(rect.Left), Twips(rect.Top));
    }
    void Key(std::int16_t code) { Control.UserControl_KeyDown(code, 0); }
    void Wheel(std::int16_t distance) {
        SendMessageW(Host.hWnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, distance), 0);
    }

    // The left part of a bar, away from its close button.
    LayoutRect Bar(std::int32_t slot) const { return PartRect(State(), slot, 0, 0, 30, 22); }
    LayoutRect Close(std::int32_t slot) const { return CloseButtonRect(State(), slot); }
    ButtonRects Buttons() const { return NavButtonRects(State()); }

private:
    static float Twips(std::int32_t pixels) { return static_cast<float>(pixels * 15); }
};

} // namespace vantik::test
