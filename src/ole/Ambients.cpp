#include "ole/Ambients.h"

#include "ole/ErrorInfo.h"

namespace vantik {

namespace {

ComPtr<IFontDisp> MakeFont(const wchar_t* name) {
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(name); // NOLINT: the platform copies it
    description.cySize.int64 = 8'25 * 100;              // 8.25 points, in ten-thousandths
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IFontDisp> font;
    Check(OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.PutVoid()));
    return font;
}

ComPtr<IFontDisp> CopyOf(const ComPtr<IFont>& font) {
    ComPtr<IFont> copy;
    if (!font || FAILED(font->Clone(copy.Put()))) return nullptr;
    return copy.As<IFontDisp>();
}

} // namespace

bool Ambients::Read(DISPID property, VARTYPE type, Variant& value) const noexcept {
    const auto ambients = site_.As<IDispatch>();
    DISPPARAMS none = {};
    return ambients &&
           SUCCEEDED(ambients->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                      &value, nullptr, nullptr)) &&
           (value.vt == type || type == VT_EMPTY || SUCCEEDED(value.ChangeType(type)));
}

bool Ambients::ReadFlag(DISPID property, bool otherwise) const noexcept {
    Variant value;
    return Read(property, VT_BOOL, value) ? value.boolVal != VARIANT_FALSE : otherwise;
}

bool Ambients::UserMode() {
    if (!userMode_) userMode_ = ReadFlag(DISPID_AMBIENT_USERMODE, true);
    return *userMode_;
}

bool Ambients::UIDead() {
    if (!uiDead_) uiDead_ = ReadFlag(DISPID_AMBIENT_UIDEAD, false);
    return *uiDead_;
}

ComPtr<IFontDisp> Ambients::Font() {
    Variant value;
    if (Read(DISPID_AMBIENT_FONT, VT_EMPTY, value)) {
        if (const auto font = CopyOf(value.Object<IFont>())) return font;
        if (value.vt == VT_BSTR && SysStringLen(value.bstrVal)) return MakeFont(value.bstrVal);
    }
    return MakeFont(L"MS Sans Serif");
}

void Ambients::Changed(DISPID property) noexcept {
    if (property == DISPID_AMBIENT_USERMODE || property == DISPID_UNKNOWN) userMode_.reset();
    if (property == DISPID_AMBIENT_UIDEAD || property == DISPID_UNKNOWN) uiDead_.reset();
}

} // namespace vantik
