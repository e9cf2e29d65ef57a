#include "ole/com/ErrorInfo.h"

#include <iterator>
#include <new>
#include <string_view>
#include <utility>

#include "ole/com/Identifiers.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

// Run-time error n is this plus n.
constexpr HRESULT RunTimeErrorBase = static_cast<HRESULT>(0x800A0000u);

constexpr bool IsRunTimeError(HRESULT result) { return (result & ~0xFFFF) == RunTimeErrorBase; }

RunTimeErrorNumber NumberOf(HRESULT result) noexcept {
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

HRESULT ResultOf(RunTimeErrorNumber number) noexcept {
    return RunTimeErrorBase + static_cast<HRESULT>(number);
}

// "0x" and eight digits.
std::u16string HexadecimalText(HRESULT result) {
    std::u16string text = u"0x";
    for (int shift = 28; shift >= 0; shift -= 4)
        text.push_back(u"0123456789ABCDEF"[(static_cast<ULONG>(result) >> shift) & 0xF]);
    return text;
}

// What the system says of a result, in one line without a full stop.
std::u16string SystemText(HRESULT result) noexcept try {
    char16_t text[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                   nullptr, static_cast<DWORD>(result), 0, AsWide(text), static_cast<DWORD>(std::size(text)),
                   nullptr);
    const std::u16string_view line = text;
    const std::size_t last = line.find_last_not_of(u" .\r\n");
    if (last == std::u16string_view::npos) return u"Error " + HexadecimalText(result);
    return std::u16string(line.substr(0, last + 1));
} catch (const std::bad_alloc&) {
    return {};
}

// A result that a run-time error stands for has that error's text.
std::u16string TextFor(HRESULT result) noexcept {
    return NumberOf(result) == RunTimeErrorNumber::InternalError ? SystemText(result) : std::u16string();
}

// Best effort: the HRESULT tells the caller even where this fails.
void LeaveErrorInfo(REFIID iid, const char16_t* description) noexcept {
    SetErrorInfo(0, nullptr);
    ComPtr<ICreateErrorInfo> creator;
    if (FAILED(CreateErrorInfo(creator.Put()))) return;
    creator->SetGUID(iid);
    creator->SetSource(const_cast<wchar_t*>(ProgId)); // NOLINT: the platform copies it
    creator->SetDescription(const_cast<wchar_t*>(AsWide(description)));
    if (const auto info = creator.As<IErrorInfo>()) SetErrorInfo(0, info.Get());
}

// Calls `use` with the result and the description of the exception under way.
template <class Use>
HRESULT WithCurrentException(Use use) noexcept {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return use(ResultOf(error), error.Description());
    } catch (const std::bad_alloc&) {
        constexpr auto number = RunTimeErrorNumber::OutOfMemory;
        return use(ResultOf(number), DescriptionOf(number));
    } catch (...) {
        constexpr auto number = RunTimeErrorNumber::InternalError;
        return use(ResultOf(number), DescriptionOf(number));
    }
}

} // namespace

HostError::HostError(HRESULT result, std::u16string text) noexcept
    : RunTimeError(NumberOf(result), text.empty() ? TextFor(result) : std::move(text)), result_(result) {}

void RaiseHostError(HRESULT result) { throw HostError(result); }

HRESULT ResultOf(const RunTimeError& error) noexcept {
    const auto* fromHost = dynamic_cast<const HostError*>(&error);
    return fromHost ? fromHost->Result() : ResultOf(error.Number());
}

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
    TellIfShortage();
    return WithCurrentException([](HRESULT result, const char16_t*) { return result; });
}

HRESULT ReportCurrentException(REFIID iid) noexcept {
    TellIfShortage();
    return WithCurrentException([&](HRESULT result, const char16_t* description) {
        LeaveErrorInfo(iid, description);
        return result;
    });
}

} // namespace vantik
