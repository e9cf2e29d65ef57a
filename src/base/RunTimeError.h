// The run-time errors that the control raises to its caller.
#pragma once

#include <cstdint>
#include <exception>

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
    explicit RunTimeError(RunTimeErrorNumber number) noexcept : number_(number) {}

    RunTimeErrorNumber Number() const noexcept { return number_; }
    const char16_t* Description() const noexcept { return DescriptionOf(number_); }
    const char* what() const noexcept override { return "run-time error"; }

private:
    RunTimeErrorNumber number_;
};

[[noreturn]] inline void Raise(RunTimeErrorNumber number) { throw RunTimeError(number); }

} // namespace vantik
