#include "Events.h"

namespace {

constexpr DISPID DownBarDownEvent = 1, TabDownEvent = 5, TabCloseEvent = 6;

} // namespace

// The control itself says which interface its events go to.
Events::Events(IUnknown& control) {
    Check(Query<IProvideClassInfo2>(control)->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id_));
    IConnectionPoint* point = nullptr;
    Check(Query<IConnectionPointContainer>(control)->FindConnectionPoint(id_, &point));
    point_.reset(point);
    Check(point_->Advise(this, &cookie_));
}

STDMETHODIMP Events::QueryInterface(REFIID id, void** object) noexcept {
    *object = id == IID_IUnknown || id == IID_IDispatch || id == id_ ? this : nullptr;
    return *object ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP Events::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

// Arguments come last first, each by reference.
void Events::Hear(DISPID event, const DISPPARAMS& arguments) {
    if (event == DownBarDownEvent && MenuDown) MenuDown();
    if (event == TabDownEvent && TabDown) TabDown(*arguments.rgvarg[1].piVal, *arguments.rgvarg[0].piVal);
    if (event == TabCloseEvent && TabClose) TabClose(*arguments.rgvarg[0].piVal);
}

// No exception leaves by the control, whatever compiler that was made with.
STDMETHODIMP Events::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                            UINT*) noexcept {
    try {
        Hear(event, *arguments);
        return S_OK;
    } catch (const ComError& error) {
        return error.Result;
    }
}
