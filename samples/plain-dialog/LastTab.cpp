#include "LastTab.h"

#include <windows.h>

namespace {

constexpr wchar_t Key[] = L"Software\\VantikFrameTab samples\\Plain dialog", Value[] = L"LastTab";

} // namespace

std::wstring ReadLastTab() {
    wchar_t caption[128] = {};
    DWORD size = sizeof caption;
    RegGetValueW(HKEY_CURRENT_USER, Key, Value, RRF_RT_REG_SZ, nullptr, caption, &size);
    return caption;
}

void WriteLastTab(const std::wstring& caption) {
    RegSetKeyValueW(HKEY_CURRENT_USER, Key, Value, REG_SZ, caption.c_str(),
                    static_cast<DWORD>((caption.size() + 1) * sizeof(wchar_t)));
}
