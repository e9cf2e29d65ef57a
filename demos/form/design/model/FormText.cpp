#include "demos/form/design/model/FormText.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <utility>

#include "host/QuotedText.h"

namespace vantik {

namespace {

constexpr std::wstring_view Heading = L"VantikFrameTab form 1";
constexpr std::wstring_view ControlKeyword = L"VantikFrameTab";
constexpr std::wstring_view End = L"End";
constexpr std::size_t Indentation = 4;
constexpr int PropertyDepth = 2;      // of indentation
constexpr int MostTwips = 32767 * 15; // windows reach no farther

// --- out

void Line(std::wstring& text, int depth, std::wstring_view line) {
    text.append(static_cast<std::size_t>(depth) * Indentation, L' ').append(line).append(L"\n");
}

void Number(std::wstring& text, std::wstring_view name, int number) {
    Line(text, 1, std::wstring(name) + L" = " + std::to_wstring(number));
}

void Quote(std::wstring& text, std::wstring_view name, std::wstring_view value) {
    Line(text, 1, std::wstring(name) + L" = " + Quoted(value));
}

void Place(std::wstring& text, const Box& place) {
    Number(text, L"Left", place.Left);
    Number(text, L"Top", place.Top);
    Number(text, L"Width", place.Width);
    Number(text, L"Height", place.Height);
}

void Indented(std::wstring& text, std::wstring_view lines) {
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find(L'\n'), lines.size());
        Line(text, PropertyDepth, lines.substr(0, end));
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
}

void Write(std::wstring& text, const Child& child, const std::wstring& container) {
    Line(text, 0, std::wstring(TraitsOf(child.Kind).Keyword) + L" " + child.Name);
    Quote(text, L"Container", container);
    Place(text, child.Place);
    Quote(text, L"Text", child.Text);
    Line(text, 0, End);
}

// --- in

// What is no ASCII becomes a question mark.
std::string Narrow(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t character : text)
        narrow += character >= L' ' && character <= L'~' ? static_cast<char>(character) : '?';
    return narrow;
}

// For messages.
std::string Shown(std::wstring_view text) {
    constexpr std::size_t Most = 40;
    return "'" + Narrow(text.substr(0, Most)) + (text.size() > Most ? "...'" : "'");
}

std::optional<ChildKind> KindOf(std::wstring_view keyword) {
    const auto found =
        std::ranges::find_if(AllKinds, [&](const KindTraits& traits) { return keyword == traits.Keyword; });
    if (found == AllKinds.end()) return std::nullopt;
    return found->Kind;
}

// A value and the line that it stands on.
struct Entry {
    std::wstring_view Value;
    int Line = 0;
};

class Reader {
public:
    explicit Reader(std::wstring_view text) : rest_(text) {}
    DesignedForm Read();

private:
    using Entries = std::map<std::wstring_view, Entry>;

    bool NextLine();
    void NeedLine();
    std::pair<std::wstring_view, std::wstring_view> Head() const;
    void ReadSection();
    void ReadFormSection();
    void ReadControl(std::wstring_view name);
    void ReadChild(ChildKind kind, std::wstring_view name);
    Entries ReadEntries(std::initializer_list<std::wstring_view> keys, bool withProperties = false);
    void AddEntry(Entries& entries, std::initializer_list<std::wstring_view> keys) const;
    void ReadProperties();
    std::wstring_view PropertyLine() const;
    int NumberOf(const Entries& entries, std::wstring_view key) const;
    int LengthOf(const Entries& entries, std::wstring_view key) const;
    std::wstring TextOf(const Entries& entries, std::wstring_view key) const;
    const Entry& Find(const Entries& entries, std::wstring_view key) const;
    Box PlaceOf(const Entries& entries) const;
    void CheckName(std::wstring_view name) const;
    [[noreturn]] void Fail(const std::string& why) const { throw FormTextError(number_, why); }

    std::wstring_view rest_, whole_, line_; // line_ is without the blanks around it
    int number_ = 0;
    bool hasForm_ = false, hasControl_ = false;
    DesignedForm form_;
};

bool Reader::NextLine() {
    do {
        if (rest_.empty()) return false;
        const std::size_t end = std::min(rest_.find(L'\n'), rest_.size());
        whole_ = rest_.substr(0, end);
        line_ = Trimmed(whole_);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        ++number_;
    } while (line_.empty());
    return true;
}

void Reader::NeedLine() {
    if (!NextLine()) Fail("the text ends before an End");
}

DesignedForm Reader::Read() {
    if (rest_.starts_with(L'\xFEFF')) rest_.remove_prefix(1);
    if (!NextLine() || line_ != Heading)
        throw FormTextError(1, "this is no form: it does not begin with 'VantikFrameTab form 1'");
    while (NextLine()) ReadSection();
    if (!hasForm_) Fail("the text has no Form");
    if (!hasControl_) Fail("the text has no VantikFrameTab");
    return std::move(form_);
}

// The keyword of the line and what follows it.
std::pair<std::wstring_view, std::wstring_view> Reader::Head() const {
    const std::size_t blank = std::min(line_.find(L' '), line_.size());
    return {line_.substr(0, blank), Trimmed(line_.substr(blank))};
}

void Reader::ReadSection() {
    const auto [keyword, name] = Head();
    if (line_ == L"Form") return ReadFormSection();
    if (keyword == ControlKeyword) return ReadControl(name);
    if (const auto kind = KindOf(keyword)) return ReadChild(*kind, name);
    Fail("nothing begins with " + Shown(line_));
}

void Reader::ReadFormSection() {
    if (std::exchange(hasForm_, true)) Fail("there is a second Form");
    const Entries entries = ReadEntries({L"Width", L"Height"});
    form_.Width = LengthOf(entries, L"Width");
    form_.Height = LengthOf(entries, L"Height");
}

