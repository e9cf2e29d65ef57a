#include "base/FilePath.h"

#include <cstdint>
#include <new>

#include <sys/stat.h>

namespace vantik {

namespace {

bool IsHigh(char16_t c) noexcept { return (c & 0xFC00) == 0xD800; }
bool IsLow(char16_t c) noexcept { return (c & 0xFC00) == 0xDC00; }

// The character at `index`, which moves to the last of its units.
char32_t CharacterAt(std::u16string_view text, std::size_t& index) {
    const char16_t first = text[index];
    if (!IsHigh(first) && !IsLow(first)) return first;
    if (!IsHigh(first) || index + 1 == text.size() || !IsLow(text[index + 1])) return 0xFFFD;
    const char32_t low = text[++index] & 0x3FFu;
    return 0x10000u + ((first & 0x3FFu) << 10) + low;
}

void AppendUtf8(std::string& bytes, char32_t c) {
    const auto tail = [&](unsigned shift) {
        bytes.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F)));
    };
    if (c < 0x80) {
        bytes.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        bytes.push_back(static_cast<char>(0xC0 | (c >> 6)));
    } else if (c < 0x10000) {
        bytes.push_back(static_cast<char>(0xE0 | (c >> 12)));
        tail(6);
    } else {
        bytes.push_back(static_cast<char>(0xF0 | (c >> 18)));
        tail(12);
        tail(6);
    }
    if (c >= 0x80) tail(0);
}

} // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) AppendUtf8(bytes, CharacterAt(text, i));
    return bytes;
}

bool FolderOfPathExists(const std::u16string& path) noexcept try {
    const std::size_t end = path.find_last_of(u"\\/");
    // The trailing "." makes a name of roots too ("C:\.").
    return end == std::u16string::npos || IsFolder(path.substr(0, end + 1) + u".");
} catch (const std::bad_alloc&) {
    return false;
}

#ifdef _WIN32

namespace {

const wchar_t* AsWideText(const std::u16string& text) noexcept {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

} // namespace

bool IsFolder(const std::u16string& path) noexcept {
    struct _stat64 status = {};
    return _wstat64(AsWideText(path), &status) == 0 && (status.st_mode & _S_IFDIR) != 0;
}

#else

bool IsFolder(const std::u16string& path) noexcept try {
    struct stat status = {};
    return stat(ToUtf8(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
} catch (const std::bad_alloc&) {
    return false;
}

#endif

} // namespace vantik
