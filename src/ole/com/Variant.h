// Owners of automation values.
#pragma once

#include <string>
#include <string_view>

#include "platform/ComPtr.h"

namespace vantik {

// A VARIANT that is cleared at the end.
class Variant : public VARIANT {
public:
    Variant() noexcept : VARIANT{} {}
    explicit Variant(std::int16_t value) noexcept : Variant() { vt = VT_I2, iVal = value; }
    explicit Variant(std::int32_t value) noexcept : Variant() { vt = VT_I4, lVal = value; }
    explicit Variant(double value) noexcept : Variant() { vt = VT_R8, dblVal = value; }
    explicit Variant(std::u16string_view text);
    explicit Variant(IUnknown* object) noexcept : Variant() {
        vt = VT_UNKNOWN, punkVal = object;
        if (object) object->AddRef();
    }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    // Converts the value in place.
    HRESULT ChangeType(VARTYPE type, LCID locale = LOCALE_USER_DEFAULT) noexcept {
        return VariantChangeTypeEx(this, this, locale, 0, type);
    }

    // The object inside, asked for the interface; null for anything else.
    template <class Interface>
    ComPtr<Interface> Object() const noexcept {
        return vt == VT_UNKNOWN || vt == VT_DISPATCH ? QueryFor<Interface>(punkVal) : nullptr;
    }

    // Gives the value away.
    VARIANT Detach() noexcept {
        const VARIANT value = *this;
        VariantInit(this);
        return value;
    }
};

// A new BSTR, or OutOfMemory.
BSTR NewBstr(std::u16string_view text);

// Replaces a BSTR that belongs to the caller.
void AssignBstr(BSTR& target, std::u16string_view text);

// A BSTR that is freed at the end.
class Bstr {
public:
    explicit Bstr(std::u16string_view text) : text_(NewBstr(text)) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    operator BSTR() const noexcept { return text_; } // NOLINT: stands for the text

private:
    BSTR text_;
};

} // namespace vantik
