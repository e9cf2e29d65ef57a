// A font that does things when it is asked, and fails as it likes.
#pragma once

#include "host/ComObject.h"
#include "hostile/random/RandomDispatch.h"

namespace vantik {

template <>
inline bool IsServedBy<IFontDisp>(REFIID id) noexcept {
    return id == __uuidof(IFontDisp) || id == __uuidof(IDispatch);
}

class RandomFont final : public ComObject<IFont, IFontDisp> {
public:
    explicit RandomFont(World& world) : world_(world) {
        OleCreateFontIndirect(nullptr, __uuidof(IFont), real_.PutVoid());
    }

    STDMETHODIMP get_Name(BSTR* name) noexcept override { return Pass("get_Name", &IFont::get_Name, name); }
    STDMETHODIMP put_Name(BSTR name) noexcept override { return Pass("put_Name", &IFont::put_Name, name); }
    STDMETHODIMP get_Size(CY* size) noexcept override {
        const HRESULT result = Pass("get_Size", &IFont::get_Size, size);
        if (world_.IsRough(4)) size->int64 = world_.Draw.Number();
        return result;
    }
    STDMETHODIMP put_Size(CY size) noexcept override { return Pass("put_Size", &IFont::put_Size, size); }
    STDMETHODIMP get_Bold(BOOL* bold) noexcept override { return Pass("get_Bold", &IFont::get_Bold, bold); }
    STDMETHODIMP put_Bold(BOOL bold) noexcept override { return Pass("put_Bold", &IFont::put_Bold, bold); }
    STDMETHODIMP get_Italic(BOOL* italic) noexcept override {
        return Pass("get_Italic", &IFont::get_Italic, italic);
    }
    STDMETHODIMP put_Italic(BOOL italic) noexcept override {
        return Pass("put_Italic", &IFont::put_Italic, italic);
    }
    STDMETHODIMP get_Underline(BOOL* line) noexcept override {
        return Pass("get_Underline", &IFont::get_Underline, line);
    }
    STDMETHODIMP put_Underline(BOOL line) noexcept override {
        return Pass("put_Underline", &IFont::put_Underline, line);
    }
    STDMETHODIMP get_Strikethrough(BOOL* line) noexcept override {
        return Pass("get_Strikethrough", &IFont::get_Strikethrough, line);
    }
    STDMETHODIMP put_Strikethrough(BOOL line) noexcept override {
        return Pass("put_Strikethrough", &IFont::put_Strikethrough, line);
    }
    STDMETHODIMP get_Weight(SHORT* weight) noexcept override {
        return Pass("get_Weight", &IFont::get_Weight, weight);
    }
    STDMETHODIMP put_Weight(SHORT weight) noexcept override {
        return Pass("put_Weight", &IFont::put_Weight, weight);
    }
    STDMETHODIMP get_Charset(SHORT* charset) noexcept override {
        return Pass("get_Charset", &IFont::get_Charset, charset);
    }
    STDMETHODIMP put_Charset(SHORT charset) noexcept override {
        return Pass("put_Charset", &IFont::put_Charset, charset);
    }
    STDMETHODIMP get_hFont(HFONT* font) noexcept override {
        const HRESULT result = Pass("get_hFont", &IFont::get_hFont, font);
        if (world_.IsRough(4))
            *font = reinterpret_cast<HFONT>(static_cast<LONG_PTR>(world_.Draw.Below(2) * 4711));
        return result;
    }
    STDMETHODIMP Clone(IFont** copy) noexcept override {
        *copy = nullptr;
        const HRESULT result = world_.Called("IFont::Clone");
        if (FAILED(result)) return result;
        if (world_.IsRough(4)) return S_OK; // with nothing
        if (world_.Draw.OneIn(2)) return real_->Clone(copy);
        *copy = MakeCom<RandomFont>(world_).Copy();
        return S_OK;
    }
    STDMETHODIMP IsEqual(IFont*) noexcept override {
        const HRESULT result = world_.Called("IFont::IsEqual");
        return FAILED(result) || world_.Draw.OneIn(2) ? result : S_FALSE;
    }
    STDMETHODIMP SetRatio(LONG logical, LONG himetric) noexcept override {
        return Pass("SetRatio", &IFont::SetRatio, logical, himetric);
    }
    STDMETHODIMP QueryTextMetrics(TEXTMETRICOLE* metrics) noexcept override {
        return Pass("QueryTextMetrics", &IFont::QueryTextMetrics, metrics);
    }
    STDMETHODIMP AddRefHfont(HFONT font) noexcept override {
        return Pass("AddRefHfont", &IFont::AddRefHfont, font);
    }
    STDMETHODIMP ReleaseHfont(HFONT font) noexcept override {
        return Pass("ReleaseHfont", &IFont::ReleaseHfont, font);
    }
    STDMETHODIMP SetHdc(HDC dc) noexcept override { return Pass("SetHdc", &IFont::SetHdc, dc); }

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
    template <class Method, class... Arguments>
    HRESULT Pass(const char* call, Method method, Arguments... arguments) noexcept {
        const HRESULT result = world_.Called(call);
        return FAILED(result) ? result : (real_.Get()->*method)(arguments...);
    }

    World& world_;
    ComPtr<IFont> real_;
};

} // namespace vantik
