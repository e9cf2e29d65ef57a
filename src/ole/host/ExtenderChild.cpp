#include "ole/host/ExtenderChild.h"

#include "base/ErrorText.h"
#include "ole/com/ErrorInfo.h"
#include "ole/com/LateBound.h"

namespace vantik {

namespace {

void Fetch(IDispatch* extender, const wchar_t* name, VARTYPE type, Variant& value) {
    GetProperty(extender, name, value);
    Check(value.ChangeType(type));
}

// For what an error says: reading the name may fail for its part.
std::u16string NameOf(IDispatch* extender) noexcept try {
    Variant name;
    Fetch(extender, L"Name", VT_BSTR, name);
    return ErrorText(Quoted{FromBstr(name.bstrVal)});
} catch (...) {
    return ErrorText(u"without a name");
}

// An error of the access tells whose it was.
template <class Access>
void OnChild(IDispatch* extender, Access access) {
    Explaining(access, [&](const RunTimeError& error) {
        return ErrorText(u"Child ", NameOf(extender), u": ", error.Description());
    });
}

void Get(IDispatch* extender, const wchar_t* name, VARTYPE type, Variant& value) {
    OnChild(extender, [&] { Fetch(extender, name, type, value); });
}

void Put(IDispatch* extender, const wchar_t* name, VARIANT& value) {
    OnChild(extender, [&] { PutProperty(extender, name, value); });
}

} // namespace

double ExtenderChild::Left() {
    Variant value;
    Get(extender_.Get(), L"Left", VT_R8, value);
    return value.dblVal;
}

void ExtenderChild::Left(double left) {
    Variant value(left);
    Put(extender_.Get(), L"Left", value);
}

std::u16string ExtenderChild::Name() {
    Variant value;
    Get(extender_.Get(), L"Name", VT_BSTR, value);
    return FromBstr(value.bstrVal);
}

void ExtenderChild::Visible(Boolean visible) {
    Variant value;
    value.vt = VT_BOOL;
    value.boolVal = visible;
    Put(extender_.Get(), L"Visible", value);
}

} // namespace vantik
