#include "base/ErrorText.h"

#include "base/Text.h"

namespace vantik {

namespace {

constexpr std::size_t LongestQuotation = 80;

} // namespace

void AppendPiece(std::u16string& text, std::u16string_view piece) { text.append(piece); }
void AppendPiece(std::u16string& text, std::int32_t number) { text.append(DecimalText(number)); }

// A null character would end the whole text wherever it is passed on.
void AppendPiece(std::u16string& text, Quoted piece) {
    text.push_back(u'"');
    for (const char16_t c : piece.Text.substr(0, LongestQuotation)) text.push_back(c ? c : u' ');
    text.append(piece.Text.size() > LongestQuotation ? u"...\"" : u"\"");
}

// The two backslashes in front of a computer's name stay.
void AppendPiece(std::u16string& text, PathText piece) {
    const std::u16string_view path = piece.Path;
    for (std::size_t i = 0; i < path.size(); ++i)
        if (i < 2 || path[i] != u'\\' || path[i - 1] != u'\\') text.push_back(path[i]);
}

} // namespace vantik
