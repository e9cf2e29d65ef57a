// The wall between exceptions and HRESULTs: inside, errors are thrown; nothing thrown passes a COM method.
#pragma once

#include <type_traits>

#include "base/RunTimeError.h"
#include "platform/ComPtr.h"

namespace vantik {

// An error that the host, or an object of it, reported. It travels through the engine as a run-time error and goes back to
// the caller as it came.
class HostError : public RunTimeError {
public:
    explicit HostError(HRESULT result, std::u16string description = {});

    HRESULT Result() const noexcept { return result_; }
    const std::u16string& Text() const noexcept { return text_; }

private:
    HRESULT result_;
    std::u16string text_;
};

[[noreturn]] void RaiseHostError(HRESULT result);
inline void Check(HRESULT result) {
    if (FAILED(result)) RaiseHostError(result);
}

// What the host says in its EXCEPINFO, whose strings are released here.
HostError ErrorFrom(HRESULT result, EXCEPINFO& exception);

// The caller's pointer, which must not be null.
template <class Value>
Value& Required(Value* pointer) {
    if (!pointer) RaiseHostError(E_POINTER);
    return *pointer;
}

// For use in a handler only.
HRESULT ResultOfCurrentException() noexcept;
HRESULT ReportCurrentException() noexcept; // leaves an IErrorInfo for the caller, too

template <class Body>
HRESULT Run(Body& body) {
    if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
        body();
        return S_OK;
    } else {
        return body();
    }
}

// Runs the body of a COM method.
template <class Body>
HRESULT Guarded(Body body) noexcept {
    try {
        return Run(body);
    } catch (...) {
        return ResultOfCurrentException();
    }
}

// The same for a method that may run code of the host: the object outlives the call, whatever the host releases.
template <class Body>
HRESULT Guarded(IUnknown& object, Body body) noexcept {
    const ComPtr<IUnknown> alive(&object);
    return Guarded(body);
}

} // namespace vantik
