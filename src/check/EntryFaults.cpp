#include "check/EntryFaults.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "check/Words.h"

namespace vantik {

namespace {

constexpr std::size_t NumberCount = 4;

bool IsRead(const DefinitionLine& line) {
    const bool hasSection = line.Section == SectionKind::Tab || line.Section == SectionKind::Icon;
    return line.Kind == LineKind::Entry && hasSection;
}

// Rectangles by their numbers, for "05" is 5.
std::u16string KeyOf(const DefinitionText& text, const DefinitionLine& line) {
    return line.Rect ? DecimalText(*line.Rect) : text.Upper(line.Key);
}

std::string EffectOfDoubling(const DefinitionLine& first, bool isIcon) {
    const std::string line = "line " + std::to_string(first.Number);
    if (!isIcon) return "This line is in force; " + line + " is not.";
    return "The name means this line's icon; that of " + line +
           " keeps its place in the list, and takes memory.";
}

// As people write a number: digits, perhaps with a sign.
bool IsPlain(std::string_view number) {
    if (number.starts_with('+') || number.starts_with('-')) number.remove_prefix(1);
    return std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void ReportOddNumber(const DefinitionText& text, Span number, Report& report) {
    if (IsPlain(text.At(number))) return;
    try {
        const std::string value = std::to_string(ToInteger32(DecodeAnsi(text.At(number))));
        report.Warn(number.Begin, {.What = Quote(text.At(number)) + " is no plain number",
                                   .Effect = "The control reads " + value + ".",
                                   .Meant = value});
    } catch (const RunTimeError&) { // it was refused, which is another fault
    }
}

void ReportNumbersOf(const DefinitionText& text, const DefinitionLine& line, Report& report) {
    const std::size_t count = std::min(line.Numbers.size(), NumberCount);
    for (std::size_t i = 0; i < count; ++i) ReportOddNumber(text, line.Numbers[i], report);
    if (line.Numbers.size() > NumberCount)
        report.Warn(line.Numbers[NumberCount].Begin,
                    {.What = "more than the four numbers left, right, top and bottom",
                     .Effect = "The control ignores what stands behind the fourth."});
    if (*line.Rect > FRightLine)
        report.Warn(line.Key.Begin, {.What = "nothing is drawn of " + RectText(*line.Rect),
                                     .Effect = "The control reads the line and does nothing with it."});
}

} // namespace

void ReportDoubledKeys(const DefinitionText& text, Report& report) {
    std::map<std::pair<SectionKind, std::u16string>, const DefinitionLine*> first;
    for (const DefinitionLine& line : text.Lines()) {
        if (!IsRead(line)) continue;
        const auto [place, isNew] = first.try_emplace({line.Section, KeyOf(text, line)}, &line);
        if (isNew) continue;
        report.Warn(line.Key.Begin,
                    {.What = Quote(text.At(line.Key)) + " stands in line " +
                             std::to_string(place->second->Number) + " already",
                     .Effect = EffectOfDoubling(*place->second, line.Section == SectionKind::Icon)});
        place->second = &line;
    }
}

void ReportOddNumbers(const DefinitionText& text, Report& report) {
    for (const DefinitionLine& line : text.Lines())
        if (line.Rect) ReportNumbersOf(text, line, report);
}

} // namespace vantik
