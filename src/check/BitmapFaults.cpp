#include "check/BitmapFaults.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "check/NamedFile.h"
#include "check/Suggestion.h"
#include "check/Words.h"

namespace vantik {

namespace {

constexpr const char* WholeBitmap = "a BMP file of 24 bits a pixel";

std::string NotLoaded(RunTimeErrorNumber number) {
    return RaisedError(number) + "; rectangles and icons are in force, but over the bitmap that it had.";
}

const DefinitionLine* EntryOfBitmap(const DefinitionText& text) {
    const DefinitionLine* last = nullptr;
    for (const DefinitionLine& line : text.Lines())
        if (line.IsFile) last = &line;
    return last;
}

// Such a line has been refused already.
bool IsMeantForBitmap(const DefinitionText& text, const DefinitionLine& line) {
    constexpr std::u16string_view Key = u"FILE";
    return line.Kind == LineKind::Entry && line.Section == SectionKind::Tab && !line.Rect &&
           !Nearest(DecodeAnsi(text.At(line.Key)), {&Key, 1}).empty();
}

void ReportNoBitmap(const DefinitionText& text, Report& report) {
    const auto& lines = text.Lines();
    if (std::any_of(lines.begin(), lines.end(), [&](auto& each) { return IsMeantForBitmap(text, each); }))
        return;
    for (const DefinitionLine& line : text.Lines()) {
        if (line.Kind != LineKind::Section || line.Section != SectionKind::Tab) continue;
        return report.Error(line.Content.Begin,
                            {.What = "no entry File names the bitmap",
                             .Effect = "The control keeps the bitmap that it had; at first there is none.",
                             .Meant = "File: skin.bmp in a line below it"});
    }
}

bool Begins(std::span<const std::uint8_t> bytes, std::string_view magic) {
    return std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()).starts_with(magic);
}

// A picture that the system's loader takes, or may take, but that is no BMP file.
void ReportOtherFormat(std::size_t at, std::span<const std::uint8_t> bytes, Report& report) {
    if (Begins(bytes, "GIF8") || Begins(bytes, "\xFF\xD8")) {
        report.Warn(
            at,
            {.What = "the bitmap is a GIF or JPEG picture; its rectangles are not checked against it",
             .Effect = "The control loads it, but such files change colours: magenta that is not exact is "
                       "drawn.",
             .Meant = WholeBitmap});
    } else {
        report.Error(
            at, {.What = "the bitmap is a picture without pixels that the control could cut pieces from",
                 .Effect = "Windows' own loader refuses it with error 481 (Invalid picture), or the control "
                           "keeps the bitmap that it had.",
                 .Meant = WholeBitmap});
    }
}

void ReportDepth(std::size_t at, std::int32_t bits, Report& report) {
    if (bits == 24) return;
    const char* const effect = bits == 32
                                   ? "The control does not use the fourth byte: nothing is half transparent."
                                   : "The control draws it in the colours that it has; magenta that is not "
                                     "exact is drawn.";
    report.Warn(at, {.What = "the bitmap has " + std::to_string(bits) + " bits a pixel",
                     .Effect = effect,
                     .Meant = WholeBitmap});
}

} // namespace

std::optional<BitmapFormat> ReportBitmap(const DefinitionText& text, const SkinSource& source,
                                         Report& report) {
    const DefinitionLine* const entry = EntryOfBitmap(text);
    if (!entry) {
        ReportNoBitmap(text, report);
        return std::nullopt;
    }
    const auto file =
        FindNamedFile(text, *entry, source, NotLoaded(RunTimeErrorNumber::FileNotFound), report);
    if (!file) return std::nullopt;
    const std::size_t at = entry->Value.Begin;
    const auto format = FormatOfBitmap(file->Bytes);
    if (format) {
        ReportDepth(at, format->Bits, report);
    } else if (IsWholePicture(file->Bytes)) {
        ReportOtherFormat(at, file->Bytes, report);
    } else {
        report.Error(at, {.What = Quote(text.At(entry->Value)) + " is no picture, or not all of it is there",
                          .Effect = NotLoaded(RunTimeErrorNumber::InvalidPicture),
                          .Meant = WholeBitmap});
    }
    return format;
}

} // namespace vantik
