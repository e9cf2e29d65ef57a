#include "Object.h"

#include <vector>

// Arguments go last first; they stay the caller's.
Value Object::Invoke(const wchar_t* member, WORD kind, Value* arguments, UINT count) const {
    auto* name = const_cast<wchar_t*>(member);
    DISPID id = 0, put = DISPID_PROPERTYPUT;
    Check(dispatch_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
    std::vector<VARIANT> reversed;
    for (UINT i = count; i > 0; --i) reversed.push_back(*arguments[i - 1].Variant());
    const bool isPut = kind == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters = {reversed.data(), isPut ? &put : nullptr, count, isPut ? 1U : 0U};
    Value result;
    Check(dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result.Variant(), nullptr,
                            nullptr));
    return result;
}
