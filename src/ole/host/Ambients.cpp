#include "ole/host/Ambients.h"

#include "ole/com/Fonts.h"

namespace vantik {

bool Ambients::Read(DISPID property, VARTYPE type, Variant& value) const noexcept {
    const auto ambients = site_.As<IDispatch>();
    DISPPARAMS none = {};
    return ambients &&
           SUCCEEDED(ambients->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                      &value, nullptr, nullptr)) &&
           value.vt != VT_EMPTY &&
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
    font_ = ReadFont();
    return font_;
}

ComPtr<IFontDisp> Ambients::ReadFont() const {
    Variant value;
    if (Read(DISPID_AMBIENT_FONT, VT_EMPTY, value)) {
        if (auto font = CopyOfFont(value.Object<IFont>().Get())) return font;
        if (value.vt == VT_BSTR && SysStringLen(value.bstrVal)) return NewFont(value.bstrVal);
    }
    return StandardFont();
}

std::u16string Ambients::DisplayName() const {
    Variant value;
    return Read(DISPID_AMBIENT_DISPLAYNAME, VT_BSTR, value) ? FromBstr(value.bstrVal) : std::u16string();
}

void Ambients::Changed(DISPID property) noexcept {
    if (property == DISPID_AMBIENT_USERMODE || property == DISPID_UNKNOWN) userMode_.reset();
    if (property == DISPID_AMBIENT_UIDEAD || property == DISPID_UNKNOWN) uiDead_.reset();
}

} // namespace vantik
