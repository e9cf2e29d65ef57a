// The control's members as its type library declares them, and values for them from text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/ControlModule.h"
#include "host/Variant.h"

namespace vantik {

enum class ValueKind { Text, ShortNumber, Number, Flag, Font, Picture, Other };

struct Member {
    std::wstring Name;
    std::vector<ValueKind> Arguments; // those of a method
    std::size_t Required = 0;         // so many of them must be given
    bool IsMethod = false;
    bool CanSet = false;
    ValueKind Value = ValueKind::Other; // what a property takes
};

class Members {
public:
    explicit Members(const ControlModule& module);

    // UsageError for a name that the control does not have, or has as something else.
    const Member& Property(const std::wstring& name) const;
    const Member& Callable(const std::wstring& name, std::size_t arguments) const;

    // UsageError for text that is no such value.
    Variant Convert(ValueKind kind, const std::wstring& text) const;

private:
    const Member* Find(const std::wstring& name) const noexcept;
    void Read(ITypeInfo& type, UINT index);

    std::vector<Member> members_;
    std::vector<EnumerationMember> constants_;
};

} // namespace vantik
