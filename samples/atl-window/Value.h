// A number, a flag or a text, as members that are called by name take and give them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

class Value {
public:
    Value() noexcept { VariantInit(&variant_); }
    Value(long number) noexcept : Value() {
        variant_.vt = VT_I4;
        variant_.lVal = number;
    }
    Value(bool flag) noexcept : Value() {
        variant_.vt = VT_BOOL;
        variant_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Value(const std::wstring& text) : Value() {
        variant_.vt = VT_BSTR;
        variant_.bstrVal = SysAllocString(text.c_str());
    }
    Value(const wchar_t* text) : Value(std::wstring(text)) {}
    Value(Value&& other) noexcept : variant_(other.variant_) { VariantInit(&other.variant_); }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { VariantClear(&variant_); }

    VARIANT* Variant() noexcept { return &variant_; }
    long Number() const noexcept { return variant_.vt == VT_I2 ? variant_.iVal : variant_.lVal; }
    bool Flag() const noexcept { return variant_.boolVal != VARIANT_FALSE; }
    std::wstring Text() const { return variant_.vt == VT_BSTR && variant_.bstrVal ? variant_.bstrVal : L""; }

private:
    VARIANT variant_;
};
