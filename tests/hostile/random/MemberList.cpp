#include "hostile/random/MemberList.h"

#include "host/TypeAttributes.h"
#include "platform/ComPtr.h"

namespace vantik {

namespace {

// The table of functions stands behind the dispatch side of a dual interface.
ComPtr<ITypeInfo> TableOf(ITypeInfo& dispatch) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    Check(dispatch.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), "Finding the interface");
    Check(dispatch.GetRefTypeInfo(reference, table.Put()), "Finding the interface");
    return table;
}

ParameterKind KindOf(ITypeInfo& type, const TYPEDESC& description);

ParameterKind KindOfNamed(ITypeInfo& type, HREFTYPE reference) {
    ComPtr<ITypeInfo> named;
    Check(type.GetRefTypeInfo(reference, named.Put()), "Reading a type");
    const LentAttributes attributes(*named.Get());
    if (attributes->typekind == TKIND_ALIAS) return KindOf(*named.Get(), attributes->tdescAlias);
    return attributes->typekind == TKIND_ENUM ? ParameterKind::Long : ParameterKind::Object;
}

ParameterKind KindOf(ITypeInfo& type, const TYPEDESC& description) {
    switch (description.vt) {
    case VT_I2:
    case VT_BOOL: return ParameterKind::Short;
    case VT_BSTR: return ParameterKind::Text;
    case VT_USERDEFINED: return KindOfNamed(type, description.hreftype);
    case VT_PTR: return KindOf(type, *description.lptdesc);
    default: return ParameterKind::Long;
    }
}

// An object is a pointer by itself.
ParameterOfMember ParameterOf(ITypeInfo& type, const TYPEDESC& description) {
    const ParameterKind kind = KindOf(type, description);
    int pointers = 0;
    for (const TYPEDESC* each = &description; each->vt == VT_PTR; each = each->lptdesc) ++pointers;
    return {kind, pointers > (kind == ParameterKind::Object ? 1 : 0)};
}

} // namespace

std::vector<MemberOfControl> MembersOf(ITypeInfo& description) {
    const auto table = TableOf(description);
    const LentAttributes attributes(*table.Get());
    std::vector<MemberOfControl> members;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        const LentFunction function(*table.Get(), i);
        const std::wstring name = NamesOf(*table.Get(), function->memid).at(0);
        MemberOfControl member = {
            {}, function->memid, function->invkind, static_cast<std::size_t>(function->oVft), {}};
        for (const wchar_t letter : name) member.Name += static_cast<char>(letter);
        for (SHORT p = 0; p < function->cParams; ++p)
            member.Parameters.push_back(ParameterOf(*table.Get(), function->lprgelemdescParam[p].tdesc));
        members.push_back(std::move(member));
    }
    return members;
}

} // namespace vantik
