#include "ole/dispatch/DispatchCall.h"

#include <algorithm>

#include "ole/com/ErrorInfo.h"

namespace vantik {

namespace {

bool IsMissing(const VARIANT& value) noexcept {
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

bool LeadsNowhere(const VARIANT& value) noexcept { return (value.vt & VT_BYREF) && !value.byref; }

// Through the variants that refer to others, to the one that has the value or refers to it. Their number is limited:
// nobody has to believe a caller that they end.
VARIANT* Unwrap(VARIANT* value) noexcept {
    for (int depth = 0; depth < 8 && value && value->vt == (VT_BYREF | VT_VARIANT); ++depth)
        value = value->pvarVal;
    return value;
}

// The conversion of numbers is the platform's; a colour with its highest bit set is a negative number to many callers.
HRESULT ConvertValue(Variant& target, const VARIANT& source, VARTYPE type, LCID locale) noexcept {
    auto* readable = const_cast<VARIANT*>(&source); // NOLINT: only read
    if (type == VT_UI4 && SUCCEEDED(VariantChangeTypeEx(&target, readable, locale, 0, VT_I4))) {
        target.vt = VT_UI4;
        return S_OK;
    }
    return VariantChangeTypeEx(&target, readable, locale, 0, type);
}

HRESULT ConvertObject(Variant& target, const VARIANT& source) noexcept {
    Variant object;
    const HRESULT read = VariantCopyInd(&object, const_cast<VARIANT*>(&source)); // NOLINT: only read
    if (FAILED(read)) return read;
    if (object.vt != VT_DISPATCH && object.vt != VT_UNKNOWN) return DISP_E_TYPEMISMATCH;
    const auto dispatch = object.Object<IDispatch>();
    if (object.punkVal && !dispatch) return DISP_E_TYPEMISMATCH;
    target.vt = VT_DISPATCH;
    target.pdispVal = dispatch.Copy();
    return S_OK;
}

// What an argument that is left out counts as.
void SetDefault(Variant& value, VARTYPE type) {
    value.vt = type;
    value.llVal = 0;
    if (type == VT_BSTR) value.bstrVal = NewBstr({});
}

bool AreEqual(const Variant& a, const Variant& b) noexcept {
    if (a.vt != VT_BSTR) return a.llVal == b.llVal;
    const UINT bytes = SysStringByteLen(a.bstrVal);
    return bytes == SysStringByteLen(b.bstrVal) && (!bytes || !memcmp(a.bstrVal, b.bstrVal, bytes));
}

// The memory of a value, as a variant that refers to it shows it.
VARIANT ReferenceTo(Variant& value) noexcept {
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = static_cast<VARTYPE>(value.vt | VT_BYREF);
    reference.byref = &value.llVal;
    return reference;
}

std::size_t SizeOfValue(VARTYPE type) noexcept {
    switch (type) {
    case VT_I1:
    case VT_UI1: return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR: return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE: return 8;
    default: return 0;
    }
}

// Gives a new value to what the caller's variant refers to, in the type that it has.
HRESULT StoreThrough(VARIANT& target, const Variant& value, LCID locale) noexcept {
    const VARTYPE type = target.vt & static_cast<VARTYPE>(~VT_BYREF);
    if (type == VT_BSTR) {
        Variant text;
        const HRESULT converted = ConvertValue(text, value, VT_BSTR, locale);
        if (FAILED(converted)) return converted;
        SysFreeString(std::exchange(*target.pbstrVal, text.Detach().bstrVal));
        return S_OK;
    }
    const std::size_t size = SizeOfValue(type);
    if (!size) return DISP_E_TYPEMISMATCH;
    Variant number;
    const HRESULT converted = ConvertValue(number, value, type, locale);
    if (SUCCEEDED(converted)) memcpy(target.byref, &number.llVal, size);
    return converted;
}

} // namespace

HRESULT DispatchCall::Invoke(IDispatch& object, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
                             UINT* wrongArgument) {
    HRESULT outcome = Assign(parameters, wrongArgument);
    if (SUCCEEDED(outcome)) outcome = Convert(wrongArgument);
    if (FAILED(outcome)) return outcome;
    Variant answer;
    outcome = Call(object, answer, exception);
    const HRESULT written = WriteBack(wrongArgument); // what a function changed that failed later, too
    if (SUCCEEDED(outcome)) outcome = written;
    if (FAILED(outcome)) return outcome;
    if (answer.vt == VT_UI4) answer.vt = VT_I4; // script clients know no unsigned numbers
    if (result) *result = answer.Detach();
    return S_OK;
}

// Finds the caller's argument of every parameter. The unnamed ones stand in reverse order behind the named ones.
HRESULT DispatchCall::Assign(DISPPARAMS& parameters, UINT* wrongArgument) {
    if (parameters.cArgs && !parameters.rgvarg) return E_POINTER;
    if (parameters.cNamedArgs && !parameters.rgdispidNamedArgs) return E_POINTER;
    if (parameters.cNamedArgs > parameters.cArgs) return E_INVALIDARG;
    if (parameters.cArgs > arguments_.size()) return DISP_E_BADPARAMCOUNT;
    const UINT unnamed = parameters.cArgs - parameters.cNamedArgs;
    for (UINT i = 0; i < unnamed; ++i) {
        const UINT number = parameters.cArgs - 1 - i;
        arguments_[i].Given = &parameters.rgvarg[number];
        arguments_[i].Number = number;
    }
    return AssignNamed(parameters, wrongArgument);
}

HRESULT DispatchCall::AssignNamed(DISPPARAMS& parameters, UINT* wrongArgument) {
    for (UINT number = 0; number < parameters.cNamedArgs; ++number) {
        const DISPID name = parameters.rgdispidNamedArgs[number];
        const bool isValue = name == DISPID_PROPERTYPUT && member_.IsPut();
        const auto index = isValue ? arguments_.size() - 1 : static_cast<std::size_t>(name);
        if ((!isValue && name < 0) || index >= arguments_.size() || arguments_[index].Given) {
            if (wrongArgument) *wrongArgument = number;
            return DISP_E_PARAMNOTFOUND;
        }
        arguments_[index].Given = &parameters.rgvarg[number];
        arguments_[index].Number = number;
    }
    return S_OK;
}

HRESULT DispatchCall::Convert(UINT* wrongArgument) {
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        Argument& argument = arguments_[i];
        argument.IsVariable = argument.Given && (argument.Given->vt & VT_BYREF);
        argument.Given = Unwrap(argument.Given);
        const bool given = argument.Given != nullptr;
        const HRESULT result = ConvertOne(argument, member_.Parameters[i]);
        if (FAILED(result) && given && wrongArgument) *wrongArgument = argument.Number;
        if (FAILED(result)) return result;
    }
    return S_OK;
}

HRESULT DispatchCall::ConvertOne(Argument& argument, const Parameter& parameter) const {
    const bool missing = !argument.Given || IsMissing(*argument.Given);
    if (missing && !parameter.Optional)
        return argument.Given ? DISP_E_PARAMNOTOPTIONAL : DISP_E_BADPARAMCOUNT;
    if (missing) {
        SetDefault(argument.Value, parameter.Type);
        argument.Given = nullptr;
        return S_OK;
    }
    if (LeadsNowhere(*argument.Given)) return DISP_E_TYPEMISMATCH; // not every conversion looks
    if (parameter.Type == VT_DISPATCH) return ConvertObject(argument.Value, *argument.Given);
    const HRESULT converted = ConvertValue(argument.Value, *argument.Given, parameter.Type, locale_);
    return SUCCEEDED(converted) ? VariantCopy(&argument.Before, &argument.Value) : converted;
}

HRESULT DispatchCall::Call(IDispatch& object, VARIANT& result, EXCEPINFO* exception) {
    std::vector<VARIANT> passed(arguments_.size());
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        Variant& value = arguments_[i].Value;
        passed[passed.size() - 1 - i] =
            member_.Parameters[i].ByReference ? ReferenceTo(value) : VARIANT(value);
    }
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {passed.data(), member_.IsPut() ? &put : nullptr,
                             static_cast<UINT>(passed.size()), member_.IsPut() ? 1U : 0U};
    EXCEPINFO unwanted = {};
    const HRESULT outcome =
        description_.Invoke(&object, member_.Id, static_cast<WORD>(member_.Kind), &parameters,
                            member_.IsPut() ? nullptr : &result, exception ? exception : &unwanted, nullptr);
    SysFreeString(unwanted.bstrSource);
    SysFreeString(unwanted.bstrDescription);
    SysFreeString(unwanted.bstrHelpFile);
    return outcome;
}

// A variable that did not change keeps the type that its owner gave it.
HRESULT DispatchCall::WriteBack(UINT* wrongArgument) {
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        Argument& argument = arguments_[i];
        if (!member_.Parameters[i].ByReference || !argument.Given || !argument.IsVariable) continue;
        if (AreEqual(argument.Before, argument.Value)) continue;
        const bool byReference = argument.Given->vt & VT_BYREF;
        const HRESULT stored = byReference ? StoreThrough(*argument.Given, argument.Value, locale_)
                                           : VariantCopy(argument.Given, &argument.Value);
        if (FAILED(stored) && wrongArgument) *wrongArgument = argument.Number;
        if (FAILED(stored)) return stored;
    }
    return S_OK;
}

} // namespace vantik
