// The site of a control: good, or lacking this and that, refusing, failing, doing other things meanwhile, gone.
#pragma once

#include "host/NumberedDispatch.h"
#include "host/VbGetControl.h"
#include "hostile/random/RandomVariant.h"
#include "hostile/random/World.h"

namespace vantik {

class RandomSite final : public ComObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, NumberedDispatch,
                                          ISimpleFrameSite, IVBGetControl> {
public:
    RandomSite(World& world, int place);

    // The form is gone: nothing is to be had from here any more.
    void Vanish() noexcept { gone_ = true; }

    STDMETHODIMP SaveObject() noexcept override { return Asked("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override {
        *moniker = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override { return Asked("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return Asked("OnShowWindow"); }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() noexcept override {
        const HRESULT result = Asked("CanInPlaceActivate");
        return world_.IsRough(8) ? S_FALSE : result;
    }
    STDMETHODIMP OnInPlaceActivate() noexcept override { return Asked("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() noexcept override { return Asked("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                  RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept override;
    STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return Asked("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override { return Asked("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT place) noexcept override;

    STDMETHODIMP OnControlInfoChanged() noexcept override { return Asked("OnControlInfoChanged"); }
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetExtendedControl(IDispatch** extender) noexcept override;
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) noexcept override {
        const HRESULT result = Asked("TranslateAccelerator");
        return world_.Draw.OneIn(2) ? S_FALSE : result;
    }
    STDMETHODIMP OnFocus(BOOL) noexcept override { return Asked("OnFocus"); }
    STDMETHODIMP ShowPropertyFrame() noexcept override { return world_.Called("ShowPropertyFrame"), S_OK; }

    // The ambient properties
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                        UINT*) noexcept override;

    STDMETHODIMP PreMessageFilter(HWND, UINT, WPARAM, LPARAM, LRESULT* result,
                                  DWORD* cookie) noexcept override;
    STDMETHODIMP PostMessageFilter(HWND, UINT, WPARAM, LPARAM, LRESULT* result, DWORD) noexcept override;

    STDMETHODIMP EnumControls(DWORD, DWORD, IEnumUnknown** controls) noexcept override;

private:
    bool Offers(REFIID id) const noexcept override;
    HRESULT Asked(const char* call) noexcept;

    World& world_;
    int place_;
    unsigned lacking_; // a bit for each interface
    bool filtersMessages_, gone_ = false;
};

// Mostly a few hundred pixels; turned round, without area or as far out as numbers go where the host is rough.
RECT RandomRect(World& world) noexcept;

} // namespace vantik
