// Late-bound calls: whatever a caller passes reaches the function in its own type, and what the function changed goes
// back into the caller's variable.
#include <doctest/doctest.h>

#include <ArgumentsTest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ole/com/ErrorInfo.h"
#include "ole/com/Module.h"
#include "ole/dispatch/DispatchCall.h"

namespace vantik {

namespace {

// Adds one to every number, turns the flag round and doubles the text.
class Arguments final : public IArguments {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IArguments);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 1; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        return E_NOTIMPL;
    }

    STDMETHODIMP Change(short* number, long* longNumber, BSTR* text, VARIANT_BOOL* flag) noexcept override {
        ++*number, ++*longNumber;
        const std::u16string old = FromBstr(*text);
        AssignBstr(*text, old + old);
        SeenFlag = *flag;
        *flag = *flag ? VARIANT_FALSE : VARIANT_TRUE;
        return S_OK;
    }
    STDMETHODIMP Keep(short* number, short plain, long* sum) noexcept override {
        *sum = *number + plain;
        return S_OK;
    }
    STDMETHODIMP Optional(short, BSTR text, BSTR* result) noexcept override {
        *result = NewBstr(FromBstr(text) + u"!");
        return S_OK;
    }
    STDMETHODIMP get_Colour(OLE_COLOR* value) noexcept override {
        *value = SeenColour;
        return S_OK;
    }
    STDMETHODIMP put_Colour(OLE_COLOR value) noexcept override {
        SeenColour = value;
        return S_OK;
    }
    STDMETHODIMP putref_Face(IFontDisp* value) noexcept override {
        SeenFace = value;
        return S_OK;
    }
    STDMETHODIMP Fail(short* number) noexcept override {
        ++*number;
        return Reported(__uuidof(IArguments), [] { Raise(RunTimeErrorNumber::Overflow); });
    }

    VARIANT_BOOL SeenFlag = 77;
    OLE_COLOR SeenColour = 0;
    IFontDisp* SeenFace = nullptr;
};

ComPtr<ITypeInfo> ArgumentsDescription() {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(AsWide(ModulePath()), REGKIND_NONE, library.Put()));
    ComPtr<ITypeInfo> info;
    Check(library->GetTypeInfoOfGuid(__uuidof(IArguments), info.Put()));
    return info;
}

struct Caller {
    Arguments Object;
    MemberTable Members{ArgumentsDescription()};
    Variant Result;
    UINT WrongArgument = 99;
    EXCEPINFO Exception = {};

    // The arguments in the order of the declaration.
    HRESULT Call(DISPID id, std::vector<VARIANT> arguments, WORD flags = DISPATCH_METHOD,
                 std::vector<DISPID> names = {}) {
        const Member* member = Members.Find(id, flags);
        if (!member) return DISP_E_MEMBERNOTFOUND;
        std::reverse(arguments.begin(), arguments.end());
        DISPPARAMS parameters = {arguments.data(), names.data(), UINT(arguments.size()), UINT(names.size())};
        DispatchCall call(*member, Members.Description(), LOCALE_USER_DEFAULT);
        return call.Invoke(Object, parameters, &Result, &Exception, &WrongArgument);
    }
    HRESULT Put(DISPID id, VARIANT value, WORD flags = DISPATCH_PROPERTYPUT) {
        return Call(id, {value}, flags, {DISPID_PROPERTYPUT});
    }
    ~Caller() {
        SysFreeString(Exception.bstrSource);
        SysFreeString(Exception.bstrDescription);
    }
};

template <class Value>
VARIANT Reference(VARTYPE type, Value& value) {
    VARIANT variant = {};
    variant.vt = static_cast<VARTYPE>(type | VT_BYREF);
    variant.byref = &value;
    return variant;
}

VARIANT Number(std::int32_t value) {
    VARIANT variant = {};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

VARIANT Missing() {
    VARIANT variant = {};
    variant.vt = VT_ERROR;
    variant.scode = DISP_E_PARAMNOTFOUND;
    return variant;
}

enum : DISPID { Change = 1, Keep, Optional, Colour, Face, Fail };

} // namespace

TEST_CASE("References of the parameters' own types are changed in place") {
    Caller caller;
    short number = 1;
    long longNumber = 100000;
    BSTR variable = SysAllocString(L"ab");
    VARIANT_BOOL flag = VARIANT_TRUE;
    CHECK(caller.Call(Change, {Reference(VT_I2, number), Reference(VT_I4, longNumber),
                               Reference(VT_BSTR, variable), Reference(VT_BOOL, flag)}) == S_OK);
    CHECK(number == 2);
    CHECK(longNumber == 100001);
    CHECK(FromBstr(variable) == u"abab");
    CHECK(flag == VARIANT_FALSE);
    SysFreeString(variable);
}

