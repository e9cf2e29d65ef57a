"""What #import of Visual C++ makes of the type library, as far as listings use it: Clang takes #import for #include."""

HEADER = """#include <comdef.h>

#include <VantikFrameTabProject.h>

// Visual C++ has these two in <comdef.h>.
_COM_SMARTPTR_TYPEDEF(IFont, IID_IFont);
_COM_SMARTPTR_TYPEDEF(IFontDisp, IID_IFontDisp);

struct Imported : _VantikFrameTab {{
    static void Check(HRESULT result) {{ _com_util::CheckError(result); }}
{properties}
}};
typedef _com_ptr_t<_com_IIID<Imported, &IID__VantikFrameTab>> _VantikFrameTabPtr;
"""


def number(member):
    name, kind = member.name, member.result
    return f"""    {kind} Get{name}() {{ {kind} value; Check(get_{name}(&value)); return value; }}
    void Put{name}({kind} value) {{ Check(put_{name}(value)); }}
    __declspec(property(get = Get{name}, put = Put{name})) {kind} {name};"""


def text(member):
    return f"""    void Put{member.name}(_bstr_t value) {{ Check(put_{member.name}(value)); }}
    __declspec(property(put = Put{member.name})) _bstr_t {member.name};"""


FONT = """    IFontDispPtr GetFont() { IFontDisp* value; Check(get_Font(&value)); return IFontDispPtr(value, false); }
    __declspec(property(get = GetFont)) IFontDispPtr Font;"""


def header(types):
    kinds = {"BSTR": text, "IFontDisp": lambda member: FONT, "IPictureDisp": lambda member: ""}
    properties = [kinds.get(member.result, number)(member) for member in types.members.values() if member.is_property]
    return HEADER.format(properties="\n".join(filter(None, properties)))
