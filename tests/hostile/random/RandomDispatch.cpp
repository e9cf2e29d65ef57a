#include "hostile/random/RandomDispatch.h"

namespace vantik {

namespace {

HRESULT STDAPICALLTYPE FillIn(EXCEPINFO* exception) {
    exception->bstrDescription = SysAllocString(L"filled in later");
    return exception->wCode ? S_OK : E_FAIL;
}

} // namespace

HRESULT AnyNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    for (UINT i = 0; i < count; ++i) ids[i] = names[i] ? static_cast<DISPID>(names[i][0]) : DISPID_UNKNOWN;
    return S_OK;
}

HRESULT Fail(World& world, HRESULT result, EXCEPINFO* exception) noexcept {
    if (!exception || world.Draw.OneIn(2)) return result;
    *exception = {};
    exception->bstrSource = RandomText(world.Draw);
    exception->bstrDescription = RandomText(world.Draw);
    exception->wCode = static_cast<WORD>(world.Draw.Below(3) * 5);
    exception->scode = exception->wCode ? 0 : world.Draw.Number();
    if (world.Draw.OneIn(3)) {
        SysFreeString(std::exchange(exception->bstrDescription, nullptr));
        exception->pfnDeferredFillIn = FillIn;
    }
    return DISP_E_EXCEPTION;
}

} // namespace vantik
