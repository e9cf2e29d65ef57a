#include "ole/pages/ScratchControl.h"

#include <VantikFrameTabProject.h>
#include <doctest/doctest.h>

namespace vantik {

// Another control would show a message, and wait until somebody presses it away.
TEST_CASE("A control that only serves for a picture says what is not there by an error") {
    constexpr auto FileNotFound = static_cast<HRESULT>(0x800A0035);
    const auto control = QueryFor<::_VantikFrameTab>(NewControl().Get());
    BSTR missing = SysAllocString(L"no such skin");
    CHECK(control->put_SkinPath(missing) == FileNotFound);
    CHECK(control->put_SkinFile(missing) == FileNotFound);
    SysFreeString(missing);
}

} // namespace vantik
