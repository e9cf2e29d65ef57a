// Where the control stands on the form: everything that it may ask its container for.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/AmbientProperties.h"
#include "host/Extender.h"
#include "host/HostSwitches.h"
#include "host/NumberedDispatch.h"
#include "host/VbGetControl.h"

namespace vantik {

// What the site needs of the form around it.
class SiteOwner {
public:
    virtual HWND FormHandle() = 0;
    virtual FormItem& ControlItem() = 0; // the control as something that stands on the form
    virtual ComPtr<IDispatch> ControlExtender() = 0;
    virtual ComPtr<IOleContainer> FormContainer() = 0;
    virtual ComPtr<IOleInPlaceFrame> FormFrame() = 0;
    virtual std::vector<ComPtr<IUnknown>> ContainedObjects() = 0; // what stands on the control
    virtual std::vector<ComPtr<IUnknown>> AllObjects() = 0;       // the whole form, the control included

    virtual void ControlActivated(bool active) = 0;   // in place
    virtual void ControlUIActivated(bool active) = 0; // and with the keyboard
    virtual void ControlAsksForPlace(const RECT& pixels) = 0;
    virtual void PropertyChanged(DISPID id) = 0;
    // The control's own messages; an answer keeps the message from the control.
    virtual std::optional<LRESULT> ControlMessage(HWND window, UINT message, WPARAM wParam,
                                                  LPARAM lParam) = 0;
    virtual bool ControlOffersKey(const MSG& message) = 0; // true: the form used it
    virtual bool ShowControlProperties() = 0;              // false: the form has no frame for property pages

protected:
    ~SiteOwner() = default;
};

class ControlSite final
    : public ComObject<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, NumberedDispatch, ISimpleFrameSite,
                       IPropertyNotifySink, IVBGetControl> {
public:
    ControlSite(SiteOwner& owner, const HostSwitches& switches, const AmbientValues& ambients)
        : owner_(&owner), switches_(switches), ambients_(ambients) {}
    void Detach() noexcept { owner_ = nullptr; } // a control that keeps its site too long reaches nothing

    // How often the control called the filters around its messages; equal when each opened pair was closed.
    // Telling the control that an ambient property is another one is the caller's.
    AmbientValues& Ambients() noexcept { return ambients_; }

    int PreFilters() const noexcept { return preFilters_; }
    int PostFilters() const noexcept { return postFilters_; }

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleInPlaceSiteEx
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* place, RECT* clip,
                                               OLEINPLACEFRAMEINFO* info) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT place) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL* noRedraw, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL) noexcept override { return OnInPlaceDeactivate(); }
    HRESULT STDMETHODCALLTYPE RequestUIActivate() noexcept override { return S_OK; }

    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extender) noexcept override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container,
                                              DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override;

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) noexcept override;

    // ISimpleFrameSite
    HRESULT STDMETHODCALLTYPE PreMessageFilter(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                               LRESULT* result, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE PostMessageFilter(HWND, UINT, WPARAM, LPARAM, LRESULT*,
                                                DWORD) noexcept override;

    // IPropertyNotifySink
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID id) noexcept override;
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) noexcept override { return S_OK; }

    // IVBGetControl
    HRESULT STDMETHODCALLTYPE EnumControls(DWORD kinds, DWORD which,
                                           IEnumUnknown** controls) noexcept override;

private:
    bool Offers(REFIID id) const noexcept override;

    // Calls the owner where there still is one.
    template <class Piece>
    HRESULT Ask(Piece piece) noexcept;

    SiteOwner* owner_;
    HostSwitches switches_;
    AmbientValues ambients_;
    int preFilters_ = 0;
    int postFilters_ = 0;
};

} // namespace vantik
