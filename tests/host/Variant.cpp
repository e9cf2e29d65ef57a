#include "host/Variant.h"

#include "host/HostError.h"

namespace vantik {

namespace {
// Numbers as text, and text as numbers, look the same on every machine.
constexpr LCID Invariant = LOCALE_INVARIANT;
} // namespace

Variant Variant::As(VARTYPE type) const {
    Variant result;
    auto* source = const_cast<VARIANT*>(&value_); // reads only, whatever its declaration says
    Check(VariantChangeTypeEx(&result.value_, source, Invariant, VARIANT_ALPHABOOL, type),
          "Converting a value");
    return result;
}

std::wstring Variant::Text() const {
    const Variant text = As(VT_BSTR);
    return text.value_.bstrVal ? std::wstring(text.value_.bstrVal, SysStringLen(text.value_.bstrVal))
                               : std::wstring();
}

ComPtr<IUnknown> Variant::Object() const {
    const bool holdsObject = value_.vt == VT_DISPATCH || value_.vt == VT_UNKNOWN;
    return holdsObject ? ComPtr<IUnknown>(value_.punkVal) : nullptr;
}

} // namespace vantik
