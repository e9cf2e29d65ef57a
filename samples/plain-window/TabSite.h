// All that the control needs of a host that is a plain window: a site, a place in the window, and somebody who hears its events.
#pragma once

#include "Com.h"

#include <ocidl.h>
#include <oleidl.h>

#include <functional>

// Lives longer than the control, so nobody has to count who uses it.
class TabSite final : public IOleClientSite,
                      public IOleInPlaceSite,
                      public IOleInPlaceFrame,
                      public IDispatch {
public:
    // Makes the control and shows it at the place, in pixels of the form.
    TabSite(HWND form, const RECT& place);
    ~TabSite();
    TabSite(const TabSite&) = delete;
    TabSite& operator=(const TabSite&) = delete;

    _VantikFrameTab& Tab() const noexcept { return *tab_; }
    HWND Window() const noexcept; // of the control; the windows on its pages are children of it
    void Move(const RECT& place);

    // The events that the form hears. What is left in an index counts; -1 keeps a tab from being closed.
    std::function<void(short& index, short button)> TabDown;
    std::function<void(short& index)> TabClose;
    std::function<void()> MenuDown;

    // For the message loop: whether the control, or what is active on it, has used the key.
    bool UsesKey(MSG& message) const noexcept;

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 1; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleWindow, of the site and of the frame
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnUIActivate() noexcept override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                  RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept override;
    STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override { return S_OK; }
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(const RECT*) noexcept override { return S_OK; }

    // IOleInPlaceFrame
    STDMETHODIMP GetBorder(RECT*) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(const BORDERWIDTHS*) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(const BORDERWIDTHS*) noexcept override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, const wchar_t*) noexcept override;
    STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(const wchar_t*) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(MSG*, WORD) noexcept override { return S_FALSE; }

    // IDispatch, which the events come to
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override;

private:
    void Hear(DISPID event, const DISPPARAMS& arguments);

    HWND form_;
    RECT place_;
    Com<IOleObject> object_;
    Com<_VantikFrameTab> tab_;
    Com<IConnectionPoint> events_;
    DWORD advised_ = 0;
    Com<IOleInPlaceActiveObject> active_;
};
