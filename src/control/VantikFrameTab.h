// The control object: tabs, properties, and what the user's pointer and keys do to them.
//
// It knows its host only through UserControl. Public operations raise RunTimeError to their caller and leave the state
// as the steps up to the error left it. The host may call back into any operation from inside an event; the caller of
// every entry point keeps the object alive until it returns.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "control/MessageHook.h"
#include "control/PropertyBag.h"
#include "model/ControlState.h"
#include "platform/UserControl.h"
#include "render/RepaintDriver.h"
#include "render/Surfaces.h"
#include "skin/Decorations.h"

namespace vantik {

class VantikFrameTab {
public:
    // UserControl_Initialize. The host outlives the control.
    explicit VantikFrameTab(UserControl& host);
    // UserControl_Terminate
    ~VantikFrameTab();
    VantikFrameTab(const VantikFrameTab&) = delete;
    VantikFrameTab& operator=(const VantikFrameTab&) = delete;

    // Life cycle. Reading may raise what the reader, the skin files or the painting raise.
    void UserControl_InitProperties();
    void UserControl_ReadProperties(PropertyReader& bag);
    void UserControl_WriteProperties(PropertyWriter& bag) const;

    // Tab operations. An index outside the tabs does nothing; the getters answer "-1" or False.
    std::int16_t TabCount() const noexcept { return state_.Properties.TabCount; }
    void TabCount(std::int16_t count);
    std::int16_t ActiveTab() const noexcept { return state_.Properties.ActiveTab; }
    void ActiveTab(std::int16_t index);
    void InsertTab(std::int16_t afterIndex, std::u16string& caption); // writes the caption it chose back
    void RemoveTab(std::int16_t index);
    void SetBarIco(std::int16_t index, const std::u16string& key);
    void SetBarCaption(std::int16_t index, const std::u16string& caption, Boolean refresh);
    void SetBarEnable(std::int16_t index, Boolean enable);
    std::u16string GetTabCaption(std::int16_t index) const;
    Boolean GetTabEnable(std::int16_t index) const;
    std::u16string GetTabIco(std::int16_t index) const;

    // Every other property by its row in the property table; the value type is the type of the row's field.
    template <class Value>
    const Value& Get(Property property) const {
        return state_.Properties.*std::get<Value PropertyValues::*>(InfoOf(property).Field);
    }
    template <class Value>
    void Let(Property property, const Value& value);

    ComPtr<IPictureDisp> Picture() const { return surfaces_.Picture; }
    void Picture(ComPtr<IPictureDisp> picture);
    ComPtr<IFontDisp> Font() const { return surfaces_.Font; }
    void Font(ComPtr<IFontDisp> font);

    void About();

    // The public callback of the message hook; only the wheel message does anything.
    void zSubclass_Proc(Boolean before, Boolean& handled, std::int32_t& result, std::int32_t& window,
                        std::int32_t& message, std::int32_t& wParam, std::int32_t& lParam);

    // What the host's window passes on. Positions in twips relative to the control.
    void UserControl_MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_MouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_KeyDown(std::int16_t keyCode, std::int16_t shift);
    void UserControl_Resize(); // also after a change of the ambient colours or fonts
    void EndHover();           // the pointer or the capture was lost

    // Called before anybody looks at the surface for the first time in a window: a control that no saved properties
    // were loaded into gets its skin and its full repaint now. Never raises.
    void FirstShowing() noexcept;

    void RepaintAll();
    void RedrawBars();

    const ControlState& State() const noexcept { return state_; }

private:
    void ResizeTabList(std::int16_t newCount, std::int16_t oldCount);
    void ShowTabControls(std::int16_t newIndex);
    std::u16string NextDefaultCaption();
    void SwitchByUser(std::int16_t& index, std::int16_t button);
    void SwitchTo(std::int16_t index);
    void LetSpecial(Property property);

    UserControl& host_;
    ControlState state_;
    Surfaces surfaces_;
};

} // namespace vantik
