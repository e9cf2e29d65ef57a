// An owned VARIANT, and the owned text that goes into one.
#pragma once

#include <concepts>
#include <string>

#include "platform/ComPtr.h"

namespace vantik {

class Bstr {
public:
    Bstr() noexcept = default; // null, to be filled
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    BSTR Get() const noexcept { return text_; }
    BSTR* Put() noexcept { return &text_; }
    BSTR Detach() noexcept { return std::exchange(text_, nullptr); }
    std::wstring Text() const { return text_ ? std::wstring(text_, SysStringLen(text_)) : std::wstring(); }

private:
    BSTR text_ = nullptr;
};

class Variant {
public:
    Variant() noexcept { VariantInit(&value_); }
    Variant(std::int16_t number) noexcept : Variant(OfType{VT_I2}) { value_.iVal = number; }
    Variant(std::int32_t number) noexcept : Variant(OfType{VT_I4}) { value_.lVal = number; }
    Variant(double number) noexcept : Variant(OfType{VT_R8}) { value_.dblVal = number; }
    template <std::same_as<bool> Flag> // a pointer is no flag
    Variant(Flag flag) noexcept : Variant(OfType{VT_BOOL}) {
        value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Variant(std::wstring_view text) : Variant(OfType{VT_BSTR}) { value_.bstrVal = Bstr(text).Detach(); }
    Variant(const std::wstring& text) : Variant(std::wstring_view(text)) {}
    Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    Variant(IDispatch* object) noexcept : Variant(OfType{VT_DISPATCH}) {
        value_.pdispVal = ComPtr<IDispatch>(object).Copy();
    }
    Variant(IUnknown* object) noexcept : Variant(OfType{VT_UNKNOWN}) {
        value_.punkVal = ComPtr<IUnknown>(object).Copy();
    }
    // References the caller's variable, which the callee may change.
    Variant(std::int16_t* variable) noexcept : Variant(OfType{VT_BYREF | VT_I2}) { value_.piVal = variable; }
    Variant(BSTR* variable) noexcept : Variant(OfType{VT_BYREF | VT_BSTR}) { value_.pbstrVal = variable; }
    Variant(const VARIANT& other) noexcept : Variant() {
        VariantCopy(&value_, const_cast<VARIANT*>(&other)); // reads only, whatever its declaration says
    }
    Variant(const Variant& other) noexcept : Variant(other.value_) {}
    Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
    ~Variant() { VariantClear(&value_); }

    Variant& operator=(Variant other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    // An argument that the caller left out.
    static Variant Omitted() noexcept {
        Variant variant(OfType{VT_ERROR});
        variant.value_.scode = DISP_E_PARAMNOTFOUND;
        return variant;
    }

    VARTYPE Type() const noexcept { return value_.vt; }
    const VARIANT& Get() const noexcept { return value_; }
    VARIANT* Put() noexcept {
        VariantClear(&value_);
        return &value_;
    }

    // A converted copy; throws where the value does not convert.
    Variant As(VARTYPE type) const;
    std::int32_t Number() const { return As(VT_I4).value_.lVal; }
    double Real() const { return As(VT_R8).value_.dblVal; }
    bool Flag() const { return As(VT_BOOL).value_.boolVal != VARIANT_FALSE; }
    std::wstring Text() const;
    ComPtr<IUnknown> Object() const; // null when it holds none

    // Hands the value to the caller of an interface method.
    void MoveTo(VARIANT* target) noexcept {
        *target = value_;
        value_.vt = VT_EMPTY;
    }

private:
    struct OfType {
        int Type;
    };
    explicit Variant(OfType type) noexcept : Variant() { value_.vt = static_cast<VARTYPE>(type.Type); }

    VARIANT value_;
};

} // namespace vantik
