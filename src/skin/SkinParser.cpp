#include "skin/SkinParser.h"

#include <functional>
#include <new>
#include <utility>

#include "base/Checked.h"
#include "base/ErrorText.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace vantik {

namespace {

constexpr std::u16string_view Comment = u"//";

// Takes the first line off the text.
std::u16string_view NextLine(std::u16string_view& text) {
    const std::size_t end = text.find_first_of(u"\r\n");
    const std::u16string_view line = text.substr(0, end);
    const bool isLast = end == std::u16string_view::npos;
    text.remove_prefix(isLast ? text.size() : end + (text.substr(end).starts_with(u"\r\n") ? 2 : 1));
    return line;
}

// The last character goes whatever it is, so a comment behind the bracket becomes part of the name.
std::u16string SectionName(std::u16string_view line) {
    line.remove_prefix(1);
    if (!line.empty()) line.remove_suffix(1);
    return std::u16string(TrimSpaces(line));
}

// Splits the pieces off one by one, each converted before the next is looked for.
class Coordinates {
public:
    explicit Coordinates(std::u16string_view list) : list_(list), rest_(list), hasMore_(!list.empty()) {}

    std::int32_t Next() {
        if (!hasMore_)
            Raise(RunTimeErrorNumber::SubscriptOutOfRange, Quoted{list_},
                  u" is too short: left, right, top and bottom are expected");
        const std::size_t comma = rest_.find(u',');
        const std::int32_t number = ToInteger32(rest_.substr(0, comma));
        hasMore_ = comma != std::u16string_view::npos;
        if (hasMore_) rest_.remove_prefix(comma + 1);
        return number;
    }

private:
    std::u16string_view list_, rest_;
    bool hasMore_; // an empty list has no piece, not one empty piece
};

std::int32_t ExtentOf(std::int32_t first, std::int32_t last, std::u16string_view list) {
    return Explaining(
        [&] { return Checked(last) - first + 1; },
        [&](const RunTimeError&) { return ErrorText(Quoted{list}, u" is too large a rectangle"); });
}

// Each number is stored before the next one is converted.
void ParseRect(std::u16string_view list, SkinRect& rect) {
    Coordinates coordinates(list);
    rect.Left = coordinates.Next();
    rect.Right = coordinates.Next();
    rect.Top = coordinates.Next();
    rect.Bottom = coordinates.Next();
    rect.Width = ExtentOf(rect.Left, rect.Right, list);
    rect.Height = ExtentOf(rect.Top, rect.Bottom, list);
}

using RoleIndex = std::int16_t SkinIcons::*;

// Null for an icon that is known by its name and place only.
RoleIndex RoleOf(std::u16string_view key) {
    if (key == u"DELETEBUTTON") return &SkinIcons::DeleteButtonIcon;
    if (key == u"LEFTBUTTON") return &SkinIcons::LeftButtonIcon;
    if (key == u"RIGHTBUTTON") return &SkinIcons::RightButtonIcon;
    if (key == u"MENUBAR") return &SkinIcons::MenuBarIcon;
    return nullptr;
}

} // namespace

void SkinParser::Parse(std::u16string_view text) {
    while (!text.empty() && ParseLine(NextLine(text))) {
    }
}

// The test for START comes last, so the line that starts the definition has no content itself.
bool SkinParser::ParseLine(std::u16string_view text) {
    ++lineNumber_;
    asWritten_ = TrimSpaces(text);
    line_ = UpperCase(asWritten_);
    if (line_.starts_with(u"END")) return false;
    if (started_ && !line_.empty()) AtLine([&] { ParseContent(); });
    if (line_.starts_with(u"START")) started_ = true;
    return true;
}

template <class Work>
void SkinParser::AtLine(Work work) {
    Explaining(work, [&](const RunTimeError& error) {
        return ErrorText(u"line ", lineNumber_, u": ", error.Description());
    });
}

void SkinParser::Apply(const SkinDefinition& said) {
    for (const SkinDefinition::Entry& entry : said.Entries())
        std::visit([&](const auto& each) { Apply(each); }, entry);
}

std::shared_ptr<const SkinDefinition> SkinParser::TakeSaid() noexcept {
    if (!said_.IsComplete()) return nullptr;
    try {
        return std::make_shared<const SkinDefinition>(std::move(said_));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

// There may be too many icons now, and a button's picture is looked at again.
void SkinParser::Apply(const KeyedIcon& said) {
    lineNumber_ = said.Line;
    AtLine([&] { AppendIcon(said.Key, said.File); });
}

void SkinParser::ParseContent() {
    if (line_.starts_with(u"[")) section_ = line_ = SectionName(line_);
    if (!line_.starts_with(Comment)) ParseEntry(std::u16string_view(line_).substr(0, line_.find(Comment)));
}

void SkinParser::ParseEntry(std::u16string_view entry) {
    const std::size_t colon = entry.find(u':');
    if (colon == std::u16string_view::npos) return;
    const std::u16string_view key = entry.substr(0, colon); // spaces before the colon belong to the key
    const std::u16string_view value = TrimSpaces(entry.substr(colon + 1));
    if (section_ == u"TAB") ParseSkinRectEntry(key, value);
    if (section_ == u"ICON") ParseSkinIconEntry(key, value);
}

// Numbers read the same in either case, and an error shows them as they were written.
void SkinParser::ParseSkinRectEntry(std::u16string_view key, std::u16string_view value) {
    if (key == u"FILE") {
        NameBitmap(value);
        return said_.AddBitmap(value);
    }
    const std::int16_t index = RectIndexOf(key);
    SkinRect& rect = state_.SkinRects[index];
    ParseRect(AsWritten(value), rect);
    said_.AddRect(index, rect);
}

std::int16_t SkinParser::RectIndexOf(std::u16string_view key) const {
    try {
        return ToInteger16(AsWritten(key));
    } catch (RunTimeError& error) {
        if (error.Number() == RunTimeErrorNumber::TypeMismatch)
            error.Explain(ErrorText(error.Description(),
                                    u": a key of [Tab] is \"File\", without a blank before the colon, or the "
                                    u"number of a rectangle"));
        throw;
    }
}

// Upper case has as many characters, so that each stands where it stood.
std::u16string_view SkinParser::AsWritten(std::u16string_view part) const noexcept {
    constexpr std::less_equal<> isBefore;
    const char16_t* begin = line_.data();
    const bool isOfLine = isBefore(begin, part.data()) &&
                          isBefore(part.data() + part.size(), begin + line_.size()) &&
                          line_.size() == asWritten_.size();
    return isOfLine ? asWritten_.substr(static_cast<std::size_t>(part.data() - begin), part.size()) : part;
}

void SkinParser::ParseSkinIconEntry(std::u16string_view key, std::u16string_view value) {
    said_.AddIcon(lineNumber_, key, value);
    AppendIcon(key, value);
}

void SkinParser::AppendIcon(std::u16string_view key, std::u16string_view value) {
    SkinIcons& icons = state_.SkinIcons;
    SkinIcon& icon = icons.Append();
    icon.Name = key;
    icon.FilePath = folder_.PathOf(value);
    const RoleIndex role = RoleOf(key);
    if (!role) return;
    icons.*role = Subtract16(icons.SkinIconCount(), 1);
    readSize_(icon.FilePath, state_.LastPng);
    // A picture that is not there leaves the size of the one read before it.
    icon.Width = state_.LastPng.LastPngWidth;
    icon.Height = state_.LastPng.LastPngHeight;
}

} // namespace vantik
