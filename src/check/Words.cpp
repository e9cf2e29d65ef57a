#include "check/Words.h"

#include "base/ErrorText.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "check/RectNames.h"

namespace vantik {

std::string RaisedError(RunTimeErrorNumber number) {
    return "The control raises error " + std::to_string(static_cast<int>(number)) + " (" +
           ToUtf8(DescriptionOf(number)) + ")";
}

std::string FromAnsi(std::string_view bytes) { return ToUtf8(DecodeAnsi(bytes)); }

std::string Quote(std::string_view bytes) {
    const std::u16string text = DecodeAnsi(bytes);
    return ToUtf8(ErrorText(Quoted{text}));
}

std::string RectText(std::int32_t rect) {
    const std::string_view name = RectName(rect);
    const std::string number = "rectangle " + std::to_string(rect);
    return name.empty() ? number : number + " (" + std::string(name) + ")";
}

} // namespace vantik
