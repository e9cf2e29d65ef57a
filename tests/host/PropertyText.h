// The text form of a property bag, in and out.
#pragma once

#include <string>
#include <string_view>

#include "host/TextPropertyBag.h"

namespace vantik {

class PropertyTextWriter {
public:
    std::string Write(const TextPropertyBag& bag);

private:
    void Line(std::wstring_view name, const std::wstring& value, bool indented = false);
    void Value(const std::wstring& name, const Variant& value);
    void Value(const std::wstring& name, const SavedFont& font);
    void Value(const std::wstring& name, const SavedObject& object);

    std::wstring text_;
};

class PropertyTextReader {
public:
    explicit PropertyTextReader(std::wstring text) : text_(std::move(text)) {}
    void Read(TextPropertyBag& bag);

private:
    // The next line without its indentation; false at the end of the text.
    bool NextLine();
    // Splits the line at its first equals sign.
    std::pair<std::wstring, std::wstring> Assignment() const;
    SavedFont ReadFont();
    SavedObject ReadObject(const std::wstring& classText);
    Variant ParseValue(const std::wstring& text) const;
    std::wstring ParseQuoted(const std::wstring& text) const;
    [[noreturn]] void Fail(const std::string& why) const;

    std::wstring text_;
    std::size_t next_ = 0;
    std::wstring line_;
    int lineNumber_ = 0;
};

} // namespace vantik
