#include "skin/IconFailures.h"

#include <new>

#include "base/ErrorText.h"

namespace vantik {

void IconFailures::Failed(const std::u16string& path, RunTimeError& error) noexcept {
    constexpr const char16_t* when = u"while an icon was drawn";
    if (!error.IsExplained()) error.Explain(ErrorText(PathText{path}, u": ", error.Description()));
    try {
        failing_[path].Failed(when);
    } catch (const std::bad_alloc&) {
        TellDebugger(when);
    }
}

} // namespace vantik
