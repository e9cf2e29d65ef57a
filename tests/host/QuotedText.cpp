#include "host/QuotedText.h"

#include <cwctype>

namespace vantik {

std::wstring Quoted(std::wstring_view text) {
    std::wstring quoted = L"\"";
    for (const wchar_t character : text) {
        switch (character) {
        case L'"': quoted += L"\\\""; break;
        case L'\\': quoted += L"\\\\"; break;
        case L'\r': quoted += L"\\r"; break;
        case L'\n': quoted += L"\\n"; break;
        default: quoted += character;
        }
    }
    return quoted + L'"';
}

std::wstring Unquoted(std::wstring_view quoted) {
    std::wstring text;
    bool escaped = false;
    for (std::size_t i = 1; i < quoted.size(); ++i) {
        const wchar_t character = quoted[i];
        if (escaped) {
            text += character == L'n' ? L'\n' : character == L'r' ? L'\r' : character;
            escaped = false;
        } else if (character == L'\\') {
            escaped = true;
        } else if (character == L'"') {
            if (i + 1 != quoted.size()) throw std::invalid_argument("there is more behind the text");
            return text;
        } else {
            text += character;
        }
    }
    throw std::invalid_argument("the text has no closing quotation mark");
}

std::wstring_view Trimmed(std::wstring_view text) {
    while (!text.empty() && std::iswspace(static_cast<std::wint_t>(text.front()))) text.remove_prefix(1);
    while (!text.empty() && std::iswspace(static_cast<std::wint_t>(text.back()))) text.remove_suffix(1);
    return text;
}

} // namespace vantik
