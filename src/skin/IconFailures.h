// Icons whose files cannot be drawn. Their places stay empty and the painting goes on, so that without a word nobody would
// know why.
#pragma once

#include <map>
#include <string>

#include "base/RunTimeError.h"
#include "platform/DebugLine.h"

namespace vantik {

class IconFailures {
public:
    // For use in the error's handler only. Tells of a file once, however often it is tried, until it could be drawn.
    void Failed(const std::u16string& path, RunTimeError& error) noexcept;
    void Succeeded(const std::u16string& path) noexcept {
        if (!failing_.empty()) failing_.erase(path);
    }

private:
    std::map<std::u16string, RepeatedFailure> failing_; // by file
};

} // namespace vantik
