#include "host/HostedWindow.h"

#include <algorithm>

namespace vantik {

namespace {

// The place of the window on the form; all that it is asked for is the extender.
class WindowSite final : public ComObject<IOleClientSite, IOleControlSite> {
public:
    explicit WindowSite(ComPtr<IDispatch> extender) : extender_(std::move(extender)) {}

    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override {
        if (!container) return E_POINTER;
        *container = nullptr;
        return E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extender) noexcept override {
        if (!extender) return E_POINTER;
        *extender = extender_.Copy();
        return extender_ ? S_OK : E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) noexcept override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override { return E_NOTIMPL; }

private:
    ComPtr<IDispatch> extender_; // null on a form without extenders
};

// The window as an object: it knows its site and its window and does nothing else.
class WindowObject final : public ComObject<IOleObject, IOleWindow> {
public:
    WindowObject(HWND window, ComPtr<IOleClientSite> site) : window_(window), site_(std::move(site)) {}

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override {
        if (!window) return E_POINTER;
        *window = window_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) noexcept override {
        site_ = ComPtr<IOleClientSite>(site);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) noexcept override {
        if (!site) return E_POINTER;
        *site = site_.Copy();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG, MSG*, IOleClientSite*, LONG, HWND, LPCRECT) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Update() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD, DWORD*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

private:
    HWND window_;
    ComPtr<IOleClientSite> site_;
};

// Windows stand within 16 bits; what is farther away is out of sight anyhow.
int WithinReach(LONG pixel) noexcept {
    constexpr LONG Farthest = 30000;
    return std::clamp(pixel, -Farthest, Farthest);
}

RECT PlaceInParent(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

} // namespace

HostedWindow::HostedWindow(std::wstring name, HWND window, ComPtr<IDispatch> container, bool hasExtender)
    : name_(std::move(name)),
      window_(window),
      place_(ToPlacement(PlaceInParent(window))),
      visible_((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0),
      container_(std::move(container)),
      extender_(MakeCom<Extender>(*this)) {
    const ComPtr<IDispatch> offered = hasExtender ? extender_.As<IDispatch>() : nullptr;
    const ComPtr<IOleClientSite> site = MakeCom<WindowSite>(offered).As<IOleClientSite>();
    object_ = MakeCom<WindowObject>(window, site).As<IUnknown>();
}

HostedWindow::~HostedWindow() { extender_->Detach(); }

void HostedWindow::Place(const Placement& place) {
    place_ = place;
    const RECT pixels = ToPixels(place);
    SetWindowPos(window_, nullptr, WithinReach(pixels.left), WithinReach(pixels.top),
                 pixels.right - pixels.left, pixels.bottom - pixels.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void HostedWindow::Visible(bool visible) {
    visible_ = visible;
    ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

} // namespace vantik
