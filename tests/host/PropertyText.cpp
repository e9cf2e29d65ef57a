#include "host/PropertyText.h"

#include "host/HostError.h"
#include "host/QuotedText.h"

namespace vantik {

namespace {

constexpr std::size_t BytesPerLine = 32;
constexpr std::wstring_view Indentation = L"    ";
constexpr std::wstring_view HexDigits = L"0123456789ABCDEF";

std::wstring ValueText(const Variant& value) {
    return value.Type() == VT_BSTR ? Quoted(value.Text()) : value.Text();
}

std::wstring ClassText(const CLSID& id) {
    wchar_t text[40];
    StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return text;
}

} // namespace

std::string PropertyTextWriter::Write(const TextPropertyBag& bag) {
    for (const TextPropertyBag::Entry& entry : bag.entries_) {
        std::visit([&](const auto& value) { Value(entry.Name, value); }, entry.Value);
    }
    return ToUtf8(text_);
}

void PropertyTextWriter::Line(std::wstring_view name, const std::wstring& value, bool indented) {
    if (indented) text_ += Indentation;
    text_.append(name).append(L" = ").append(value).append(L"\n");
}

void PropertyTextWriter::Value(const std::wstring& name, const Variant& value) {
    Line(name, ValueText(value));
}

void PropertyTextWriter::Value(const std::wstring& name, const SavedFont& font) {
    Line(name, L"Font");
    Line(L"Name", Quoted(font.Name), true);
    Line(L"Size", Variant(font.Size).Text(), true);
    Line(L"Weight", Variant(font.Weight).Text(), true);
    Line(L"Charset", Variant(font.Charset).Text(), true);
    Line(L"Italic", Variant(font.Italic).Text(), true);
    Line(L"Underline", Variant(font.Underline).Text(), true);
    Line(L"Strikethrough", Variant(font.Strikethrough).Text(), true);
    text_ += L"End\n";
}

void PropertyTextWriter::Value(const std::wstring& name, const SavedObject& object) {
    Line(name, L"Object " + ClassText(object.Class));
    for (std::size_t i = 0; i < object.Bytes.size(); ++i) {
        const auto byte = std::to_integer<unsigned>(object.Bytes[i]);
        if (i % BytesPerLine == 0) text_ += Indentation;
        text_ += HexDigits[byte >> 4];
        text_ += HexDigits[byte & 15];
        if (i % BytesPerLine == BytesPerLine - 1 || i + 1 == object.Bytes.size()) text_ += L'\n';
    }
    text_ += L"End\n";
}

void PropertyTextReader::Read(TextPropertyBag& bag) {
    while (NextLine()) {
        if (line_.empty()) continue;
        const auto [name, value] = Assignment();
        if (value == L"Font") {
            bag.Store(name, ReadFont());
        } else if (value.starts_with(L"Object ")) {
            bag.Store(name, ReadObject(value.substr(7)));
        } else {
            bag.Store(name, ParseValue(value));
        }
    }
}

bool PropertyTextReader::NextLine() {
    if (next_ >= text_.size()) return false;
    const std::size_t end = std::min(text_.find(L'\n', next_), text_.size());
    line_ = Trimmed(std::wstring_view(text_).substr(next_, end - next_));
    next_ = end + 1;
    ++lineNumber_;
    return true;
}

std::pair<std::wstring, std::wstring> PropertyTextReader::Assignment() const {
    const std::size_t equals = line_.find(L'=');
    if (equals == std::wstring::npos) Fail("there is no '='");
    const std::wstring_view line = line_;
    const std::wstring name(Trimmed(line.substr(0, equals)));
    if (name.empty()) Fail("there is no name");
    return {name, std::wstring(Trimmed(line.substr(equals + 1)))};
}

SavedFont PropertyTextReader::ReadFont() {
    SavedFont font;
    while (NextLine() && line_ != L"End") {
        const auto [name, text] = Assignment();
        const Variant value = ParseValue(text);
        if (name == L"Name")
            font.Name = value.Text();
        else if (name == L"Size")
            font.Size = value.Real();
        else if (name == L"Weight")
            font.Weight = static_cast<std::int16_t>(value.Number());
        else if (name == L"Charset")
            font.Charset = static_cast<std::int16_t>(value.Number());
        else if (name == L"Italic")
            font.Italic = value.Flag();
        else if (name == L"Underline")
            font.Underline = value.Flag();
        else if (name == L"Strikethrough")
            font.Strikethrough = value.Flag();
        else
            Fail("a font has no '" + ToUtf8(name) + "'");
    }
    if (line_ != L"End") Fail("the font has no End");
    return font;
}

SavedObject PropertyTextReader::ReadObject(const std::wstring& classText) {
    SavedObject object;
    if (FAILED(CLSIDFromString(classText.c_str(), &object.Class))) Fail("the class is no GUID");
    while (NextLine() && line_ != L"End") {
        if (line_.size() % 2 != 0) Fail("half a byte");
        for (std::size_t i = 0; i < line_.size(); i += 2) {
            const std::size_t high = HexDigits.find(line_[i]);
            const std::size_t low = HexDigits.find(line_[i + 1]);
            if (high == std::wstring_view::npos || low == std::wstring_view::npos)
                Fail("no hexadecimal digit");
            object.Bytes.push_back(static_cast<std::byte>(high << 4 | low));
        }
    }
    if (line_ != L"End") Fail("the object has no End");
    return object;
}

Variant PropertyTextReader::ParseValue(const std::wstring& text) const {
    if (text.starts_with(L'"')) return Variant(ParseQuoted(text));
    if (text == L"True" || text == L"False") return Variant(text == L"True");
    try {
        return Variant(text).As(text.find(L'.') == std::wstring::npos ? VT_I4 : VT_R8);
    } catch (const HostError&) {
        Fail("'" + ToUtf8(text) + "' is no value");
    }
}

std::wstring PropertyTextReader::ParseQuoted(const std::wstring& text) const {
    try {
        return Unquoted(text);
    } catch (const std::invalid_argument& error) {
        Fail(error.what());
    }
}

void PropertyTextReader::Fail(const std::string& why) const {
    throw HostError("line " + std::to_string(lineNumber_) + ": " + why, E_INVALIDARG);
}

} // namespace vantik
