#include "check/StructureFaults.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "check/Suggestion.h"
#include "check/Words.h"

namespace vantik {

namespace {

constexpr std::u16string_view SectionNames[] = {u"Tab", u"Icon"};

const DefinitionLine* FirstOf(const DefinitionText& text, LineKind kind) {
    const auto& lines = text.Lines();
    const auto line = std::find_if(lines.begin(), lines.end(), [&](auto& each) { return each.Kind == kind; });
    return line == lines.end() ? nullptr : &*line;
}

bool IsNear(std::string_view word, std::u16string_view meant) {
    return !Nearest(DecodeAnsi(word), {&meant, 1}).empty();
}

// A section, a rectangle or the bitmap's name, in a place where no line counts.
bool LooksLikeContent(std::string_view line) {
    if (line.starts_with('[')) return true;
    const std::string_view key = line.substr(0, std::min(line.find(':'), line.size()));
    const bool isNumber =
        std::all_of(key.begin(), key.end(), [](char c) { return (c >= '0' && c <= '9') || c == ' '; });
    return key.size() < line.size() && !key.empty() && (isNumber || UpperCase(DecodeAnsi(key)) == u"FILE");
}

const DefinitionLine* FirstContent(const DefinitionText& text, LineKind kind) {
    for (const DefinitionLine& line : text.Lines())
        if (line.Kind == kind && LooksLikeContent(text.At(line.Content))) return &line;
    return nullptr;
}

bool IsStartBehind(const DefinitionText& text) {
    return std::any_of(text.Lines().begin(), text.Lines().end(), [&](const DefinitionLine& each) {
        return each.Kind == LineKind::AfterEnd && text.Upper(each.Content).starts_with(u"START");
    });
}

void ReportNoStart(const DefinitionText& text, Report& report) {
    const char* const effect = "The control ignores the whole file and keeps the skin that it had.";
    const DefinitionLine* const end = FirstOf(text, LineKind::End);
    if (end && IsStartBehind(text))
        return report.Error(
            end->Content.Begin,
            {.What = "the definition ends before a line that begins with Start", .Effect = effect});
    for (const DefinitionLine& line : text.Lines())
        if (IsNear(text.At(line.Content), u"Start"))
            return report.Error(line.Content.Begin,
                                {.What = Quote(text.At(line.Content)) + " starts no definition",
                                 .Effect = effect,
                                 .Meant = "Start"});
    report.Error(0, {.What = "no line begins with Start", .Effect = effect});
}

bool IsLetterOrDigit(char c) noexcept {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// The word goes on: "Ending" is no End that somebody has written on purpose.
bool IsLongerWord(std::string_view end) {
    constexpr std::size_t Length = 3;
    return end.size() > Length && IsLetterOrDigit(end[Length]);
}

// --- sections

void ReportTextBehind(const DefinitionText& text, const DefinitionLine& line, std::size_t bracket,
                      Report& report) {
    const std::string_view rest = text.At({bracket + 1, line.Content.End});
    report.Error(
        bracket + 1 + rest.find_first_not_of(' '),
        {.What = "text behind the bracket of a section",
         .Effect = "The control takes it for a part of the section's name and ignores every line up to the "
                   "next section.",
         .Meant = FromAnsi(text.At({line.Content.Begin, bracket + 1})) + " in a line of its own"});
}

std::string MeantSection(std::string_view name) {
    const std::u16string_view nearest = Nearest(DecodeAnsi(name), SectionNames);
    return nearest.empty() ? std::string() : "[" + std::string(nearest.begin(), nearest.end()) + "]";
}

void ReportUnknownSection(const DefinitionText& text, const DefinitionLine& line, Report& report) {
    const std::string_view content = text.At(line.Content);
    const std::size_t bracket = std::min(content.find(']'), content.size());
    const std::string meant = MeantSection(content.substr(1, bracket - 1));
    const Report::Words words = {.What = bracket == content.size()
                                             ? "a section without its closing bracket"
                                             : Quote(content) + " is no section of a skin",
                                 .Effect = "The control ignores every line up to the next section.",
                                 .Meant = meant};
    meant.empty() ? report.Warn(line.Content.Begin, words) : report.Error(line.Content.Begin, words);
}

void ReportSection(const DefinitionText& text, const DefinitionLine& line, Report& report) {
    const std::size_t bracket = text.At(line.Content).find(']');
    const bool isClosed = bracket != std::string_view::npos;
    if (isClosed && line.Content.Begin + bracket + 1 < line.Content.End)
        return ReportTextBehind(text, line, line.Content.Begin + bracket, report);
    if (line.Section == SectionKind::Other) return ReportUnknownSection(text, line, report);
    if (!isClosed)
        report.Warn(line.Content.End - 1,
                    {.What = "a section without its closing bracket",
                     .Effect = "The control takes off the last character, whatever it is.",
                     .Meant = "]"});
}

// Then a section is there, but not as the control knows it, which is another fault.
bool HasLostEntries(const DefinitionText& text) {
    return std::any_of(text.Lines().begin(), text.Lines().end(), [](const DefinitionLine& each) {
        return each.Kind == LineKind::Entry && each.Section != SectionKind::Tab &&
               each.Section != SectionKind::Icon;
    });
}

void ReportMissingSection(const DefinitionText& text, SectionKind kind, const char* name, const char* effect,
                          Report& report) {
    for (const DefinitionLine& line : text.Lines())
        if (line.Kind == LineKind::Section && line.Section == kind) return;
    const std::size_t start = FirstOf(text, LineKind::Start)->Content.Begin;
    report.Warn(start, {.What = std::string("there is no section ") + name, .Effect = effect});
}

// --- lines that say nothing

// A line of tabs is as good as an empty one.
bool IsIdle(const DefinitionText& text, const DefinitionLine& line) {
    const bool isInSection = line.Section == SectionKind::Tab || line.Section == SectionKind::Icon;
    const bool isSeen = text.At(line.Content).find_first_not_of("\t ") != std::string_view::npos;
    return line.Kind == LineKind::Stray && isInSection && isSeen;
}

std::string MeantByStray(std::string_view content) {
    if (content.find('[') == content.find_first_not_of('\t')) return "a section without a tab in front of it";
    if (content.starts_with(';') || content.starts_with('#')) return "a comment, which begins with //";
    const std::size_t equals = content.find('=');
    if (equals == std::string_view::npos) return {};
    const std::string_view key = content.substr(0, equals);
    return FromAnsi(key.substr(0, key.find_last_not_of(' ') + 1)) + ":";
}

void ReportStray(const DefinitionText& text, const DefinitionLine& line, Report& report) {
    const std::string_view content = text.At(line.Content);
    const Report::Words words = {.What = Quote(content) + " is neither an entry nor a comment",
                                 .Effect = "The control ignores the line.",
                                 .Meant = MeantByStray(content)};
    const bool isComment = content.starts_with(';') || content.starts_with('#');
    isComment ? report.Warn(line.Content.Begin, words) : report.Error(line.Content.Begin, words);
}

void ReportEntriesWithoutSection(const DefinitionText& text, Report& report) {
    for (const DefinitionLine& line : text.Lines()) {
        if (line.Kind != LineKind::Entry || line.Section != SectionKind::None) continue;
        return report.Error(line.Content.Begin,
                            {.What = "an entry before the first section",
                             .Effect = "The control ignores every line up to the first section.",
                             .Meant = "[Tab] in a line above it"});
    }
}

} // namespace

bool ReportStart(const DefinitionText& text, Report& report) {
    if (!FirstOf(text, LineKind::Start)) {
        ReportNoStart(text, report);
        return false;
    }
    if (const DefinitionLine* const line = FirstContent(text, LineKind::BeforeStart))
        report.Warn(line->Content.Begin, {.What = Quote(text.At(line->Content)) + " stands before Start",
                                          .Effect = "The control ignores every line before Start."});
    return true;
}

void ReportEnd(const DefinitionText& text, Report& report) {
    const DefinitionLine* const end = FirstOf(text, LineKind::End);
    if (!end) return;
    const std::string_view content = text.At(end->Content);
    if (IsLongerWord(content))
        return report.Error(end->Content.Begin,
                            {.What = Quote(content) + " begins with End and ends the definition",
                             .Effect = "The control reads neither this line nor any behind it."});
    if (const DefinitionLine* const line = FirstContent(text, LineKind::AfterEnd))
        report.Warn(line->Content.Begin, {.What = Quote(text.At(line->Content)) + " stands behind End",
                                          .Effect = "The control reads nothing behind End."});
}

void ReportSections(const DefinitionText& text, Report& report) {
    for (const DefinitionLine& line : text.Lines())
        if (line.Kind == LineKind::Section) ReportSection(text, line, report);
    if (HasLostEntries(text)) return;
    ReportMissingSection(
        text, SectionKind::Tab, "[Tab]",
        "The control keeps the rectangles and the bitmap that it had; at first there are none.", report);
    ReportMissingSection(text, SectionKind::Icon, "[Icon]",
                         "The control keeps the icons and buttons that it had; at first there are none.",
                         report);
}

void ReportIdleLines(const DefinitionText& text, Report& report) {
    for (const DefinitionLine& line : text.Lines())
        if (IsIdle(text, line)) ReportStray(text, line, report);
    ReportEntriesWithoutSection(text, report);
}

} // namespace vantik
