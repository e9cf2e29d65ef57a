#include "platform/DebugLine.h"

#include <algorithm>
#include <new>
#include <utility>

#include "base/ErrorText.h"
#include "platform/mDeclares.h"

namespace vantik {

namespace {

struct Ending {
    std::int16_t Number;
    std::u16string Line; // empty where there is no memory for it
};

Ending EndingBy(const RunTimeError& error, const char16_t* when) noexcept {
    const auto number = static_cast<std::int16_t>(error.Number());
    return {number,
            ErrorText(u"VantikFrameTab: error ", number, u" ", when, u": ", error.Description(), u"\n")};
}

// By the exception under way.
Ending CurrentEnding(const char16_t* when) noexcept {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return EndingBy(error, when);
    } catch (const std::bad_alloc&) {
        return EndingBy(RunTimeError(RunTimeErrorNumber::OutOfMemory), when);
    } catch (...) {
        return EndingBy(RunTimeError(RunTimeErrorNumber::InternalError), when);
    }
}

// In one line: a host's description may have several.
void Write(std::u16string line) noexcept {
    if (line.empty()) return OutputDebugStringW(L"VantikFrameTab: error 7: Out of memory\n");
    const auto isControl = [](char16_t c) { return c < u' '; };
    std::replace_if(line.begin(), line.end() - 1, isControl, u' ');
    OutputDebugStringW(AsWide(line));
}

} // namespace

void TellDebugger(const char16_t* when) noexcept { Write(CurrentEnding(when).Line); }

void RepeatedFailure::Failed(const char16_t* when) noexcept {
    Ending ending = CurrentEnding(when);
    if (std::exchange(last_, ending.Number) != ending.Number) Write(std::move(ending.Line));
}

} // namespace vantik
