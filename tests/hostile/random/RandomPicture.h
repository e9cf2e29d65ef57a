// A picture that does things when it is asked, and fails as it likes.
#pragma once

#include "host/ComObject.h"
#include "hostile/random/RandomDispatch.h"

namespace vantik {

template <>
inline bool IsServedBy<IPictureDisp>(REFIID id) noexcept {
    return id == __uuidof(IPictureDisp) || id == __uuidof(IDispatch);
}

class RandomPicture final : public ComObject<IPicture, IPictureDisp> {
public:
    explicit RandomPicture(World& world) : world_(world) {}

    STDMETHODIMP get_Handle(OLE_HANDLE* handle) noexcept override { return Number("get_Handle", handle); }
    STDMETHODIMP get_hPal(OLE_HANDLE* palette) noexcept override { return Number("get_hPal", palette); }
    STDMETHODIMP get_Type(SHORT* type) noexcept override { return Number("get_Type", type); }
    STDMETHODIMP get_Width(OLE_XSIZE_HIMETRIC* width) noexcept override { return Side("get_Width", width); }
    STDMETHODIMP get_Height(OLE_YSIZE_HIMETRIC* height) noexcept override {
        return Side("get_Height", height);
    }
    STDMETHODIMP Render(HDC, LONG, LONG, LONG, LONG, OLE_XPOS_HIMETRIC, OLE_YPOS_HIMETRIC, OLE_XSIZE_HIMETRIC,
                        OLE_YSIZE_HIMETRIC, LPCRECT) noexcept override {
        return world_.Called("IPicture::Render");
    }
    STDMETHODIMP set_hPal(OLE_HANDLE) noexcept override { return world_.Called("set_hPal"); }
    STDMETHODIMP get_CurDC(HDC* dc) noexcept override {
        *dc = nullptr;
        return world_.Called("get_CurDC");
    }
    STDMETHODIMP SelectPicture(HDC, HDC* dc, OLE_HANDLE* bitmap) noexcept override {
        if (dc) *dc = nullptr;
        if (bitmap) *bitmap = 0;
        return world_.Called("SelectPicture");
    }
    STDMETHODIMP get_KeepOriginalFormat(BOOL* keep) noexcept override {
        return Number("get_KeepOriginalFormat", keep);
    }
    STDMETHODIMP put_KeepOriginalFormat(BOOL) noexcept override {
        return world_.Called("put_KeepOriginalFormat");
    }
    STDMETHODIMP PictureChanged() noexcept override { return world_.Called("PictureChanged"); }
    STDMETHODIMP SaveAsFile(LPSTREAM, BOOL, LONG* size) noexcept override {
        return Number("SaveAsFile", size);
    }
    STDMETHODIMP get_Attributes(DWORD* attributes) noexcept override {
        return Number("get_Attributes", attributes);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        return DISP_E_MEMBERNOTFOUND;
    }

private:
    template <class Type>
    HRESULT Number(const char* call, Type* number) noexcept {
        const HRESULT result = world_.Called(call);
        if (number && SUCCEEDED(result)) *number = static_cast<Type>(world_.Draw.Number());
        return result;
    }
    // Mostly of a size that a bitmap may have: 100 pixels at most.
    HRESULT Side(const char* call, LONG* side) noexcept {
        const HRESULT result = world_.Called(call);
        static constexpr LONG Odd[] = {0, -1, -2147483647 - 1, 2147483647, 1};
        if (SUCCEEDED(result))
            *side = world_.Draw.OneIn(4) ? world_.Draw.Of(Odd) : world_.Draw.Between(1, 2600);
        return result;
    }

    World& world_;
};

} // namespace vantik
