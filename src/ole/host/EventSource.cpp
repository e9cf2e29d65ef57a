#include "ole/host/EventSource.h"

#include "ole/com/ErrorInfo.h"

namespace vantik {

namespace {

enum Event : DISPID {
    DispIdDownBarDown = 1,
    DispIdPreTabDown,
    DispIdNextTabDown,
    DispIdTabMove,
    DispIdTabDown,
    DispIdTabClose,
};

VARIANTARG ByReference(std::int16_t& value) noexcept {
    VARIANTARG argument = {};
    argument.vt = VT_BYREF | VT_I2;
    argument.piVal = &value;
    return argument;
}

// Whether the sink only says that it does not handle the event, or is gone.
bool MeansNoHandler(HRESULT result) noexcept {
    switch (result) {
    case DISP_E_MEMBERNOTFOUND:
    case E_NOTIMPL:
    case RPC_E_DISCONNECTED:
    case RPC_E_SERVER_DIED:
    case RPC_E_SERVER_DIED_DNE:
    case CO_E_OBJNOTCONNECTED: return true;
    default: return false;
    }
}

void Call(IDispatch& sink, DISPID event, DISPPARAMS& parameters) {
    EXCEPINFO exception = {};
    const HRESULT result = sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                       nullptr, &exception, nullptr);
    if (FAILED(result) && !MeansNoHandler(result)) throw ErrorFrom(result, exception);
}

} // namespace

void EventSource::Fire(DISPID event, VARIANTARG* arguments, UINT count) {
    if (freezes_) return;
    const ComPtr<IUnknown> alive(&controlling_);
    DISPPARAMS parameters = {arguments, nullptr, count, 0};
    sinks_.ForEach<IDispatch>([&](IDispatch& sink) { Call(sink, event, parameters); });
}

void EventSource::FireIndex(DISPID event, std::int16_t& index) {
    VARIANTARG argument = ByReference(index);
    Fire(event, &argument, 1);
}

void EventSource::DownBarDown() { Fire(DispIdDownBarDown, nullptr, 0); }
void EventSource::PreTabDown(std::int16_t& firstPos) { FireIndex(DispIdPreTabDown, firstPos); }
void EventSource::NextTabDown(std::int16_t& firstPos) { FireIndex(DispIdNextTabDown, firstPos); }
void EventSource::TabClose(std::int16_t& index) { FireIndex(DispIdTabClose, index); }

void EventSource::TabMove(std::int16_t& index) {
    if (told_ && told_->Tab == index)
        index = told_->Answer;
    else
        FireIndex(DispIdTabMove, index);
}

void EventSource::TabDown(std::int16_t& index, std::int16_t& button) {
    VARIANTARG arguments[] = {ByReference(button), ByReference(index)};
    Fire(DispIdTabDown, arguments, 2);
}

void EventSource::Freeze(bool freeze) noexcept {
    if (freeze)
        ++freezes_;
    else if (freezes_)
        --freezes_;
}

} // namespace vantik
