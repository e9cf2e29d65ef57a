#include "Events.h"

namespace {

constexpr DISPID DownBarDownEvent = 1, TabDownEvent = 5, TabCloseEvent = 6;

} // namespace

Events::Events(IUnknown& control) {
    IConnectionPoint* point = nullptr;
    Check(Query<IConnectionPointContainer>(control)->FindConnectionPoint(DIID___VantikFrameTab, &point));
    point_.reset(point);
    Check(point_->Advise(this, &cookie_));
}

STDMETHODIMP Events::QueryInterface(REFIID id, void** object) noexcept {
    *object = id == IID_IUnknown || id == IID_IDispatch || id == DIID___VantikFrameTab ? this : nullptr;
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
