// Driving an automation object by the names of its members, as a script does.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/HostError.h"
#include "host/Variant.h"

namespace vantik {

// What the called object reported: the text and number that a script's Err object shows.
class AutomationError : public HostError {
public:
    AutomationError(const std::string& text, HRESULT code, std::wstring description)
        : HostError(text, code), description_(std::move(description)) {}

    // The run-time error number where the code carries one, else 0.
    int Number() const noexcept {
        return HRESULT_FACILITY(Code()) == FACILITY_CONTROL ? HRESULT_CODE(Code()) : 0;
    }
    const std::wstring& Description() const noexcept { return description_; }

private:
    std::wstring description_;
};

// Empty when the object has no member of that name.
std::optional<DISPID> FindMember(IDispatch& object, std::wstring_view name);

// Arguments stand in the order of the declaration. Throw AutomationError, DISP_E_UNKNOWNNAME for an unknown member.
Variant Call(IDispatch& object, std::wstring_view name, std::vector<Variant> arguments = {});
Variant Get(IDispatch& object, std::wstring_view name);
void Put(IDispatch& object, std::wstring_view name, Variant value);
void PutReference(IDispatch& object, std::wstring_view name, IDispatch* value);

// The raw call; the flags are those of IDispatch::Invoke.
Variant Invoke(IDispatch& object, std::wstring_view name, WORD flags, std::vector<Variant> arguments);

} // namespace vantik
