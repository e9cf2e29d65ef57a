#include "ole/persist/VariantBag.h"

#include "base/ErrorText.h"
#include "ole/com/ErrorInfo.h"
#include "ole/com/Fonts.h"

namespace vantik {

namespace {

bool IsEmptyPicture(IPictureDisp* value) {
    const auto picture = QueryFor<IPicture>(value);
    short type = PICTYPE_NONE;
    return !picture || FAILED(picture->get_Type(&type)) || type == PICTYPE_NONE ||
           type == PICTYPE_UNINITIALIZED;
}

// A saved flag that is a number comes as it stands, whatever the number; a text such as "True" as what it means.
VARTYPE ReadTypeOf(PropertyType type, const VARIANT& saved) noexcept {
    if (type == PropertyType::Flag && saved.vt != VT_BSTR) return VT_I2;
    return VariantTypeOf(type);
}

} // namespace

VARTYPE VariantTypeOf(PropertyType type) noexcept {
    switch (type) {
    case PropertyType::Integer16: return VT_I2;
    case PropertyType::Integer32:
    case PropertyType::Enumeration:
    case PropertyType::Colour: return VT_I4;
    case PropertyType::Flag: return VT_BOOL;
    case PropertyType::Text: return VT_BSTR;
    case PropertyType::Picture:
    case PropertyType::Font: break;
    }
    return VT_UNKNOWN;
}

bool VariantReader::FetchAs(const PropertyInfo& info, Variant& value) {
    try {
        return FetchConverted(info, value);
    } catch (RunTimeError& error) {
        error.Explain(ErrorText(u"The saved ", info.Key, u" cannot be read: ", error.Description()));
        Rejected(info, error);
        throw;
    }
}

bool VariantReader::FetchConverted(const PropertyInfo& info, Variant& value) {
    if (!Fetch(info, value) || value.vt == VT_EMPTY) return false;
    Check(value.ChangeType(ReadTypeOf(info.Type, value)));
    return true;
}

void VariantReader::Read(const PropertyInfo& info, std::int16_t& value) {
    Variant read;
    if (FetchAs(info, read)) value = read.iVal; // flags, too, are 16 bits
}

void VariantReader::Read(const PropertyInfo& info, std::int32_t& value) {
    Variant read;
    if (FetchAs(info, read)) value = read.lVal;
}

void VariantReader::Read(const PropertyInfo& info, std::u16string& value) {
    Variant read;
    if (FetchAs(info, read)) value = FromBstr(read.bstrVal);
}

template <class Interface>
void VariantReader::ReadObject(const PropertyInfo& info, ComPtr<Interface>& value) {
    Variant read;
    if (FetchAs(info, read))
        if (auto object = read.Object<Interface>()) value = std::move(object);
}

void VariantReader::Read(const PropertyInfo& info, ComPtr<IPictureDisp>& value) { ReadObject(info, value); }
void VariantReader::Read(const PropertyInfo& info, ComPtr<IFontDisp>& value) { ReadObject(info, value); }

void VariantWriter::Write(const PropertyInfo& info, std::int16_t value, std::int16_t defaultValue) {
    if (value == defaultValue && !all_) return;
    Variant stored(value);
    if (info.Type == PropertyType::Flag) stored.vt = VT_BOOL;
    Store(info, stored);
}

void VariantWriter::Write(const PropertyInfo& info, std::int32_t value, std::int32_t defaultValue) {
    if (value == defaultValue && !all_) return;
    Variant stored(value);
    Store(info, stored);
}

void VariantWriter::Write(const PropertyInfo& info, const std::u16string& value,
                          const std::u16string& defaultValue) {
    if (value == defaultValue && !all_) return;
    Variant stored(value);
    Store(info, stored);
}

// There is nothing to be written of an empty picture, even where all is asked for.
void VariantWriter::Write(const PropertyInfo& info, IPictureDisp* value) {
    if (IsEmptyPicture(value)) return;
    Variant stored(value);
    Store(info, stored);
}

void VariantWriter::Write(const PropertyInfo& info, IFontDisp* value, IFontDisp* defaultValue) {
    if (!value || (AreEqualFonts(value, defaultValue) && !all_)) return;
    Variant stored(value);
    Store(info, stored);
}

} // namespace vantik
