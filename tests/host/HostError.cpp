#include "host/HostError.h"

#include <cstdio>

namespace vantik {

std::string ToUtf8(std::wstring_view text) {
    const int wide = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, result.data(), bytes, nullptr, nullptr);
    return result;
}

std::wstring FromUtf8(std::string_view text) {
    const int bytes = static_cast<int>(text.size());
    const int wide = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(wide), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, result.data(), wide);
    return result;
}

void Check(HRESULT result, std::string_view call) {
    if (SUCCEEDED(result)) return;
    char code[16];
    std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(result));
    throw HostError(std::string(call) + " failed: " + code, result);
}

} // namespace vantik
