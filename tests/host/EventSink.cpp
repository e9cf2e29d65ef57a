#include "host/EventSink.h"

#include <algorithm>

#include "host/HostError.h"
#include "host/Variant.h"

namespace vantik {

std::int16_t& EventCall::Argument(std::size_t index) const {
    if (index >= Count()) throw HostError("the event has no such argument", DISP_E_BADPARAMCOUNT);
    const VARIANT& argument = parameters_.rgvarg[Count() - 1 - index]; // they come in reverse order
    if (argument.vt != (VT_BYREF | VT_I2))
        throw HostError("the argument is no 16-bit variable", DISP_E_TYPEMISMATCH);
    return *argument.piVal;
}

std::wstring EventCall::Text() const {
    std::wstring text = Name() + L"(";
    for (std::size_t i = 0; i < Count(); ++i) {
        if (i > 0) text += L", ";
        if (i < declaration_.Arguments.size()) text += declaration_.Arguments[i] + L"=";
        text += std::to_wstring(Argument(i));
    }
    return text + L")";
}

HRESULT EventSink::QueryInterface(REFIID id, void** object) noexcept {
    const bool asksForEvents = id == module_.EventsId(); // a dispatch interface under its own name
    return ComObject::QueryInterface(asksForEvents ? __uuidof(IDispatch) : id, object);
}

HRESULT EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                          UINT*) noexcept {
    if (!parameters) return E_POINTER;
    const auto& events = module_.Events();
    const auto event = std::find_if(events.begin(), events.end(),
                                    [id](const EventDeclaration& each) { return each.Id == id; });
    if (event == events.end()) return DISP_E_MEMBERNOTFOUND;
    return Guarded([&] {
        const ComPtr<EventSink> alive(this); // the handler may close the form
        EventCall call(*event, *parameters);
        if (handler_) handler_(call);
        return S_OK;
    });
}

} // namespace vantik
