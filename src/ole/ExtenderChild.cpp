#include "ole/ExtenderChild.h"

#include "ole/ErrorInfo.h"
#include "ole/LateBound.h"

namespace vantik {

double ExtenderChild::Left() {
    Variant value;
    GetProperty(extender_.Get(), L"Left", value);
    Check(value.ChangeType(VT_R8));
    return value.dblVal;
}

void ExtenderChild::Left(double left) {
    Variant value(left);
    PutProperty(extender_.Get(), L"Left", value);
}

std::u16string ExtenderChild::Name() {
    Variant value;
    GetProperty(extender_.Get(), L"Name", value);
    Check(value.ChangeType(VT_BSTR));
    return FromBstr(value.bstrVal);
}

void ExtenderChild::Visible(Boolean visible) {
    Variant value;
    value.vt = VT_BOOL;
    value.boolVal = visible;
    PutProperty(extender_.Get(), L"Visible", value);
}

} // namespace vantik
