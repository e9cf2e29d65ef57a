// The form's end of the control's events.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/ControlModule.h"
#include "host/NumberedDispatch.h"

namespace vantik {

// One event under way. Arguments are the control's own variables: what is assigned to them, the control reads.
class EventCall {
public:
    EventCall(const EventDeclaration& declaration, DISPPARAMS& parameters) noexcept
        : declaration_(declaration), parameters_(parameters) {}

    const std::wstring& Name() const noexcept { return declaration_.Name; }
    std::size_t Count() const noexcept { return parameters_.cArgs; }
    std::int16_t& Argument(std::size_t index) const; // throws when it is no 16-bit variable
    std::wstring Text() const;                       // "TabDown(Index=2, Button=1)"

private:
    const EventDeclaration& declaration_;
    DISPPARAMS& parameters_;
};

using EventHandler = std::function<void(EventCall&)>;

class EventSink final : public ComObject<NumberedDispatch> {
public:
    EventSink(const ControlModule& module, EventHandler handler)
        : module_(module), handler_(std::move(handler)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO*, UINT*) noexcept override;

private:
    const ControlModule& module_;
    EventHandler handler_;
};

} // namespace vantik
