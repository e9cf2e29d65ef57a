#include "Members.h"

#include <algorithm>

#include "CommandLine.h"
#include "Objects.h"
#include "host/SkinSettings.h"
#include "host/TypeAttributes.h"

namespace vantik {

namespace {

bool SameName(const std::wstring& a, const std::wstring& b) noexcept {
    return lstrcmpiW(a.c_str(), b.c_str()) == 0;
}

ValueKind KindOf(ITypeInfo& type, const TYPEDESC& description);

ValueKind KindOfNamed(ITypeInfo& type, HREFTYPE reference) {
    ComPtr<ITypeInfo> named;
    Check(type.GetRefTypeInfo(reference, named.Put()), "Reading a type");
    const LentAttributes attributes(*named.Get());
    if (attributes->guid == __uuidof(IFontDisp)) return ValueKind::Font;
    if (attributes->guid == __uuidof(IPictureDisp)) return ValueKind::Picture;
    if (attributes->typekind == TKIND_ENUM) return ValueKind::Number;
    return attributes->typekind == TKIND_ALIAS ? KindOf(*named.Get(), attributes->tdescAlias)
                                               : ValueKind::Other;
}

ValueKind KindOf(ITypeInfo& type, const TYPEDESC& description) {
    switch (description.vt) {
    case VT_PTR: return KindOf(type, *description.lptdesc);
    case VT_USERDEFINED: return KindOfNamed(type, description.hreftype);
    case VT_BSTR: return ValueKind::Text;
    case VT_BOOL: return ValueKind::Flag;
    case VT_I2: return ValueKind::ShortNumber;
    case VT_I4:
    case VT_UI4:
    case VT_INT: return ValueKind::Number;
    default: return ValueKind::Other;
    }
}

std::string CountText(const Member& member) {
    const std::size_t most = member.Arguments.size();
    if (most == 0) return "no arguments";
    if (member.Required < most)
        return std::to_string(member.Required) + " to " + std::to_string(most) + " arguments";
    return most == 1 ? "1 argument" : std::to_string(most) + " arguments";
}

const char* WantedText(ValueKind kind) noexcept {
    switch (kind) {
    case ValueKind::Flag: return "True or False";
    case ValueKind::ShortNumber: return "a whole number, -32768 to 32767";
    case ValueKind::Number: return "a whole number, a colour as #RRGGBB, or the name of a constant";
    case ValueKind::Font: return "NAME,SIZE and any of bold, italic, underline, strikethrough";
    case ValueKind::Picture: return "a picture file";
    default: return "text";
    }
}

} // namespace

Members::Members(const ControlModule& module) : constants_(module.Constants()) {
    const LentAttributes attributes(module.Members());
    for (UINT i = 0; i < attributes->cFuncs; ++i) Read(module.Members(), i);
}

void Members::Read(ITypeInfo& type, UINT index) {
    const LentFunction function(type, index);
    if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) return; // the plumbing of automation
    const std::wstring name = NamesOf(type, function->memid).front();
    Member* member = const_cast<Member*>(Find(name));
    if (!member) member = &members_.emplace_back(Member{name, {}, 0, false, false, ValueKind::Other});
    const std::size_t count = static_cast<std::size_t>(function->cParams);
    const auto kindAt = [&](std::size_t i) { return KindOf(type, function->lprgelemdescParam[i].tdesc); };
    if (function->invkind == INVOKE_FUNC) {
        member->IsMethod = true;
        for (std::size_t i = 0; i < count; ++i) {
            const USHORT flags = function->lprgelemdescParam[i].paramdesc.wParamFlags;
            if ((flags & PARAMFLAG_FRETVAL) != 0) continue;
            member->Arguments.push_back(kindAt(i));
            if ((flags & PARAMFLAG_FOPT) == 0) member->Required = member->Arguments.size();
        }
    } else if (function->invkind != INVOKE_PROPERTYGET && count > 0) {
        member->CanSet = true;
        member->Value = kindAt(0);
    }
}

const Member* Members::Find(const std::wstring& name) const noexcept {
    const auto found = std::find_if(members_.begin(), members_.end(),
                                    [&](const Member& each) { return SameName(each.Name, name); });
    return found == members_.end() ? nullptr : &*found;
}

const Member& Members::Property(const std::wstring& name) const {
    const Member* member = Find(name);
    if (!member) throw UsageError("the control has no property '" + ToUtf8(name) + "'");
    if (!member->CanSet) throw UsageError("'" + ToUtf8(name) + "' cannot be set");
    return *member;
}

const Member& Members::Callable(const std::wstring& name, std::size_t arguments) const {
    const Member* member = Find(name);
    if (!member) throw UsageError("the control has no member '" + ToUtf8(name) + "'");
    if (arguments < member->Required || arguments > member->Arguments.size()) {
        throw UsageError("'" + ToUtf8(name) + "' takes " + CountText(*member) + ", not " +
                         std::to_string(arguments));
    }
    return *member;
}

Variant Members::Convert(ValueKind kind, const std::wstring& text) const {
    try {
        switch (kind) {
        case ValueKind::Text: return Variant(text);
        case ValueKind::Flag: return Variant(text).As(VT_BOOL);
        case ValueKind::ShortNumber: return NumberFromText(text, constants_).As(VT_I2);
        case ValueKind::Number: return NumberFromText(text, constants_);
        case ValueKind::Font: return Variant(MakeFont(text).Get());
        case ValueKind::Picture: return Variant(MakePicture(text).Get());
        default: throw UsageError("its type cannot be written on a command line");
        }
    } catch (const HostError&) {
        throw UsageError("'" + ToUtf8(text) + "' is no value for it; expected " + WantedText(kind));
    }
}

} // namespace vantik
