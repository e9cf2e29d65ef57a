#include "DebugLines.h"

#include <string_view>
#include <utility>

#include "platform/mDeclares.h"

namespace vantik {

namespace {

// A text for the debugger is an exception with its length, the end included, and its address.
constexpr DWORD AnsiText = 0x40010006, WideText = 0x4001000A;

constexpr std::wstring_view Prefix = L"VantikFrameTab: ";

std::vector<std::string>* Lines = nullptr;

std::string InUtf8(std::wstring_view text) {
    const int wide = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

std::wstring FromAnsi(const char* text) {
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), length);
    wide.resize(wide.size() - 1);
    return wide;
}

LONG CALLBACK Hear(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    const bool isWide = record.ExceptionCode == WideText;
    if (!Lines || (!isWide && record.ExceptionCode != AnsiText)) return EXCEPTION_CONTINUE_SEARCH;
    const ULONG_PTR text = record.ExceptionInformation[1];
    std::wstring line = isWide ? std::wstring(reinterpret_cast<const wchar_t*>(text))
                               : FromAnsi(reinterpret_cast<const char*>(text));
    if (!line.starts_with(Prefix)) return EXCEPTION_CONTINUE_SEARCH;
    if (line.ends_with(L'\n')) line.pop_back();
    Lines->push_back(InUtf8(line.substr(Prefix.size())));
    return EXCEPTION_CONTINUE_EXECUTION; // heard
}

} // namespace

DebugLines::DebugLines() : handler_(AddVectoredExceptionHandler(TRUE, Hear)) {
    delete std::exchange(Lines, new std::vector<std::string>);
}

DebugLines::~DebugLines() {
    RemoveVectoredExceptionHandler(handler_);
    delete std::exchange(Lines, nullptr);
}

std::vector<std::string> DebugLines::Take() { return std::exchange(*Lines, {}); }

} // namespace vantik
