// The one place that includes the Windows headers, and the bridges between their text type and ours.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <string>
#include <string_view>

namespace vantik {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows text is UTF-16");

inline wchar_t* AsWide(char16_t* text) noexcept { return reinterpret_cast<wchar_t*>(text); }
inline const wchar_t* AsWide(const char16_t* text) noexcept { return reinterpret_cast<const wchar_t*>(text); }
inline const char16_t* AsChar16(const wchar_t* text) noexcept {
    return reinterpret_cast<const char16_t*>(text);
}
inline const wchar_t* AsWide(const std::u16string& text) noexcept { return AsWide(text.c_str()); }

inline std::u16string FromWide(std::wstring_view text) { return {text.begin(), text.end()}; }
inline std::u16string FromBstr(BSTR text) {
    return text ? FromWide({text, SysStringLen(text)}) : std::u16string();
}

} // namespace vantik
