#include "host/Automation.h"

#include <algorithm>

namespace vantik {

namespace {

// The strings of an EXCEPINFO belong to whoever asked for the call.
struct Exception : EXCEPINFO {
    Exception() : EXCEPINFO() {}
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ~Exception() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
    std::wstring Description() {
        if (pfnDeferredFillIn) pfnDeferredFillIn(this);
        return bstrDescription ? bstrDescription : L"";
    }
};

[[noreturn]] void Fail(HRESULT result, std::wstring_view name, Exception& exception) {
    const HRESULT code = result == DISP_E_EXCEPTION ? exception.scode : result;
    const std::wstring description = exception.Description();
    const int number = HRESULT_FACILITY(code) == FACILITY_CONTROL ? HRESULT_CODE(code) : 0;
    std::string text = ToUtf8(name) + ": ";
    if (number != 0) {
        text += "error " + std::to_string(number) + ", " + ToUtf8(description);
    } else if (code == DISP_E_BADPARAMCOUNT) {
        text += "wrong number of arguments";
    } else if (code == DISP_E_TYPEMISMATCH || code == DISP_E_OVERFLOW) {
        text += "an argument does not fit";
    } else {
        char digits[16];
        std::snprintf(digits, sizeof digits, "0x%08lX", static_cast<unsigned long>(code));
        text += std::string("failed with ") + digits;
    }
    throw AutomationError(text, code, description);
}

} // namespace

std::optional<DISPID> FindMember(IDispatch& object, std::wstring_view name) {
    std::wstring text(name);
    LPOLESTR names[] = {text.data()};
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) return std::nullopt;
    return id;
}

Variant Invoke(IDispatch& object, std::wstring_view name, WORD flags, std::vector<Variant> arguments) {
    const std::optional<DISPID> id = FindMember(object, name);
    if (!id) {
        throw AutomationError("there is no member '" + ToUtf8(name) + "'", DISP_E_UNKNOWNNAME, L"");
    }
    std::vector<VARIANT> reversed(arguments.size());
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(),
                   [](const Variant& argument) { return argument.Get(); }); // borrowed, cleared by the owner
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPID putId = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {reversed.data(), puts ? &putId : nullptr, static_cast<UINT>(reversed.size()),
                             puts ? 1U : 0U};
    Variant result;
    Exception exception;
    UINT wrongArgument = 0;
    const HRESULT answer = object.Invoke(*id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                         puts ? nullptr : result.Put(), &exception, &wrongArgument);
    if (FAILED(answer)) Fail(answer, name, exception);
    return result;
}

Variant Call(IDispatch& object, std::wstring_view name, std::vector<Variant> arguments) {
    return Invoke(object, name, DISPATCH_METHOD, std::move(arguments));
}

Variant Get(IDispatch& object, std::wstring_view name) {
    return Invoke(object, name, DISPATCH_PROPERTYGET, {});
}

void Put(IDispatch& object, std::wstring_view name, Variant value) {
    Invoke(object, name, DISPATCH_PROPERTYPUT, {std::move(value)});
}

void PutReference(IDispatch& object, std::wstring_view name, IDispatch* value) {
    Invoke(object, name, DISPATCH_PROPERTYPUTREF, {Variant(value)});
}

} // namespace vantik
