#include "hostile/random/RandomVariant.h"

#include <algorithm>
#include <limits>

#include "hostile/random/RandomObject.h"
#include "hostile/random/World.h"

namespace vantik {

namespace {

constexpr const wchar_t* Texts[] = {L"",
                                    L" ",
                                    L"Tab",
                                    L"1",
                                    L"-1",
                                    L"12",
                                    L"1e400",
                                    L"&HFFFF",
                                    L"True",
                                    L"sun",
                                    L"SUN",
                                    L"nothing",
                                    L"skin.ini",
                                    L"Skin",
                                    L"Temp",
                                    L".",
                                    L"..\\..",
                                    L"C:\\windows",
                                    L"con",
                                    L"a|b<c>d*e?",
                                    L"Child1",
                                    L"Child1,Child2,,Child3",
                                    L",",
                                    L"a && b & c",
                                    L"\x4E2D\x6587\xD83D\xDE00",
                                    L"\xD83D",
                                    L"line\r\nline\ttab"};

constexpr VARTYPE Types[] = {VT_EMPTY,
                             VT_NULL,
                             VT_I2,
                             VT_I4,
                             VT_R4,
                             VT_R8,
                             VT_CY,
                             VT_DATE,
                             VT_BSTR,
                             VT_DISPATCH,
                             VT_ERROR,
                             VT_BOOL,
                             VT_UNKNOWN,
                             VT_DECIMAL,
                             VT_I1,
                             VT_UI1,
                             VT_UI2,
                             VT_UI4,
                             VT_I8,
                             VT_UI8,
                             VT_INT,
                             VT_UINT,
                             VT_RECORD,
                             VT_I2 | VT_ARRAY,
                             VT_VARIANT | VT_ARRAY,
                             VT_BSTR | VT_ARRAY};
constexpr VARTYPE Frequent[] = {VT_I2, VT_I4, VT_BSTR, VT_BOOL};
constexpr VARTYPE None[] = {VT_VARIANT, VT_LPWSTR, VT_FILETIME, VT_CLSID,  9999,
                            0x0FFF,     VT_PTR,    VT_CARRAY,   VT_HRESULT};

constexpr double Doubles[] = {0,
                              0.5,
                              -1,
                              1e10,
                              1e300,
                              -1e300,
                              std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::denorm_min()};

SAFEARRAY* RandomArray(Random& random, VARTYPE type) noexcept {
    return random.OneIn(3) ? nullptr : SafeArrayCreateVector(type, 0, static_cast<ULONG>(random.Below(4)));
}

void SetNumber(Random& random, VARIANT& value) noexcept {
    switch (value.vt) {
    case VT_R4: value.fltVal = static_cast<float>(random.OneIn(2) ? random.Number() : 1e30); return;
    case VT_R8:
    case VT_DATE: value.dblVal = random.OneIn(2) ? random.Number() : random.Of(Doubles); return;
    case VT_ERROR: value.scode = random.OneIn(2) ? DISP_E_PARAMNOTFOUND : random.Number(); return;
    case VT_CY:
    case VT_I8:
    case VT_UI8: value.llVal = static_cast<LONGLONG>(random.OneIn(2) ? random.Next() : 3); return;
    case VT_RECORD: value.pvRecord = nullptr, value.pRecInfo = nullptr; return;
    default: value.lVal = random.Number(); return;
    }
}

// Also the numbers are written behind the type: the place of a decimal number begins with it.
VARIANT ValueOf(World& world, VARTYPE type) {
    VARIANT value;
    VariantInit(&value);
    value.llVal = 0;
    if (type == VT_DECIMAL) {
        value.decVal.Lo64 = world.Draw.Next();
        value.decVal.Hi32 = world.Draw.OneIn(2) ? 0 : static_cast<ULONG>(world.Draw.Next());
        value.decVal.scale = static_cast<BYTE>(world.Draw.Below(29));
        value.decVal.sign = world.Draw.OneIn(2) ? 0 : DECIMAL_NEG;
    }
    value.vt = type;
    if (type == VT_BSTR)
        value.bstrVal = RandomText(world.Draw);
    else if (type == VT_DISPATCH || type == VT_UNKNOWN)
        value.pdispVal = RandomObject(world).Copy();
    else if (type & VT_ARRAY)
        value.parray = RandomArray(world.Draw, type & VT_TYPEMASK);
    else if (type != VT_DECIMAL && type != VT_EMPTY && type != VT_NULL)
        SetNumber(world.Draw, value);
    return value;
}

VARTYPE OwnedType(Random& random) noexcept {
    return random.OneIn(2) ? random.Of(Types) : random.Of(Frequent);
}

} // namespace

BSTR RandomText(Random& random) {
    if (random.OneIn(10)) return nullptr;
    if (random.OneIn(20)) return SysAllocStringLen(std::wstring(5000, L'W').c_str(), 5000);
    if (random.OneIn(20)) return SysAllocStringLen(L"a\0b\0c", 5);
    if (random.OneIn(30)) return SysAllocStringByteLen("odd", 3);
    return SysAllocString(random.Of(Texts));
}

VARIANT OwnedValue(World& world) { return ValueOf(world, OwnedType(world.Draw)); }

RandomVariant::RandomVariant(World& world) : inner_(OwnedValue(world)) {
    VariantInit(&middle_);
    outer_ = inner_;
    if (world.Draw.OneIn(2)) return;
    if (world.Draw.OneIn(20)) {
        VariantClear(&inner_);
        VariantInit(&outer_);
        outer_.vt = world.Draw.Of(None);
        outer_.llVal = 0;
        return;
    }
    Refer(world);
}

// A reference to nothing, to the value, to a variable with the value, or through one more variable; or to itself.
void RandomVariant::Refer(World& world) noexcept {
    VariantInit(&outer_);
    outer_.vt = VT_BYREF | VT_VARIANT;
    outer_.pvarVal = &inner_;
    switch (world.Draw.Below(12)) {
    case 0:
        outer_.vt = static_cast<VARTYPE>(VT_BYREF | std::max<int>(inner_.vt, VT_I2));
        outer_.byref = nullptr;
        return;
    case 1: outer_.pvarVal = &outer_; return;
    case 2:
        middle_ = outer_;
        outer_.pvarVal = &middle_;
        return;
    case 3:
    case 4: return;
    default: break;
    }
    if (inner_.vt <= VT_NULL || inner_.vt == VT_RECORD) return;
    outer_.vt = static_cast<VARTYPE>(VT_BYREF | inner_.vt);
    outer_.byref = inner_.vt == VT_DECIMAL ? static_cast<void*>(&inner_.decVal) : &inner_.llVal;
}

// A value that was not referred to was shown as it is: who was called did not own it.
RandomVariant::~RandomVariant() { VariantClear(&inner_); }

} // namespace vantik
