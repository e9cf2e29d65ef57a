// A picture of the host's own making, whose code does things when the control asks for its type. It notices when it is
// held again after the last reference to it went.
#pragma once

#include <functional>

#include "platform/ComPtr.h"

namespace vantik {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // it belongs to a scope of the test

class ActingPicture final : public IPicture, public IPictureDisp {
public:
    explicit ActingPicture(HBITMAP bitmap) noexcept : bitmap_(bitmap) {}

    std::function<void()> WhenAsked;
    int CallsAfterEnd = 0;

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override {
        *object = nullptr;
        if (id == __uuidof(IPicture)) *object = static_cast<IPicture*>(this);
        if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(IPictureDisp))
            *object = static_cast<IPictureDisp*>(this);
        if (*object) AddRef();
        return *object ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override {
        CallsAfterEnd += references_ == 0 && wasHeld_;
        wasHeld_ = true;
        return ++references_;
    }
    STDMETHODIMP_(ULONG) Release() noexcept override { return --references_; }

    STDMETHODIMP get_Type(SHORT* type) noexcept override {
        if (const auto act = std::exchange(WhenAsked, nullptr)) act();
        *type = PICTYPE_BITMAP;
        return S_OK;
    }
    STDMETHODIMP get_Handle(OLE_HANDLE* handle) noexcept override {
        *handle = static_cast<OLE_HANDLE>(reinterpret_cast<LONG_PTR>(bitmap_));
        return S_OK;
    }

    STDMETHODIMP get_hPal(OLE_HANDLE*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP get_Width(OLE_XSIZE_HIMETRIC*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP get_Height(OLE_YSIZE_HIMETRIC*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Render(HDC, LONG, LONG, LONG, LONG, OLE_XPOS_HIMETRIC, OLE_YPOS_HIMETRIC, OLE_XSIZE_HIMETRIC,
                        OLE_YSIZE_HIMETRIC, LPCRECT) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP set_hPal(OLE_HANDLE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP get_CurDC(HDC*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SelectPicture(HDC, HDC*, OLE_HANDLE*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP get_KeepOriginalFormat(BOOL*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP put_KeepOriginalFormat(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP PictureChanged() noexcept override { return S_OK; }
    STDMETHODIMP SaveAsFile(LPSTREAM, BOOL, LONG*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP get_Attributes(DWORD*) noexcept override { return E_NOTIMPL; }

    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        return E_NOTIMPL;
    }

private:
    HBITMAP bitmap_;
    ULONG references_ = 0;
    bool wasHeld_ = false;
};

#pragma GCC diagnostic pop

} // namespace vantik
