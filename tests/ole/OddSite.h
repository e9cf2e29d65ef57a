// A site as odd as a test wants it, on a plain window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/NumberedDispatch.h"

namespace vantik {

struct Oddities {
    bool InPlace = true;          // the site has IOleInPlaceSite
    bool ControlSite = true;      // and IOleControlSite
    bool SaysNothing = false;     // and IDispatch, which answers any call with success and nothing else
    HRESULT CanActivate = S_OK;   // S_FALSE, or an error
    HRESULT Activate = S_OK;      // OnInPlaceActivate
    HRESULT UIActivate = S_OK;    // OnUIActivate
    HRESULT WindowContext = S_OK; // GetWindowContext
    HRESULT ParentWindow = S_OK;  // GetWindow
    HRESULT PreFilter =
        E_NOINTERFACE; // the answer of ISimpleFrameSite; without the interface where it is this
};

class OddSite final
    : public ComObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, ISimpleFrameSite, NumberedDispatch> {
public:
    explicit OddSite(Oddities oddities = {}) : oddities_(oddities) {
        Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                                 nullptr, nullptr);
    }
    ~OddSite() override {
        if (IsWindow(Window)) DestroyWindow(Window);
    }

    HWND Window;
    bool UnderDesign = false; // the site has IDispatch, and there the ambient UserMode
    RECT Place = {10, 20, 210, 120};
    std::vector<std::string> Calls; // in their order
    std::function<void(const std::string&)> During;

    std::function<HRESULT(MSG&)> Keys; // the answer to a key; without it Tab is used
    ComPtr<IOleInPlaceFrame> Frame;
    HACCEL Accelerators = nullptr; // of the frame

    STDMETHODIMP SaveObject() noexcept override { return Note("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override {
        *moniker = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override {
        *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() noexcept override { return Note("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        *window = Window;
        return Visit("GetWindow", oddities_.ParentWindow);
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() noexcept override {
        return Visit("CanInPlaceActivate", oddities_.CanActivate);
    }
    STDMETHODIMP OnInPlaceActivate() noexcept override {
        return Note("OnInPlaceActivate", oddities_.Activate);
    }
    STDMETHODIMP OnUIActivate() noexcept override { return Note("OnUIActivate", oddities_.UIActivate); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                  RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept override {
        Note("GetWindowContext");
        *frame = Frame.Copy();
        info->haccel = Accelerators;
        info->cAccelEntries =
            Accelerators ? static_cast<UINT>(CopyAcceleratorTableW(Accelerators, nullptr, 0)) : 0;
        *document = nullptr;
        if (FAILED(oddities_.WindowContext)) return oddities_.WindowContext;
        *place = *clip = Place;
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return Note("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override { return Note("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT place) noexcept override {
        Asked = *place;
        return Note("OnPosRectChange");
    }
    RECT Asked = {};

    STDMETHODIMP OnControlInfoChanged() noexcept override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetExtendedControl(IDispatch** extender) noexcept override {
        *extender = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD) noexcept override {
        Note("TranslateAccelerator");
        if (Keys) return Keys(*message);
        return message->wParam == VK_TAB ? S_OK : S_FALSE;
    }
    STDMETHODIMP OnFocus(BOOL gained) noexcept override { return Note(gained ? "OnFocus" : "OnFocusLost"); }
    STDMETHODIMP ShowPropertyFrame() noexcept override { return Note("ShowPropertyFrame"); }

    STDMETHODIMP PreMessageFilter(HWND, UINT message, WPARAM, LPARAM, LRESULT* result,
                                  DWORD*) noexcept override {
        if (message == WM_USER) *result = 4711;
        return message == WM_USER ? oddities_.PreFilter : S_OK;
    }
    STDMETHODIMP PostMessageFilter(HWND, UINT, WPARAM, LPARAM, LRESULT*, DWORD) noexcept override {
        return S_OK;
    }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override {
        if (UnderDesign && id == DISPID_AMBIENT_USERMODE) result->vt = VT_BOOL; // False
        return S_OK;
    }

private:
    bool Offers(REFIID id) const noexcept override {
        if (id == IID_IOleInPlaceSite || id == IID_IOleWindow) return oddities_.InPlace;
        if (id == IID_IDispatch) return oddities_.SaysNothing || UnderDesign;
        if (id == IID_IOleControlSite) return oddities_.ControlSite;
        if (id == __uuidof(ISimpleFrameSite)) return oddities_.PreFilter != E_NOINTERFACE;
        return true;
    }
    HRESULT Note(const char* call, HRESULT result = S_OK) {
        Calls.emplace_back(call);
        return Visit(call, result);
    }
    HRESULT Visit(const char* call, HRESULT result) { // a mere question
        if (During) During(call);
        return result;
    }

    Oddities oddities_;
};

} // namespace vantik
