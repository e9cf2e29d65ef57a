#include "ole/com/Fonts.h"

#include "ole/com/ErrorInfo.h"

namespace vantik {

ComPtr<IFontDisp> NewFont(const wchar_t* name) {
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(name); // NOLINT: the platform copies it
    description.cySize.int64 = 8'25 * 100;              // in ten-thousandths of a point
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IFontDisp> font;
    Check(OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.PutVoid()));
    return font;
}

ComPtr<IFontDisp> StandardFont() { return NewFont(L"MS Sans Serif"); }

ComPtr<IFontDisp> CopyOfFont(IUnknown* font) noexcept {
    const auto original = QueryFor<IFont>(font);
    ComPtr<IFont> copy;
    if (!original || FAILED(original->Clone(copy.Put()))) return nullptr;
    return copy.As<IFontDisp>();
}

bool AreEqualFonts(IUnknown* a, IUnknown* b) noexcept {
    const auto font = QueryFor<IFont>(a), other = QueryFor<IFont>(b);
    return font && other && font->IsEqual(other.Get()) == S_OK;
}

} // namespace vantik
