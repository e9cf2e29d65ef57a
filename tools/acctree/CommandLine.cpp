#include "acctree/CommandLine.h"

#include <cwchar>
#include <string_view>

namespace vantik {

namespace {

std::optional<int> Seconds(const wchar_t* text) {
    wchar_t* end = nullptr;
    const long value = std::wcstol(text, &end, 10);
    if (*text == L'\0' || *end != L'\0' || value < 0 || value > 3600) return std::nullopt;
    return static_cast<int>(value);
}

} // namespace

std::optional<CommandLine> Parse(int count, wchar_t** arguments) {
    CommandLine line;
    for (int i = 1; i < count; ++i) {
        const std::wstring_view argument = arguments[i];
        if (argument == L"--help") {
            line.Help = true;
            return line;
        }
        if (argument == L"--check") {
            line.Check = true;
        } else if (argument == L"--until-gone") {
            line.UntilGone = true;
        } else if (argument == L"--wait") {
            const auto seconds = i + 1 < count ? Seconds(arguments[++i]) : std::nullopt;
            if (!seconds) return std::nullopt;
            line.WaitSeconds = *seconds;
        } else if (argument.starts_with(L"-") || !line.Window.empty()) {
            return std::nullopt;
        } else {
            line.Window = argument;
        }
    }
    if (line.Window.empty() || (line.Check && line.UntilGone)) return std::nullopt;
    return line;
}

} // namespace vantik
