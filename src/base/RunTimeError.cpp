#include "base/RunTimeError.h"

namespace vantik {

const char16_t* DescriptionOf(RunTimeErrorNumber number) noexcept {
    switch (number) {
    case RunTimeErrorNumber::InvalidProcedureCall: return u"Invalid procedure call or argument";
    case RunTimeErrorNumber::Overflow: return u"Overflow";
    case RunTimeErrorNumber::OutOfMemory: return u"Out of memory";
    case RunTimeErrorNumber::SubscriptOutOfRange: return u"Subscript out of range";
    case RunTimeErrorNumber::DivisionByZero: return u"Division by zero";
    case RunTimeErrorNumber::TypeMismatch: return u"Type mismatch";
    case RunTimeErrorNumber::InternalError: return u"Internal error";
    case RunTimeErrorNumber::FileNotFound: return u"File not found";
    case RunTimeErrorNumber::DeviceError: return u"Device I/O error";
    case RunTimeErrorNumber::DiskFull: return u"Disk full";
    case RunTimeErrorNumber::PermissionDenied: return u"Permission denied";
    case RunTimeErrorNumber::PathFileAccess: return u"Path/File access error";
    case RunTimeErrorNumber::PathNotFound: return u"Path not found";
    case RunTimeErrorNumber::NoSuchMember: return u"Object doesn't support this property or method";
    case RunTimeErrorNumber::InvalidPicture: return u"Invalid picture";
    }
    return u"Application-defined or object-defined error";
}

} // namespace vantik
