// A form with one ActiveX control on it and ordinary windows on that control.
//
// It is a container as real ones are, only small: it loads the control from its file, gives it a site, a frame, ambient
// properties and an extender, passes on its events, keeps its properties in a text file and offers it the keys. What a
// form of another kind would not do can be switched off.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Automation.h"
#include "host/ControlModule.h"
#include "host/ControlSite.h"
#include "host/EventSink.h"
#include "host/FormContainer.h"
#include "host/FormWindow.h"
#include "host/HostSwitches.h"
#include "host/HostedWindow.h"
#include "host/TextPropertyBag.h"

namespace vantik {

struct FormLayout {
    std::wstring Title = L"Form1";
    SIZE ClientSize = {480, 320};
    RECT ControlPlace = {0, 0, 480, 320}; // pixels
    std::wstring ControlName = L"VantikFrameTab1";
    HWND Parent = nullptr; // of a form that is a piece of another window
};

// What the form's own code does. All of it may call back into the form, and may close it.
struct FormHandlers {
    EventHandler Event;
    MessageHandler Message;        // of the form's window
    MessageHandler ControlMessage; // of the control's window, by way of the site's filters
    std::function<void(DISPID)> PropertyChanged;
    // A key for a window on the form, before that gets it; for the control's own window what that does not use. True: it is
    // used up.
    std::function<bool(const MSG&)> Key;
    std::function<void()> ShowProperties =
        nullptr; // in a frame of the form's own; without it the system's shows them
};

class HostForm final : private SiteOwner, private FormItem {
public:
    HostForm(ControlModule& module, FormLayout layout, HostSwitches switches = {},
             FormHandlers handlers = {});
    ~HostForm();
    HostForm(const HostForm&) = delete;
    HostForm& operator=(const HostForm&) = delete;

    // Puts a control on the form: a new one, or one with saved properties.
    void OpenNew();
    void OpenFrom(TextPropertyBag& bag);
    void SaveTo(TextPropertyBag& bag);
    void Close() noexcept; // takes the control off again

    // Null while no control is on the form.
    IUnknown* ControlObject() const noexcept { return control_.Get(); }
    IDispatch& Control() const; // throws without a control that has automation
    HWND ControlWindow() const;
    void MoveControl(const RECT& pixels);
    void UIActivate() { DoVerb(OLEIVERB_UIACTIVATE); }
    void DoVerb(LONG verb);

    // A window that was made as a child of the control's window becomes a control of the form.
    HostedWindow& Add(std::wstring name, HWND window);
    HostedWindow* FindWindowNamed(std::wstring_view name) noexcept;
    void Remove(const HostedWindow& window) noexcept; // the window itself stays its maker's

    FormWindow& Window() noexcept { return window_; }
    ControlSite& Site() const noexcept { return *site_.Get(); }
    bool IsUIActive() const noexcept { return uiActive_; }

    // What a message loop does with a message before it is dispatched; true when nothing is left to do.
    bool TranslateMessage(MSG& message);

private:
    void CreateControl();
    void GiveSite();
    bool WantsSiteFirst() const;
    bool ActivateQuickly();
    void InitializeNew();
    void ConnectSinks();
    void DisconnectSinks() noexcept;
    void Show();
    void Open(TextPropertyBag* bag);
    void SetExtent();
    void LetGoOfKeyboard();
    bool OfferToControl(MSG& message);
    bool UsesKey(const MSG& message);
    bool HasFocus() const;

    // SiteOwner
    HWND FormHandle() override { return window_.Handle(); }
    FormItem& ControlItem() override { return *this; }
    ComPtr<IDispatch> ControlExtender() override { return extender_.As<IDispatch>(); }
    ComPtr<IOleContainer> FormContainer() override { return container_.As<IOleContainer>(); }
    ComPtr<IOleInPlaceFrame> FormFrame() override { return frame_.As<IOleInPlaceFrame>(); }
    std::vector<ComPtr<IUnknown>> ContainedObjects() override;
    std::vector<ComPtr<IUnknown>> AllObjects() override;
    void ControlActivated(bool active) override;
    void ControlUIActivated(bool active) override { uiActive_ = active; }
    void ControlAsksForPlace(const RECT& pixels) override;
    void PropertyChanged(DISPID id) override;
    std::optional<LRESULT> ControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    bool ControlOffersKey(const MSG& message) override { return UsesKey(message); }
    bool ShowControlProperties() override;

    // FormItem: the control itself
    const std::wstring& Name() const noexcept override { return layout_.ControlName; }
    const Placement& Place() const noexcept override { return place_; }
    void Place(const Placement& place) override;
    bool Visible() const noexcept override { return visible_; }
    void Visible(bool visible) override;
    ComPtr<IDispatch> Container() override { return nullptr; }
    ComPtr<IUnknown> Object() override { return control_; }

    struct Connection {
        ComPtr<IConnectionPoint> Point;
        DWORD Cookie = 0;
    };
    static Connection Connect(IUnknown* source, REFIID id, IUnknown* sink);

    ControlModule& module_;
    FormLayout layout_;
    HostSwitches switches_;
    FormHandlers handlers_;
    FormWindow window_;
    Placement place_;
    bool visible_ = true;
    bool uiActive_ = false;

    ComPtr<vantik::FormContainer> container_;
    ComPtr<vantik::FormFrame> frame_;
    ComPtr<Extender> extender_;
    ComPtr<ControlSite> site_;
    ComPtr<IUnknown> control_;
    ComPtr<IOleInPlaceObject> inPlace_; // while the control is active in place
    std::vector<Connection> connections_;
    std::vector<std::unique_ptr<HostedWindow>> windows_;
};

} // namespace vantik
