// Owners of what a type description lends.
#pragma once

#include <string>
#include <vector>

#include "host/HostError.h"
#include "host/Variant.h"

namespace vantik {

template <class Description, HRESULT (STDMETHODCALLTYPE ITypeInfo::*Lend)(UINT, Description**),
          void (STDMETHODCALLTYPE ITypeInfo::*TakeBack)(Description*)>
class LentDescription {
public:
    LentDescription(ITypeInfo& type, UINT index) : type_(type) {
        Check((type.*Lend)(index, &lent_), "Reading a type");
    }
    ~LentDescription() { (type_.*TakeBack)(lent_); }
    LentDescription(const LentDescription&) = delete;
    LentDescription& operator=(const LentDescription&) = delete;
    const Description* operator->() const noexcept { return lent_; }

private:
    ITypeInfo& type_;
    Description* lent_ = nullptr;
};

using LentFunction = LentDescription<FUNCDESC, &ITypeInfo::GetFuncDesc, &ITypeInfo::ReleaseFuncDesc>;
using LentVariable = LentDescription<VARDESC, &ITypeInfo::GetVarDesc, &ITypeInfo::ReleaseVarDesc>;

class LentAttributes {
public:
    explicit LentAttributes(ITypeInfo& type) : type_(type) {
        Check(type.GetTypeAttr(&lent_), "Reading a type");
    }
    ~LentAttributes() { type_.ReleaseTypeAttr(lent_); }
    LentAttributes(const LentAttributes&) = delete;
    LentAttributes& operator=(const LentAttributes&) = delete;
    const TYPEATTR* operator->() const noexcept { return lent_; }
    const TYPEATTR& operator*() const noexcept { return *lent_; }

private:
    ITypeInfo& type_;
    TYPEATTR* lent_ = nullptr;
};

// The member's own name and those of its arguments.
inline std::vector<std::wstring> NamesOf(ITypeInfo& type, MEMBERID member) {
    constexpr UINT Most = 16;
    BSTR names[Most] = {};
    UINT count = 0;
    Check(type.GetNames(member, names, Most, &count), "Reading a name");
    std::vector<std::wstring> result;
    for (UINT i = 0; i < count; ++i) {
        result.emplace_back(names[i]);
        SysFreeString(names[i]);
    }
    return result;
}

} // namespace vantik