void Reader::ReadControl(std::wstring_view name) {
    if (std::exchange(hasControl_, true)) Fail("there is a second VantikFrameTab");
    CheckName(name);
    form_.ControlName = name;
    form_.ControlPlace = PlaceOf(ReadEntries({L"Left", L"Top", L"Width", L"Height"}, true));
}

void Reader::ReadChild(ChildKind kind, std::wstring_view name) {
    if (!hasControl_) Fail("a child stands before its VantikFrameTab");
    CheckName(name);
    const Entries entries = ReadEntries({L"Container", L"Left", L"Top", L"Width", L"Height", L"Text"});
    if (!SameName(TextOf(entries, L"Container"), form_.ControlName))
        throw FormTextError(Find(entries, L"Container").Line, "there is no such container");
    form_.Children.push_back({kind, std::wstring(name), PlaceOf(entries), TextOf(entries, L"Text")});
}

void Reader::CheckName(std::wstring_view name) const {
    if (name.empty()) Fail("there is no name");
    const bool isTaken =
        SameName(name, form_.ControlName) ||
        std::ranges::any_of(form_.Children, [&](const Child& child) { return SameName(child.Name, name); });
    if (isTaken) Fail("the name " + Shown(name) + " is used twice");
}

Reader::Entries Reader::ReadEntries(std::initializer_list<std::wstring_view> keys, bool withProperties) {
    Entries entries;
    bool hasProperties = false;
    for (NeedLine(); line_ != End; NeedLine()) {
        if (withProperties && line_ == L"Properties") {
            if (std::exchange(hasProperties, true)) Fail("there are Properties twice");
            ReadProperties();
        } else {
            AddEntry(entries, keys);
        }
    }
    for (const std::wstring_view key : keys) Find(entries, key);
    if (withProperties && !hasProperties) Fail("there are no Properties");
    return entries;
}

void Reader::AddEntry(Entries& entries, std::initializer_list<std::wstring_view> keys) const {
    const std::size_t equals = line_.find(L'=');
    if (equals == std::wstring_view::npos) Fail("there is no '=' in " + Shown(line_));
    const std::wstring_view key = Trimmed(line_.substr(0, equals));
    if (std::ranges::find(keys, key) == keys.end()) Fail(Shown(key) + " is nothing that stands here");
    if (!entries.emplace(key, Entry{Trimmed(line_.substr(equals + 1)), number_}).second)
        Fail(Shown(key) + " stands here twice");
}

// Without the indentation that it has as one of the form's.
std::wstring_view Reader::PropertyLine() const {
    const auto begin = static_cast<std::size_t>(line_.data() - whole_.data());
    const std::size_t inner = begin - std::min<std::size_t>(begin, PropertyDepth * Indentation);
    return {line_.data() - inner, line_.size() + inner};
}

// Fonts and objects have an End of their own.
void Reader::ReadProperties() {
    form_.PropertiesLine = number_ + 1;
    int expected = form_.PropertiesLine;
    for (int depth = 0;; ++expected) {
        NeedLine();
        for (; expected < number_; ++expected) form_.Properties += L'\n'; // empty lines count
        if (line_ == End && depth-- == 0) return;
        const std::size_t equals = line_.find(L'=');
        const std::wstring_view value =
            equals == std::wstring_view::npos ? std::wstring_view() : Trimmed(line_.substr(equals + 1));
        if (value == L"Font" || value.starts_with(L"Object ")) ++depth;
        form_.Properties.append(PropertyLine()).append(L"\n");
    }
}

const Entry& Reader::Find(const Entries& entries, std::wstring_view key) const {
    const auto found = entries.find(key);
    if (found == entries.end()) Fail("there is no " + Narrow(key));
    return found->second;
}

int Reader::NumberOf(const Entries& entries, std::wstring_view key) const {
    const Entry& entry = Find(entries, key);
    const std::string digits = Narrow(entry.Value);
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size())
        throw FormTextError(entry.Line, Shown(entry.Value) + " is no whole number");
    return number;
}

int Reader::LengthOf(const Entries& entries, std::wstring_view key) const {
    const int length = NumberOf(entries, key);
    if (length < 1 || length > MostTwips)
        throw FormTextError(Find(entries, key).Line,
                            std::to_string(length) + " is no length for a " + Narrow(key));
    return length;
}

std::wstring Reader::TextOf(const Entries& entries, std::wstring_view key) const {
    const Entry& entry = Find(entries, key);
    try {
        if (!entry.Value.starts_with(L'"')) throw std::invalid_argument("the text is not in quotation marks");
        return Unquoted(entry.Value);
    } catch (const std::invalid_argument& error) {
        throw FormTextError(entry.Line, error.what());
    }
}

Box Reader::PlaceOf(const Entries& entries) const {
    return {NumberOf(entries, L"Left"), NumberOf(entries, L"Top"), LengthOf(entries, L"Width"),
            LengthOf(entries, L"Height")};
}

} // namespace

std::wstring WriteForm(const DesignedForm& form) {
    std::wstring text;
    Line(text, 0, Heading);
    Line(text, 0, L"Form");
    Number(text, L"Width", form.Width);
    Number(text, L"Height", form.Height);
    Line(text, 0, End);
    Line(text, 0, std::wstring(ControlKeyword) + L" " + form.ControlName);
    Place(text, form.ControlPlace);
    Line(text, 1, L"Properties");
    Indented(text, form.Properties);
    Line(text, 1, End);
    Line(text, 0, End);
    for (const Child& child : form.Children) Write(text, child, form.ControlName);
    return text;
}

DesignedForm ReadForm(std::wstring_view text) { return Reader(text).Read(); }

} // namespace vantik
