// The run-time errors that the control raises to its caller.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace vantik {

// The numbers are the host language's own; the COM shell reports number n as HRESULT 0x800A0000 + n.
enum class RunTimeErrorNumber : std::int16_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    NoSuchMember = 438,
    InvalidPicture = 481,
};

// The text that a host shows for the number.
const char16_t* DescriptionOf(RunTimeErrorNumber number) noexcept;

class RunTimeError : public std::exception {
public:
    // The text says what went wrong and where, as far as whoever raises the error knows it.
    explicit RunTimeError(RunTimeErrorNumber number, std::u16string text = {}) noexcept
        : number_(number), text_(std::move(text)) {}

    RunTimeErrorNumber Number() const noexcept { return number_; }

    // The number's own text where there is no other.
    const char16_t* Description() const noexcept {
        return text_.empty() ? DescriptionOf(number_) : text_.c_str();
    }
    const char* what() const noexcept override { return "run-time error"; }

    bool IsExplained() const noexcept { return !text_.empty(); }

    // For those who know more than whoever raised it. An empty text - there was no memory for it - changes nothing.
    void Explain(std::u16string text) noexcept {
        if (!text.empty()) text_ = std::move(text);
    }

private:
    RunTimeErrorNumber number_;
    std::u16string text_;
};

[[noreturn]] inline void Raise(RunTimeErrorNumber number) { throw RunTimeError(number); }

} // namespace vantik
