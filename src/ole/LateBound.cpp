#include "ole/LateBound.h"

#include "ole/ErrorInfo.h"

namespace vantik {

namespace {

DISPID IdOf(IDispatch* object, const wchar_t* name) {
    DISPID id = DISPID_UNKNOWN;
    auto* names = const_cast<wchar_t*>(name); // NOLINT: only read
    if (!object || FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
        Raise(RunTimeErrorNumber::NoSuchMember);
    return id;
}

void Invoke(IDispatch& object, DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result) {
    EXCEPINFO exception = {};
    const HRESULT outcome =
        object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr);
    if (outcome == DISP_E_MEMBERNOTFOUND) Raise(RunTimeErrorNumber::NoSuchMember);
    if (FAILED(outcome)) throw ErrorFrom(outcome, exception);
}

} // namespace

void GetProperty(IDispatch* object, const wchar_t* name, Variant& value) {
    DISPPARAMS none = {};
    const DISPID id = IdOf(object, name);
    Invoke(*object, id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, none, &value);
}

void PutProperty(IDispatch* object, const wchar_t* name, VARIANT& value) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {&value, &put, 1, 1};
    const DISPID id = IdOf(object, name);
    Invoke(*object, id, DISPATCH_PROPERTYPUT, parameters, nullptr);
}

} // namespace vantik
