// The members of a dispatch interface as its type information describes them, ready for calls.
#pragma once

#include <vector>

#include "platform/ComPtr.h"

namespace vantik {

// Of the plain type that a variant has: enumerations are VT_I4, objects VT_DISPATCH.
struct Parameter {
    VARTYPE Type;
    bool ByReference, Optional;
};

struct Member {
    DISPID Id;
    INVOKEKIND Kind;
    std::vector<Parameter> Parameters;

    bool IsPut() const noexcept { return Kind == INVOKE_PROPERTYPUT || Kind == INVOKE_PROPERTYPUTREF; }
};

class MemberTable {
public:
    explicit MemberTable(ComPtr<ITypeInfo> description);

    // Script clients ask for a method and for a property at once, and some do not tell a put from a put by reference: the
    // flags are the kinds that will do. Null where there is none.
    const Member* Find(DISPID id, WORD flags) const noexcept;

    ITypeInfo& Description() const noexcept { return *description_.Get(); }

private:
    ComPtr<ITypeInfo> description_;
    std::vector<Member> members_;
};

} // namespace vantik
