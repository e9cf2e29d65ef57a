// The members of the control's own interface, as its type library tells of them.
#pragma once

#include <string>
#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

enum class ParameterKind { Short, Long, Text, Object };

struct ParameterOfMember {
    ParameterKind Kind;
    bool IsPointer; // to a variable of the caller's
};

struct MemberOfControl {
    std::string Name;
    MEMBERID Id;
    INVOKEKIND Invocation;
    std::size_t Offset; // in the table of functions, in bytes
    std::vector<ParameterOfMember> Parameters;
};

std::vector<MemberOfControl> MembersOf(ITypeInfo& description);

} // namespace vantik
