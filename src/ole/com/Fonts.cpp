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

namespace {

// A font takes the name of the face that it is written in when it is first used. Before that two of them cannot be compared.
void Use(IFont* font) noexcept {
    HFONT handle = nullptr;
    if (font) font->get_hFont(&handle);
}

} // namespace

bool AreEqualFonts(IUnknown* a, IUnknown* b) noexcept {
    const auto font = QueryFor<IFont>(a), other = QueryFor<IFont>(b);
    Use(font.Get());
    Use(other.Get());
    return font && other && font->IsEqual(other.Get()) == S_OK;
}

} // namespace vantik
