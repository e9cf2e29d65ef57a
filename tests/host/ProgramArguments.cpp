#include "host/ProgramArguments.h"

#include "platform/mDeclares.h"

#include <shellapi.h>

namespace vantik {

std::vector<std::wstring> ProgramArguments() {
    int count = 0;
    wchar_t** texts = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!texts) return {};
    const std::vector<std::wstring> arguments(texts + 1, texts + count);
    LocalFree(texts);
    return arguments;
}

} // namespace vantik