TEST_CASE("References to other types of numbers are converted there and back") {
    Caller caller;
    long number = 1;
    double longNumber = 7;
    BSTR text = nullptr;
    long flag = 0;
    CHECK(caller.Call(Change, {Reference(VT_I4, number), Reference(VT_R8, longNumber),
                               Reference(VT_BSTR, text), Reference(VT_I4, flag)}) == S_OK);
    CHECK(number == 2);
    CHECK(longNumber == 8.0);
    CHECK(flag == -1);
    SysFreeString(text);
}

TEST_CASE("Variables that are variants take the changed values") {
    Caller caller;
    Variant number(std::int32_t{1}), longNumber(5.0), text(u"x"), flag;
    CHECK(caller.Call(Change, {Reference(VT_VARIANT, number), Reference(VT_VARIANT, longNumber),
                               Reference(VT_VARIANT, text), Reference(VT_VARIANT, flag)}) == S_OK);
    CHECK(number.vt == VT_I2);
    CHECK(number.iVal == 2);
    CHECK(longNumber.vt == VT_I4);
    CHECK(longNumber.lVal == 6);
    CHECK(FromBstr(text.bstrVal) == u"xx");
    CHECK(flag.vt == VT_BOOL); // it was empty
    CHECK(flag.boolVal == VARIANT_TRUE);
}

TEST_CASE("A reference inside a variant that is referred to is written through") {
    Caller caller;
    short number = 4;
    VARIANT inner = Reference(VT_I2, number);
    Variant longNumber(std::int32_t{1}), text(u"");
    CHECK(caller.Call(Change, {Reference(VT_VARIANT, inner), Reference(VT_VARIANT, longNumber),
                               Reference(VT_VARIANT, text)}) == S_OK);
    CHECK(number == 5);
    CHECK(inner.vt == (VT_BYREF | VT_I2));
}

TEST_CASE("Variants that refer to each other without end are refused") {
    Caller caller;
    VARIANT endless = {};
    endless.vt = VT_BYREF | VT_VARIANT;
    endless.pvarVal = &endless;
    CHECK(FAILED(caller.Call(Keep, {endless, Number(1)})));
    CHECK(caller.WrongArgument == 1);
}

TEST_CASE("Arguments by value are left alone") {
    Caller caller;
    VARIANT number = Number(1), longNumber = Number(2);
    Variant text(u"a");
    CHECK(caller.Call(Change, {number, longNumber, text}) == S_OK);
    CHECK(FromBstr(text.bstrVal) == u"a");
}

TEST_CASE("A variable that does not change keeps its type") {
    Caller caller;
    Variant number(40.0);
    CHECK(caller.Call(Keep, {Reference(VT_VARIANT, number), Number(2)}) == S_OK);
    CHECK(number.vt == VT_R8);
    CHECK(caller.Result.lVal == 42);
}

TEST_CASE("Optional arguments that are left out, or marked so, have their defaults") {
    Caller caller;
    short number = 1;
    long longNumber = 1;
    Variant text(u"a");
    for (const bool marked : {false, true}) {
        std::vector<VARIANT> arguments = {Reference(VT_I2, number), Reference(VT_I4, longNumber), text};
        if (marked) arguments.push_back(Missing());
        caller.Object.SeenFlag = 77;
        CHECK(caller.Call(Change, arguments) == S_OK);
        CHECK(caller.Object.SeenFlag == VARIANT_FALSE);
    }
    CHECK(caller.Call(Optional, {Number(1)}) == S_OK);
    CHECK(FromBstr(caller.Result.bstrVal) == u"!");
}

TEST_CASE("Wrong counts are refused before anything is called") {
    Caller caller;
    CHECK(caller.Call(Keep, {Number(1)}) == DISP_E_BADPARAMCOUNT);
    CHECK(caller.Call(Keep, {Number(1), Number(2), Number(3)}) == DISP_E_BADPARAMCOUNT);
    CHECK(caller.Call(Keep, {}) == DISP_E_BADPARAMCOUNT);
}

TEST_CASE("A wrong type or a number out of range names the argument by its place in the caller's array") {
    Caller caller;
    Variant text(u"abc");
    CHECK(caller.Call(Keep, {text, Number(1)}) == DISP_E_TYPEMISMATCH);
    CHECK(caller.WrongArgument == 1);
    CHECK(caller.Call(Keep, {Number(1), Number(70000)}) == DISP_E_OVERFLOW);
    CHECK(caller.WrongArgument == 0);
    CHECK(caller.Call(Keep, {Missing(), Number(1)}) == DISP_E_PARAMNOTOPTIONAL);
    CHECK(caller.WrongArgument == 1);
}

