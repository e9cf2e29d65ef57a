// One late-bound call.
//
// The platform's own dispatcher takes the arguments of the type library only as they stand there. Callers bring what their
// language has: everything wrapped in variants, references to other types of numbers, optional arguments left out. So
// every argument is first put into a temporary of the parameter's own type; the platform calls the function with these;
// and what the function changed is converted back into the caller's variable.
#pragma once

#include <vector>

#include "ole/com/Variant.h"
#include "ole/dispatch/MemberTable.h"

namespace vantik {

class DispatchCall {
public:
    DispatchCall(const Member& member, ITypeInfo& description, LCID locale)
        : member_(member), description_(description), locale_(locale), arguments_(member.Parameters.size()) {}

    HRESULT Invoke(IDispatch& object, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
                   UINT* wrongArgument);

private:
    struct Argument {
        VARIANT* Given = nullptr; // the caller's, null where it is left out
        UINT Number = 0;          // its place in the caller's array
        bool IsVariable = false;  // the caller passed a reference
        Variant Before, Value;    // of the parameter's type
    };

    HRESULT Assign(DISPPARAMS& parameters, UINT* wrongArgument);
    HRESULT AssignNamed(DISPPARAMS& parameters, UINT* wrongArgument);
    HRESULT Convert(UINT* wrongArgument);
    HRESULT ConvertOne(Argument& argument, const Parameter& parameter) const;
    HRESULT Call(IDispatch& object, VARIANT& result, EXCEPINFO* exception);
    HRESULT WriteBack(UINT* wrongArgument);

    const Member& member_;
    ITypeInfo& description_;
    LCID locale_;
    std::vector<Argument> arguments_; // in the order of the parameters
};

} // namespace vantik
