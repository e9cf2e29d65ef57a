#include "ole/ErrorInfo.h"

#include <new>

#include "ole/Identifiers.h"

namespace vantik {

namespace {

// Run-time error n is this plus n.
constexpr HRESULT RunTimeErrorBase = static_cast<HRESULT>(0x800A0000u);

constexpr bool IsRunTimeError(HRESULT result) { return (result & ~0xFFFF) == RunTimeErrorBase; }

RunTimeErrorNumber NumberOf(HRESULT result) {
    if (IsRunTimeError(result)) return static_cast<RunTimeErrorNumber>(result & 0x7FFF);
    switch (result) {
    case E_OUTOFMEMORY: return RunTimeErrorNumber::OutOfMemory;
    case DISP_E_OVERFLOW: return RunTimeErrorNumber::Overflow;
    case DISP_E_TYPEMISMATCH: return RunTimeErrorNumber::TypeMismatch;
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND: return RunTimeErrorNumber::NoSuchMember;
    default: return RunTimeErrorNumber::InternalError;
    }
}

HRESULT ResultOf(RunTimeErrorNumber number) { return RunTimeErrorBase + static_cast<HRESULT>(number); }

// Best effort: the HRESULT tells the caller even where this fails.
void LeaveErrorInfo(const char16_t* description) noexcept {
    ComPtr<ICreateErrorInfo> creator;
    if (FAILED(CreateErrorInfo(creator.Put()))) return;
    creator->SetGUID(IID__VantikFrameTab);
    creator->SetSource(const_cast<wchar_t*>(ProgId)); // NOLINT: the platform copies it
    creator->SetDescription(const_cast<wchar_t*>(AsWide(description)));
    if (const auto info = creator.As<IErrorInfo>()) SetErrorInfo(0, info.Get());
}

HRESULT Report(RunTimeErrorNumber number) noexcept {
    LeaveErrorInfo(DescriptionOf(number));
    return ResultOf(number);
}

HRESULT Report(const HostError& error) noexcept {
    LeaveErrorInfo(error.Text().empty() ? error.Description() : error.Text().c_str());
    return error.Result();
}

} // namespace

HostError::HostError(HRESULT result, std::u16string description)
    : RunTimeError(NumberOf(result)), result_(result), text_(std::move(description)) {}

void RaiseHostError(HRESULT result) { throw HostError(result); }

HostError ErrorFrom(HRESULT result, EXCEPINFO& exception) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    std::u16string description = FromBstr(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    if (result == DISP_E_EXCEPTION && exception.wCode)
        result = ResultOf(static_cast<RunTimeErrorNumber>(exception.wCode));
    else if (result == DISP_E_EXCEPTION && FAILED(exception.scode))
        result = exception.scode;
    exception = {};
    return HostError(result, std::move(description));
}

HRESULT ResultOfCurrentException() noexcept {
    try {
        throw;
    } catch (const HostError& error) {
        return error.Result();
    } catch (const RunTimeError& error) {
        return ResultOf(error.Number());
    } catch (const std::bad_alloc&) {
        return ResultOf(RunTimeErrorNumber::OutOfMemory);
    } catch (...) {
        return ResultOf(RunTimeErrorNumber::InternalError);
    }
}

HRESULT ReportCurrentException() noexcept {
    try {
        throw;
    } catch (const HostError& error) {
        return Report(error);
    } catch (const RunTimeError& error) {
        return Report(error.Number());
    } catch (const std::bad_alloc&) {
        return Report(RunTimeErrorNumber::OutOfMemory);
    } catch (...) {
        return Report(RunTimeErrorNumber::InternalError);
    }
}

} // namespace vantik
