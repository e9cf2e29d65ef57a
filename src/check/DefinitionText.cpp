#include "check/DefinitionText.h"

#include <algorithm>
#include <utility>

#include "base/Checked.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace vantik {

namespace {

constexpr std::string_view CommentMark = "//";

// Takes lines apart by the rules of the control's own parser, which does not tell where things stand.
class LineReader {
public:
    explicit LineReader(std::string_view text) : text_(text) {}

    std::vector<DefinitionLine> ReadAll() {
        std::vector<DefinitionLine> lines;
        for (std::size_t at = 0; at < text_.size() || lines.empty();) {
            const std::size_t end = std::min(text_.find_first_of("\r\n", at), text_.size());
            lines.push_back(Read({at, end}, static_cast<int>(lines.size()) + 1));
            at = end + (text_.substr(end).starts_with("\r\n") ? 2 : 1);
        }
        return lines;
    }

private:
    DefinitionLine Read(Span all, int number) {
        DefinitionLine line;
        line.Number = number;
        line.All = all;
        line.Content = Trimmed(all);
        line.Kind = KindOf(line);
        if (line.Kind == LineKind::Section) section_ = SectionOf(line.Content);
        line.Section = section_;
        if (line.Kind == LineKind::Entry) ReadEntry(line);
        return line;
    }

    LineKind KindOf(DefinitionLine& line) {
        if (ended_) return LineKind::AfterEnd;
        if (Begins(line.Content, u"END")) {
            ended_ = true;
            return LineKind::End;
        }
        if (started_) return KindOfContent(line);
        started_ = Begins(line.Content, u"START");
        return started_ ? LineKind::Start : LineKind::BeforeStart;
    }

    LineKind KindOfContent(DefinitionLine& line) const {
        const std::string_view content = At(line.Content);
        if (content.empty()) return LineKind::Blank;
        if (content.starts_with('[')) return LineKind::Section;
        line.Comment = CommentOf(line.Content);
        if (content.starts_with(CommentMark)) return LineKind::Comment;
        return At({line.Content.Begin, line.Comment.Begin}).find(':') == std::string_view::npos
                   ? LineKind::Stray
                   : LineKind::Entry;
    }

    Span CommentOf(Span content) const {
        return {std::min(text_.find(CommentMark, content.Begin), content.End), content.End};
    }

    // The last character goes whatever it is.
    SectionKind SectionOf(Span content) const {
        const Span name = Trimmed({content.Begin + 1, std::max(content.Begin + 1, content.End - 1)});
        const std::u16string upper = Upper(At(name));
        return upper == u"TAB" ? SectionKind::Tab : upper == u"ICON" ? SectionKind::Icon : SectionKind::Other;
    }

    void ReadEntry(DefinitionLine& line) const {
        const std::size_t colon = text_.find(':', line.Content.Begin);
        line.Key = {line.Content.Begin, colon};
        line.Value = Trimmed({colon + 1, line.Comment.Begin});
        if (line.Section != SectionKind::Tab) return;
        line.IsFile = Upper(At(line.Key)) == u"FILE";
        if (!line.IsFile) ReadRect(line);
    }

    void ReadRect(DefinitionLine& line) const {
        line.Rect = RectOf(At(line.Key));
        for (std::size_t at = line.Value.Begin; !line.Value.IsEmpty() && at <= line.Value.End;) {
            const std::size_t end = std::min(text_.find(',', at), line.Value.End);
            line.Numbers.push_back(Trimmed({at, end}));
            at = end + 1;
        }
    }

    static std::optional<std::int32_t> RectOf(std::string_view key) {
        try {
            const std::int32_t number = ToInteger16(DecodeAnsi(key));
            if (number >= 0 && number < SkinRects::Count) return number;
        } catch (const RunTimeError&) {
        }
        return std::nullopt;
    }

    Span Trimmed(Span span) const noexcept {
        while (!span.IsEmpty() && text_[span.Begin] == ' ') ++span.Begin;
        while (!span.IsEmpty() && text_[span.End - 1] == ' ') --span.End;
        return span;
    }

    bool Begins(Span content, std::u16string_view word) const {
        return Upper(At(content).substr(0, word.size())) == word;
    }

    static std::u16string Upper(std::string_view text) { return UpperCase(DecodeAnsi(text)); }
    std::string_view At(Span span) const noexcept { return text_.substr(span.Begin, span.Size()); }

    std::string_view text_;
    bool started_ = false, ended_ = false;
    SectionKind section_ = SectionKind::None;
};

} // namespace

void DefinitionText::Assign(std::string bytes) {
    bytes_ = std::move(bytes);
    lines_ = LineReader(bytes_).ReadAll();
}

std::u16string DefinitionText::Upper(Span span) const { return UpperCase(DecodeAnsi(At(span))); }

const DefinitionLine& DefinitionText::LineAt(std::size_t offset) const noexcept {
    const auto behind =
        std::upper_bound(lines_.begin() + 1, lines_.end(), offset,
                         [](std::size_t at, const DefinitionLine& each) { return at < each.All.Begin; });
    return *(behind - 1);
}

int DefinitionText::ColumnAt(std::size_t offset) const noexcept {
    return static_cast<int>(offset - LineAt(offset).All.Begin) + 1;
}

const DefinitionLine* DefinitionText::EntryOf(std::int32_t rect) const noexcept {
    const auto entry = std::find_if(lines_.rbegin(), lines_.rend(),
                                    [&](const DefinitionLine& each) { return each.Rect == rect; });
    return entry == lines_.rend() ? nullptr : &*entry;
}

std::optional<SkinRect> DefinitionText::RectOf(const DefinitionLine& entry) const try {
    if (entry.Numbers.size() < 4) return std::nullopt;
    const auto number = [&](std::size_t which) { return ToInteger32(DecodeAnsi(At(entry.Numbers[which]))); };
    SkinRect rect = {.Left = number(0), .Top = number(2), .Right = number(1), .Bottom = number(3)};
    rect.Width = Checked(rect.Right) - rect.Left + 1;
    rect.Height = Checked(rect.Bottom) - rect.Top + 1;
    return rect;
} catch (const RunTimeError&) {
    return std::nullopt;
}

void DefinitionText::Replace(Span span, std::string_view by) {
    std::string bytes = bytes_;
    Assign(bytes.replace(span.Begin, span.Size(), by));
}

bool DefinitionText::SetNumber(std::int32_t rect, std::size_t which, std::int32_t value) {
    const DefinitionLine* const entry = EntryOf(rect);
    if (!entry || which >= entry->Numbers.size()) return false;
    Replace(entry->Numbers[which], std::to_string(value));
    return true;
}

} // namespace vantik
