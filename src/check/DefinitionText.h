// The text of a skin definition with the places of all that stands in it, so that faults can be shown and numbers be
// changed where they stand. Comments, order and bytes of any code page stay as they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Skin.h"

namespace vantik {

// Bytes of the text.
struct Span {
    std::size_t Begin = 0, End = 0;

    std::size_t Size() const noexcept { return End - Begin; }
    bool IsEmpty() const noexcept { return Begin == End; }
    friend bool operator==(const Span&, const Span&) = default;
};

enum class LineKind {
    BeforeStart, // nothing counts there
    Start,       // the line that begins the definition
    Blank,
    Comment,
    Section,
    Entry, // key: value
    Stray, // no entry, for there is no colon
    End,
    AfterEnd,
};

enum class SectionKind { None, Tab, Icon, Other };

struct DefinitionLine {
    int Number = 0; // from 1
    LineKind Kind = LineKind::BeforeStart;
    SectionKind Section = SectionKind::None; // that it stands in, or opens
    Span All;                                // without the end of the line
    Span Content;                            // without the blanks around it
    Span Comment;                            // from "//" on; empty where there is none
    Span Key;                                // of an entry, with the blanks in front of its colon
    Span Value;                              // of an entry, without blanks around it
    // What stands between the commas of an entry of [Tab] other than File, without blanks: left, right, top, bottom, and
    // whatever comes behind them.
    std::vector<Span> Numbers;
    bool IsFile = false;              // the entry of [Tab] that names the bitmap
    std::optional<std::int32_t> Rect; // of an entry of [Tab]: the number of its rectangle, when it is one
};

class DefinitionText {
public:
    explicit DefinitionText(std::string bytes) { Assign(std::move(bytes)); }

    void Assign(std::string bytes);

    const std::string& Bytes() const noexcept { return bytes_; }
    const std::vector<DefinitionLine>& Lines() const noexcept { return lines_; }

    std::string_view At(Span span) const noexcept {
        return std::string_view(bytes_).substr(span.Begin, span.Size());
    }

    // The text in Windows' own characters, in upper case as the control compares it.
    std::u16string Upper(Span span) const;

    // The place of a byte; the end of the text has one, too.
    const DefinitionLine& LineAt(std::size_t offset) const noexcept;
    int ColumnAt(std::size_t offset) const noexcept; // from 1

    // The entry that is in force for a rectangle, which is the last one; null without one.
    const DefinitionLine* EntryOf(std::int32_t rect) const noexcept;

    // What the four numbers of an entry say; nothing when they are not all there, or too large.
    std::optional<SkinRect> RectOf(const DefinitionLine& entry) const;

    void Replace(Span span, std::string_view by);

    // Writes one of the four numbers of a rectangle (0 left, 1 right, 2 top, 3 bottom) where it stands. False, and nothing
    // is changed, when no entry has it.
    bool SetNumber(std::int32_t rect, std::size_t which, std::int32_t value);

private:
    std::string bytes_;
    std::vector<DefinitionLine> lines_; // at least one
};

} // namespace vantik