TEST_CASE("Named arguments find their parameters") {
    Caller caller;
    // In the array: the named one, which is the second parameter, then the first.
    CHECK(caller.Call(Keep, {Number(40), Number(2)}, DISPATCH_METHOD, {1}) == S_OK);
    CHECK(caller.Result.lVal == 42);
    CHECK(caller.Call(Keep, {Number(40), Number(2)}, DISPATCH_METHOD, {7}) == DISP_E_PARAMNOTFOUND);
    CHECK(caller.WrongArgument == 0);
    CHECK(caller.Call(Keep, {Number(40), Number(2)}, DISPATCH_METHOD, {0}) ==
          DISP_E_PARAMNOTFOUND); // given twice
}

TEST_CASE("A colour travels as a signed number, and any way of writing it is understood") {
    Caller caller;
    CHECK(caller.Put(Colour, Number(std::int32_t(0x8000000F))) == S_OK);
    CHECK(caller.Object.SeenColour == 0x8000000Fu);
    CHECK(caller.Put(Colour, Variant(2147483663.0)) == S_OK);
    CHECK(caller.Object.SeenColour == 0x8000000Fu);
    CHECK(caller.Call(Colour, {}, DISPATCH_METHOD | DISPATCH_PROPERTYGET) == S_OK);
    CHECK(caller.Result.vt == VT_I4);
    CHECK(caller.Result.lVal == std::int32_t(0x8000000F));
}

TEST_CASE("An object is asked for the parameter's interface, and nothing else will do") {
    Caller caller;
    VARIANT nothing = {};
    nothing.vt = VT_DISPATCH;
    CHECK(caller.Put(Face, nothing, DISPATCH_PROPERTYPUTREF) == S_OK);
    CHECK(caller.Object.SeenFace == nullptr);
    CHECK(caller.Put(Face, Number(1), DISPATCH_PROPERTYPUTREF) == DISP_E_TYPEMISMATCH);
    CHECK(caller.Put(Face, Number(0), DISPATCH_PROPERTYPUTREF) == DISP_E_TYPEMISMATCH);
    VARIANT broken = {};
    broken.vt = VT_BSTR | VT_VECTOR; // no variant holds one
    CHECK(caller.Put(Face, broken, DISPATCH_PROPERTYPUTREF) == DISP_E_BADVARTYPE);
    CHECK(caller.Put(Face, nothing, DISPATCH_PROPERTYPUT) ==
          DISP_E_MEMBERNOTFOUND); // there is only a put by reference
}

TEST_CASE("A reference that leads nowhere is no value, whatever type it says") {
    for (const VARTYPE type : {VT_I2, VT_I4, VT_R8, VT_BOOL, VT_BSTR, VT_CY, VT_DATE, VT_DECIMAL, VT_DISPATCH,
                               VT_UNKNOWN, VT_ERROR, VT_SAFEARRAY, VT_RECORD, VT_VARIANT}) {
        CAPTURE(type);
        Caller caller;
        VARIANT nowhere = {};
        nowhere.vt = static_cast<VARTYPE>(type | VT_BYREF);
        const HRESULT expected = type == VT_VARIANT ? DISP_E_BADPARAMCOUNT : DISP_E_TYPEMISMATCH;
        CHECK(caller.Put(Face, nowhere, DISPATCH_PROPERTYPUTREF) == expected);
        CHECK(caller.Put(Colour, nowhere) == expected);
        CHECK(caller.Call(Keep, {nowhere, Number(1)}) == expected);
        VARIANT around = Reference(VT_VARIANT, nowhere);
        CHECK(caller.Put(Face, around, DISPATCH_PROPERTYPUTREF) == expected);
    }
}

TEST_CASE("A failing function reports its run-time error, and what it changed by then is written back") {
    Caller caller;
    long number = 1;
    CHECK(caller.Call(Fail, {Reference(VT_I4, number)}) == DISP_E_EXCEPTION);
    CHECK(caller.Exception.scode == HRESULT(0x800A0006));
    CHECK(FromBstr(caller.Exception.bstrDescription) == u"Overflow");
    CHECK(number == 2);
    BYTE small = 255; // takes no 256, which does not hide the function's own error
    CHECK(caller.Call(Fail, {Reference(VT_UI1, small)}) == DISP_E_EXCEPTION);
    CHECK(small == 255);
}

} // namespace vantik
