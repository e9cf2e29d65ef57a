// The form as a container and as the frame of what is active on it.
#pragma once

#include <functional>

#include "host/ComObject.h"
#include "host/ControlSite.h"
#include "host/UnknownEnumerator.h"

namespace vantik {

class FormContainer final : public ComObject<IOleContainer> {
public:
    FormContainer(SiteOwner& owner, bool enumerates) : owner_(&owner), enumerates_(enumerates) {}
    void Detach() noexcept { owner_ = nullptr; }

    HRESULT STDMETHODCALLTYPE ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE LockContainer(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnumObjects(DWORD, IEnumUnknown** objects) noexcept override {
        if (!objects) return E_POINTER;
        *objects = nullptr;
        if (!enumerates_ || !owner_) return E_NOTIMPL;
        *objects = MakeCom<UnknownEnumerator>(owner_->AllObjects()).Copy();
        return S_OK;
    }

private:
    SiteOwner* owner_;
    bool enumerates_;
};

// A form has no room for tools of its controls and no menu that they could share.
class FormFrame final : public ComObject<IOleInPlaceFrame> {
public:
    explicit FormFrame(HWND window) noexcept : window_(window) {}
    void Detach() noexcept {
        window_ = nullptr;
        active_.Reset();
    }

    // The object that takes part in translating keys; null when none has the keyboard.
    ComPtr<IOleInPlaceActiveObject> ActiveObject() const noexcept { return active_; }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override {
        if (!window) return E_POINTER;
        *window = window_;
        return window_ ? S_OK : E_FAIL;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) noexcept override {
        return INPLACE_E_NOTOOLSPACE;
    }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept override {
        active_ = ComPtr<IOleInPlaceActiveObject>(object);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD command) noexcept override {
        return Command ? Command(command) : S_FALSE;
    }
    std::function<HRESULT(WORD command)> Command; // what the frame does for a key of its table

private:
    HWND window_;
    ComPtr<IOleInPlaceActiveObject> active_;
};

} // namespace vantik
