// The control object: tabs, properties, and what the user's pointer and keys do to them.
//
// It knows its host only through UserControl. Public operations raise RunTimeError to their caller and leave the state
// as the steps up to the error left it. The host may call back into any operation from inside an event; the caller of
// every entry point keeps the object alive until it returns.
#pragma once

#include <cstdint>
#include <string>

#include "control/ChildVisibility.h"
#include "control/MessageHook.h"
#include "control/PropertyBag.h"
#include "model/ControlState.h"
#include "platform/DebugLine.h"
#include "platform/FileStore.h"
#include "platform/Shortage.h"
#include "platform/UserControl.h"
#include "render/DecorationGeometry.h"
#include "render/MergedRepaint.h"
#include "render/RepaintDriver.h"
#include "render/Surfaces.h"
#include "skin/Decorations.h"

namespace vantik {

class VantikFrameTab final {
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
    void InsertTab(std::int16_t afterIndex, std::u16string& caption); // writes the caption that it chose back
    void RemoveTab(std::int16_t index);
    void SetBarIco(std::int16_t index, const std::u16string& key);
    void SetBarCaption(std::int16_t index, const std::u16string& caption, Boolean refresh);
    void SetBarEnable(std::int16_t index, Boolean enable);
    std::u16string GetTabCaption(std::int16_t index) const;
    Boolean GetTabEnable(std::int16_t index) const;
    std::u16string GetTabIco(std::int16_t index) const;

    // Properties by their rows in the property table; the value type is the type of the row's field. Let is for every
    // row whose side effect is not OwnRoutine.
    template <class Value>
    const Value& Get(Property property) const {
        return state_.Properties.*std::get<Value PropertyValues::*>(InfoOf(property).Field);
    }
    template <class Value>
    void Let(Property property, const Value& value) {
        if (InfoOf(property).Effect == SideEffect::None)
            merged_.CarryOut(); // no repaint follows that would show it
        state_.Properties.*std::get<Value PropertyValues::*>(InfoOf(property).Field) = value;
        AfterLet(property);
    }

    ComPtr<IPictureDisp> Picture() const { return surfaces_.Picture; }
    void Picture(ComPtr<IPictureDisp> picture);
    ComPtr<IFontDisp> Font() const { return surfaces_.Font; }
    void Font(ComPtr<IFontDisp> font);

    // A name or folder that does not exist shows a message and changes nothing.
    void SkinFile(const std::u16string& name);
    void SkinPath(const std::u16string& folder);

    void About();

    // The public callback of the message hook; only the wheel message does anything, and it always does.
    void zSubclass_Proc(Boolean before, Boolean& handled, std::int32_t& result, std::int32_t& window,
                        std::int32_t& message, std::int32_t& wParam, std::int32_t& lParam);

    // What the host's window passes on. Positions in twips relative to the control. These raise, too: the window
    // procedure that calls them swallows the error.
    void UserControl_MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_MouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    void UserControl_KeyDown(std::int16_t keyCode, std::int16_t shift);
    void UserControl_Resize();
    void UserControl_WindowCreated(); // host.hWnd() is there now
    void EndHover();                  // the pointer or its capture was lost

    // What a press or a key does, for those who use the control by other means. Each raises the events of the press; a tab
    // is chosen as by a key. Positions in pixels.
    void ChooseTab(std::int16_t index);
    void PressCloseButton(std::int16_t tab);
    void PressBesideRow(std::int32_t x, std::int32_t y);

    // Whether all of a shown tab's caption is seen, as the bar is drawn next.
    bool ShowsWholeCaption(std::int16_t tab);

    // To be called whenever somebody is going to look at the surface. Never raises.
    void UserControl_Paint() noexcept;

    void RepaintAll();
    void RedrawBars();

    const ControlState& State() const noexcept { return state_; }

private:
    // Between the hook and the callback: passes on what the host takes for input.
    class HookedInput final : public MessageCallback {
    public:
        explicit HookedInput(VantikFrameTab& control) : control_(control) {}
        void zSubclass_Proc(Boolean before, Boolean& handled, std::int32_t& result, std::int32_t& window,
                            std::int32_t& message, std::int32_t& wParam, std::int32_t& lParam) override;
        ComPtr<IUnknown> KeepAlive() override { return control_.host_.KeepAlive(); }

    private:
        VantikFrameTab& control_;
    };

    void AfterLet(Property property);
    void StartFromDefaults();
    void ReadFields(PropertyReader& bag, std::int16_t& tabs);
    void MakeTabs(std::int16_t count);
    const std::u16string& SavedSkinPath() const;
    void ResizeTabList(std::int16_t newCount);
    std::u16string NextDefaultCaption();
    void RedrawBar(std::int16_t index);

    void SwitchTo(std::int16_t index);
    void SwitchByUser(std::int16_t& index, std::int16_t button);
    void StepForward();
    void StepBack();
    // The buttons beside the row, and the bars that hide what reaches under them.
    struct SeenButtons {
        ButtonRects Rects;
        LayoutRect Bars;
    };
    void HitTestButtons(const SeenButtons& seen, std::int32_t x, std::int32_t y);
    void CloseHoveredTab();
    void HoverCloseButton(std::int16_t tab);
    void EndCloseHover();

    void MeasureCaptionHeight();
    bool IsFirstShowing();
    void ShowForTheFirstTime() noexcept;
    void ReadSkin();
    void RetrySkin() noexcept;
    void InstallHookAtRunTime();

    FileStoreUser storeUser_;
    UserControl& host_;
    ControlState state_;
    Surfaces surfaces_;
    ChildVisibility children_;
    Decorations decorations_;
    RepaintDriver driver_;
    MergedRepaint merged_;
    HookedInput hookedInput_{*this};
    MessageHook hook_{hookedInput_};
    RepeatedFailure painting_, retrying_;
    bool wasShown_ = false; // or came with saved properties
    bool skinWasLoaded_ = false;
    bool skinIsDue_ = false;
    unsigned shortages_ = ShortagesSoFar(); // at the last look
    bool wantsHook_ = false;
};

} // namespace vantik
