#include "base/Text.h"

#include "platform/Doubt.h"
#include "platform/mDeclares.h"

namespace vantik {

std::u16string UpperCase(std::u16string_view text) {
    std::u16string upper(text);
    CharUpperBuffW(AsWide(upper.data()), static_cast<DWORD>(upper.size()));
    return upper;
}

std::u16string DecodeAnsi(std::string_view bytes) {
    if (bytes.empty()) return {};
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::u16string text(static_cast<std::size_t>(length), u'\0');
    const bool isDecoded =
        length && MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, AsWide(text.data()), length);
    TellDoubtUnless(isDecoded);
    return text;
}

bool IsDoubleByte(char16_t character) noexcept {
    char bytes[4];
    return WideCharToMultiByte(CP_ACP, 0, AsWide(&character), 1, bytes, sizeof bytes, nullptr, nullptr) == 2;
}

} // namespace vantik
