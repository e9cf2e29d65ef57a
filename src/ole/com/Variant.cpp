#include "ole/com/Variant.h"

#include "base/RunTimeError.h"

namespace vantik {

Variant::Variant(std::u16string_view text) : Variant() {
    bstrVal = NewBstr(text);
    vt = VT_BSTR;
}

BSTR NewBstr(std::u16string_view text) {
    const BSTR copy = SysAllocStringLen(AsWide(text.data()), static_cast<UINT>(text.size()));
    if (!copy) Raise(RunTimeErrorNumber::OutOfMemory);
    return copy;
}

void AssignBstr(BSTR& target, std::u16string_view text) {
    const BSTR copy = NewBstr(text);
    SysFreeString(std::exchange(target, copy));
}

} // namespace vantik
