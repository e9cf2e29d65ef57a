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
    // Without a text of its own it has the system's for the result.
    explicit HostError(HRESULT result, std::u16string text = {}) noexcept;

    HRESULT Result() const noexcept { return result_; }

private:
    HRESULT result_;
};

// What a caller gets for it.
HRESULT ResultOf(const RunTimeError& error) noexcept;

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
HRESULT ReportCurrentException(
    REFIID iid) noexcept; // leaves an IErrorInfo for the caller of the interface, too

// For a failure that leaves none: what an earlier one left would be taken for its own.
inline HRESULT WithoutErrorInfo(HRESULT result) noexcept {
    if (FAILED(result)) SetErrorInfo(0, nullptr);
    return result;
}

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

// The same for an interface whose callers may ask for the text of an error.
template <class Body>
HRESULT Reported(REFIID iid, Body body) noexcept {
    try {
        return WithoutErrorInfo(Run(body));
    } catch (...) {
        return ReportCurrentException(iid);
    }
}

// For a method that may run code of the host: the object outlives the call, whatever the host releases.
template <class Body>
HRESULT Guarded(IUnknown& object, Body body) noexcept {
    const ComPtr<IUnknown> alive(&object);
    return Guarded(body);
}

} // namespace vantik
