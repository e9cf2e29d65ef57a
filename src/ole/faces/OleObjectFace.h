// The control as an embedded object.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Activation;
class Control;

class OleObjectFace final : public Face<IOleObject> {
public:
    OleObjectFace(Control& control, Activation& activation) noexcept;

    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) noexcept override;
    STDMETHODIMP Close(DWORD saveOption) noexcept override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    STDMETHODIMP Update() noexcept override;
    STDMETHODIMP IsUpToDate() noexcept override;
    STDMETHODIMP GetUserClassID(CLSID* classId) noexcept override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
    STDMETHODIMP Unadvise(DWORD connection) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) noexcept override;

private:
    HRESULT Perform(LONG verb, HWND parent, LPCRECT position);
    HRESULT Show();
    HRESULT Hide();

    Control& control_;
    Activation& activation_;
};

} // namespace vantik
