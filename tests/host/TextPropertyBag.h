// The container's property bag: one property a line, so that a saved control can be read, compared and edited.
//
//     TabCount = 5
//     DefaultCaption = "Tab"
//     TabBorder = True
//     Font = Font
//         Name = "Tahoma"
//         Size = 8.25
//         ...
//     End
//     Picture = Object {0BE35204-8F91-11CE-9DE3-00AA004BB851}
//         6C740000...
//     End
//
// The properties stand in the order in which the control wrote them. The file is UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/ComObject.h"
#include "host/Variant.h"

namespace vantik {

// A font's own values, in place of its bytes.
struct SavedFont {
    std::wstring Name;
    double Size = 0;
    std::int16_t Weight = FW_NORMAL;
    std::int16_t Charset = DEFAULT_CHARSET;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;

    bool operator==(const SavedFont&) const = default;
};

// Any other object: its class and what its IPersistStream wrote.
struct SavedObject {
    CLSID Class = CLSID_NULL;
    std::vector<std::byte> Bytes;
};

class TextPropertyBag final : public ComObject<IPropertyBag> {
public:
    TextPropertyBag() = default;

    // Throws HostError with the number of the line that it cannot read.
    void Parse(std::string_view text);
    std::string Text() const;
    void Load(const std::wstring& path);
    void Save(const std::wstring& path) const;

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) noexcept override;

private:
    using Value = std::variant<Variant, SavedFont, SavedObject>;
    struct Entry {
        std::wstring Name;
        vantik::TextPropertyBag::Value Value;
    };

    const Entry* Find(std::wstring_view name) const noexcept;
    void Store(std::wstring_view name, Value value);

    std::vector<Entry> entries_;

    friend class PropertyTextReader;
    friend class PropertyTextWriter;
};

} // namespace vantik
