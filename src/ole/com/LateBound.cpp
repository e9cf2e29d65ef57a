#include "ole/com/LateBound.h"

#include "base/ErrorText.h"
#include "ole/com/ErrorInfo.h"

namespace vantik {

namespace {

[[noreturn]] void RaiseNoSuchMember(const wchar_t* name) {
    Raise(RunTimeErrorNumber::NoSuchMember, u"there is no property ", Quoted{AsChar16(name)});
}

DISPID IdOf(IDispatch* object, const wchar_t* name) {
    DISPID id = DISPID_UNKNOWN;
    auto* names = const_cast<wchar_t*>(name); // NOLINT: only read
    if (!object || FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
        RaiseNoSuchMember(name);
    return id;
}

void Invoke(IDispatch* object, const wchar_t* name, WORD flags, DISPPARAMS& parameters, VARIANT* result) {
    const DISPID id = IdOf(object, name);
    EXCEPINFO exception = {};
    const HRESULT outcome =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr);
    if (outcome == DISP_E_MEMBERNOTFOUND) RaiseNoSuchMember(name);
    if (FAILED(outcome)) throw ErrorFrom(outcome, exception);
}

} // namespace

void GetProperty(IDispatch* object, const wchar_t* name, Variant& value) {
    DISPPARAMS none = {};
    Invoke(object, name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, none, &value);
}

void PutProperty(IDispatch* object, const wchar_t* name, VARIANT& value) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {&value, &put, 1, 1};
    Invoke(object, name, DISPATCH_PROPERTYPUT, parameters, nullptr);
}

} // namespace vantik
