#include "check/EncodingFaults.h"

#include <string_view>

#include "check/Utf8.h"

namespace vantik {

namespace {

constexpr const char* AnsiEncoding = "ANSI, the system's code page, among the editor's encodings";

bool IsUtf16(std::string_view bytes) noexcept {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
           bytes.find('\0') != std::string_view::npos;
}

bool BeginsWithStart(std::string_view rest) {
    return DefinitionText(std::string(rest)).Lines().front().Kind == LineKind::Start;
}

// The mark spoils the first line only, which may not count anyway.
bool ReportByteOrderMark(std::string_view bytes, Report& report) {
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    if (!bytes.starts_with(Mark)) return true;
    const bool hidesStart = BeginsWithStart(bytes.substr(Mark.size()));
    const char* const what = "the file begins with a byte order mark";
    if (hidesStart) {
        report.Error(0, {.What = what,
                         .Effect = "The control does not see Start behind it and ignores the whole file.",
                         .Meant = AnsiEncoding});
    } else {
        report.Warn(
            0, {.What = what,
                .Effect = "The control reads the system's code page, so that letters beyond ASCII become "
                          "others.",
                .Meant = AnsiEncoding});
    }
    return !hidesStart;
}

bool EndsInLineFeedAlone(const DefinitionText& text, const DefinitionLine& line) {
    return std::string_view(text.Bytes()).substr(line.All.End).starts_with('\n');
}

// Where two bytes make a character the first one takes the next for its second, whatever that is.
void ReportSwallowedLineEnd(const DefinitionText& text, const DefinitionLine& line, Report& report) {
    const std::string_view all = text.At(line.All);
    if (all.empty() || FirstBeyondAscii(all.substr(all.size() - 1)) != 0) return;
    if (!EndsInLineFeedAlone(text, line) || !IsUtf8(all)) return;
    report.Warn(
        line.All.Begin + FirstBeyondAscii(all),
        {.What = "the line is UTF-8 and ends with a letter beyond ASCII and LF alone",
         .Effect =
             "In Chinese, Japanese and Korean code pages its last byte may swallow the end of the line, "
             "and the next line becomes part of this one.",
         .Meant = "lines ended by CR LF"});
}

} // namespace

bool ReportEncoding(const DefinitionText& text, Report& report) {
    if (IsUtf16(text.Bytes())) {
        report.Error(0, {.What = "the file is UTF-16, or no text",
                         .Effect = "The control finds no Start in it and ignores the whole file.",
                         .Meant = AnsiEncoding});
        return false;
    }
    for (const DefinitionLine& line : text.Lines()) ReportSwallowedLineEnd(text, line, report);
    return ReportByteOrderMark(text.Bytes(), report);
}

} // namespace vantik
