// Owners of what a type description lends.
#pragma once

#include "ole/com/ErrorInfo.h"

namespace vantik {

struct TypeAttributes {
    explicit TypeAttributes(ITypeInfo& info) : Info(info) { Check(info.GetTypeAttr(&Values)); }
    ~TypeAttributes() { Info.ReleaseTypeAttr(Values); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;

    ITypeInfo& Info;
    TYPEATTR* Values = nullptr;
};

class FunctionDescription {
public:
    // Empty past the last function.
    FunctionDescription(ITypeInfo& info, UINT index) noexcept : info_(info) {
        if (FAILED(info.GetFuncDesc(index, &values_))) values_ = nullptr;
    }
    ~FunctionDescription() {
        if (values_) info_.ReleaseFuncDesc(values_);
    }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;

    explicit operator bool() const noexcept { return values_ != nullptr; }
    const FUNCDESC* operator->() const noexcept { return values_; }

private:
    ITypeInfo& info_;
    FUNCDESC* values_ = nullptr;
};

class VariableDescription {
public:
    VariableDescription(ITypeInfo& info, UINT index) : info_(info) {
        Check(info.GetVarDesc(index, &values_));
    }
    ~VariableDescription() { info_.ReleaseVarDesc(values_); }
    VariableDescription(const VariableDescription&) = delete;
    VariableDescription& operator=(const VariableDescription&) = delete;

    const VARDESC* operator->() const noexcept { return values_; }

private:
    ITypeInfo& info_;
    VARDESC* values_ = nullptr;
};

} // namespace vantik
