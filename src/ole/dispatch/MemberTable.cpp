#include "ole/dispatch/MemberTable.h"

#include "ole/com/TypeDescriptions.h"

namespace vantik {

namespace {

VARTYPE ResolvedType(ITypeInfo& description, const TYPEDESC& type);

// Enumerations and other names for plain types; what remains are interfaces.
VARTYPE NamedType(ITypeInfo& description, HREFTYPE reference) {
    ComPtr<ITypeInfo> named;
    Check(description.GetRefTypeInfo(reference, named.Put()));
    const TypeAttributes attributes(*named.Get());
    if (attributes.Values->typekind == TKIND_ALIAS)
        return ResolvedType(*named.Get(), attributes.Values->tdescAlias);
    return attributes.Values->typekind == TKIND_ENUM ? VT_I4 : VT_DISPATCH;
}

VARTYPE ResolvedType(ITypeInfo& description, const TYPEDESC& type) {
    return type.vt == VT_USERDEFINED ? NamedType(description, type.hreftype) : type.vt;
}

Parameter ParameterOf(ITypeInfo& description, const ELEMDESC& element) {
    const bool pointer = element.tdesc.vt == VT_PTR;
    const VARTYPE type = ResolvedType(description, pointer ? *element.tdesc.lptdesc : element.tdesc);
    return {type, pointer && type != VT_DISPATCH, (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0};
}

} // namespace

MemberTable::MemberTable(ComPtr<ITypeInfo> description) : description_(std::move(description)) {
    for (UINT index = 0;; ++index) {
        const FunctionDescription function(*description_.Get(), index);
        if (!function) break;
        Member member = {function->memid, function->invkind, {}};
        // What the interface inherits is called by its own means and takes pointers of all kinds.
        if (function->wFuncFlags & FUNCFLAG_FRESTRICTED) continue;
        for (SHORT i = 0; i < function->cParams; ++i)
            member.Parameters.push_back(ParameterOf(*description_.Get(), function->lprgelemdescParam[i]));
        members_.push_back(std::move(member));
    }
}

const Member* MemberTable::Find(DISPID id, WORD flags) const noexcept {
    for (const INVOKEKIND kind : {INVOKE_FUNC, INVOKE_PROPERTYGET, INVOKE_PROPERTYPUTREF, INVOKE_PROPERTYPUT})
        for (const Member& member : members_)
            if ((flags & kind) && member.Id == id && member.Kind == kind) return &member;
    return nullptr;
}

} // namespace vantik
