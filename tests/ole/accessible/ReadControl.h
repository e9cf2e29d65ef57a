// The built control in place, beside a plain window's worth of room, as screen readers find it.
#pragma once

#include <optional>

#include "acctree/TreeText.h"
#include "ole/LooseControl.h"
#include "ole/window/WindowedControl.h"

namespace vantik {

struct ReadControl : LooseControl {
    // Five bars of 60 fit, behind the corner.
    std::optional<WindowedControl> InWindow{std::in_place, As<IUnknown>(), RECT{10, 10, 390, 210}};

    explicit ReadControl(short tabs = 3) {
        SetCursorPos(900, 700); // the pointer shows in the states
        Tab->put_BarWidth(60);
        Tab->put_TabCount(tabs);
        Tab->put_ActiveTab(0);
    }

    void Caption(short index, const wchar_t* text) const {
        BSTR caption = SysAllocString(text);
        VARIANT_BOOL refresh = VARIANT_TRUE;
        Tab->SetBarCaption(&index, &caption, &refresh);
        SysFreeString(caption);
    }
    void Enable(short index, bool enabled) const {
        VARIANT_BOOL value = enabled ? VARIANT_TRUE : VARIANT_FALSE;
        Tab->SetBarEnable(&index, &value);
    }
    short Active() const {
        short active = -2;
        Tab->get_ActiveTab(&active);
        return active;
    }
    short Count() const {
        short count = -2;
        Tab->get_TabCount(&count);
        return count;
    }

    // What the form says of itself from now on.
    void BeDesigned(bool designed) const {
        InWindow->Site().UnderDesign = designed;
        As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
    }

    HWND Window() const { return InWindow->Window(); }
    Node Root() const { return *Node::OfWindow(Window()); }
    // A child of the row, by its place among them.
    Node Child(std::size_t index) const { return Root().Children().at(index); }
    std::string Tree() const {
        TreeOptions options;
        ClientToScreen(Window(), &options.Origin);
        return TreeText(Root(), options);
    }
};

} // namespace vantik
