#include "check/ParserFaults.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/ErrorText.h"
#include "base/FilePath.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "check/RectNames.h"
#include "check/Suggestion.h"
#include "check/Words.h"
#include "model/ControlState.h"
#include "skin/SkinParser.h"

namespace vantik {

namespace {

constexpr std::u16string_view FileKey = u"File";

bool IsNumber(std::string_view text) {
    try {
        ToInteger32(DecodeAnsi(text));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

// Where in the line that was refused the reason stands.
std::size_t PlaceOfReason(const DefinitionText& text, const DefinitionLine& line) {
    constexpr std::size_t Needed = 4;
    if (!line.Rect) return line.Key.Begin;
    const auto reason = std::find_if_not(line.Numbers.begin(), line.Numbers.end(),
                                         [&](Span each) { return IsNumber(text.At(each)); });
    const auto index = static_cast<std::size_t>(reason - line.Numbers.begin());
    if (index < std::min(line.Numbers.size(), Needed)) return reason->Begin;
    return line.Numbers.size() < Needed ? line.Value.End : line.Value.Begin;
}

// A name in place of the number of a rectangle, or something like "File".
std::string MeantKey(std::u16string_view key) {
    std::vector<std::u16string> names(SkinRects::Count);
    std::vector<std::u16string_view> words;
    for (std::int32_t i = 0; i < SkinRects::Count; ++i) {
        const std::string_view name = RectName(i);
        words.push_back(names[static_cast<std::size_t>(i)].assign(name.begin(), name.end()));
    }
    words.push_back(FileKey);
    const std::u16string_view nearest = Nearest(key, words);
    if (nearest.empty()) return {};
    if (nearest == FileKey) return "File:";
    const auto index = std::find(names.begin(), names.end(), nearest) - names.begin();
    return std::to_string(index) + ", the number of " + ToUtf8(nearest);
}

std::string MeantIn(const DefinitionText& text, const DefinitionLine& line) {
    const std::u16string key = DecodeAnsi(text.At(line.Key));
    if (text.At({line.Key.Begin, line.Value.End}).find('\t') != std::string_view::npos)
        return "spaces in place of tabs, which are not taken off";
    if (key.starts_with(u';') || key.starts_with(u'#')) return "a comment, which begins with //";
    return line.Rect ? std::string() : MeantKey(key);
}

// The number of the line stands before it already.
std::string WithoutLine(std::u16string_view description, int line) {
    const std::u16string prefix = ErrorText(u"line ", std::int32_t{line}, u": ");
    if (description.starts_with(prefix)) description.remove_prefix(prefix.size());
    return ToUtf8(description);
}

void ReportRefusal(const DefinitionText& text, const DefinitionLine& line, const RunTimeError& error,
                   Report& report) {
    report.Error(
        PlaceOfReason(text, line),
        {.What = WithoutLine(error.Description(), line.Number),
         .Effect = RaisedError(error.Number()) + "; what stands before it is in force, the rest is not read "
                                                 "and no bitmap is loaded.",
         .Meant = MeantIn(text, line)});
}

void NoPictures(const std::u16string&, PngSize&) {}

} // namespace

void ReportRefusedLines(const DefinitionText& text, Report& report) {
    ControlState state;
    SkinParser parser(state, SkinFolder(u"", u""), NoPictures);
    for (const DefinitionLine& line : text.Lines()) {
        try {
            if (!parser.ParseLine(DecodeAnsi(text.At(line.All)))) break;
        } catch (const RunTimeError& error) {
            ReportRefusal(text, line, error, report);
        }
    }
}

} // namespace vantik
