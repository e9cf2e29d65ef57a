// A control, spoken to by the names of its members: no header of it is needed.
#pragma once

#include "Com.h"
#include "Value.h"

class Object {
public:
    explicit Object(IUnknown& control) : dispatch_(Query<IDispatch>(control)) {}

    Value Get(const wchar_t* property) const { return Invoke(property, DISPATCH_PROPERTYGET, nullptr, 0); }
    void Put(const wchar_t* property, Value value) const {
        Invoke(property, DISPATCH_PROPERTYPUT, &value, 1);
    }

    template <class... Arguments>
    Value Call(const wchar_t* method, Arguments... arguments) const {
        Value values[] = {Value(std::move(arguments))...};
        return Invoke(method, DISPATCH_METHOD, values, sizeof...(arguments));
    }

private:
    Value Invoke(const wchar_t* member, WORD kind, Value* arguments, UINT count) const;

    Com<IDispatch> dispatch_;
};
