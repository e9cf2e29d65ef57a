#include "ole/pages/SkinSettings.h"

#include <algorithm>

#include "base/ErrorText.h"
#include "base/Numbers.h"
#include "base/ReadableFile.h"
#include "base/Text.h"
#include "model/Properties.h"
#include "ole/com/Identifiers.h"
#include "ole/com/TaskMemory.h"
#include "ole/com/Variant.h"

namespace vantik {

namespace {

constexpr std::size_t MostBytes = 64 * 1024; // a page of lines is far less

std::u16string ReadText(const std::u16string& path) {
    ReadableFile::Obstacle obstacle = {};
    ReadableFile file = ReadableFile::Open(path, obstacle);
    if (!file)
        Raise(RunTimeErrorNumber::FileNotFound, PathText{path}, u": ",
              DescriptionOf(RunTimeErrorNumber::FileNotFound));
    std::string bytes(MostBytes, '\0');
    bytes.resize(file.Read({reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()}));
    return DecodeAnsi(bytes);
}

std::u16string_view Trimmed(std::u16string_view text) noexcept {
    constexpr std::u16string_view Blanks = u" \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    return first == text.npos ? std::u16string_view()
                              : text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

const Property* PropertyNamed(std::u16string_view name, Property& found) {
    for (std::size_t row = 0; row < PropertyCount; ++row) {
        found = static_cast<Property>(row);
        if (EqualIgnoringCase(InfoOf(found).Key, name)) return &found;
    }
    return nullptr;
}

// "#RRGGBB" as the number that a colour property takes.
std::u16string ColourText(std::u16string_view text) {
    if (text.size() != 7 || text[0] != u'#') return std::u16string(text);
    std::u16string blueFirst = u"&H";
    for (const std::size_t pair : {5u, 3u, 1u}) blueFirst += text.substr(pair, 2);
    return DecimalText(ToInteger32(blueFirst));
}

// What frees the answer of a property browser.
struct Choices {
    CALPOLESTR Names = {};
    CADWORD Cookies = {};
    ~Choices() {
        for (ULONG i = 0; i < Names.cElems; ++i) CoTaskMemFree(Names.pElems[i]);
        CoTaskMemFree(Names.pElems);
        CoTaskMemFree(Cookies.pElems);
    }
};

// The number of a constant by its name; other text as it is.
std::u16string ConstantText(IDispatch* object, Property property, std::u16string_view text) {
    const auto browsing = QueryFor<IPerPropertyBrowsing>(object);
    Choices choices;
    if (!browsing ||
        FAILED(browsing->GetPredefinedStrings(DispIdOf(property), &choices.Names, &choices.Cookies)))
        return std::u16string(text);
    for (ULONG i = 0; i < choices.Names.cElems && i < choices.Cookies.cElems; ++i) {
        Variant value;
        if (!EqualIgnoringCase(AsChar16(choices.Names.pElems[i]), text)) continue;
        if (SUCCEEDED(browsing->GetPredefinedValue(DispIdOf(property), choices.Cookies.pElems[i], &value)) &&
            SUCCEEDED(value.ChangeType(VT_BSTR)))
            return FromBstr(value.bstrVal);
    }
    return std::u16string(text);
}

std::u16string ValueText(IDispatch* object, Property property, std::u16string_view text) {
    switch (InfoOf(property).Type) {
    case PropertyType::Colour: return ColourText(text);
    case PropertyType::Enumeration: return ConstantText(object, property, text);
    default: return std::u16string(text);
    }
}

} // namespace

std::vector<Assignment> ReadSkinSettings(const std::u16string& path, IDispatch* object) {
    const std::u16string text = ReadText(path);
    std::vector<Assignment> settings;
    std::int32_t number = 0;
    for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end + 1) {
        end = std::min(text.find(u'\n', begin), text.size());
        const std::u16string_view line = Trimmed(std::u16string_view(text).substr(begin, end - begin));
        ++number;
        if (line.empty() || line.starts_with(u"//")) continue;
        const std::size_t equals = line.find(u'=');
        Property property = {};
        if (equals == line.npos || !PropertyNamed(Trimmed(line.substr(0, equals)), property))
            Raise(RunTimeErrorNumber::TypeMismatch, PathText{path}, u", line ", number,
                  u": Property = Value is expected, not ", Quoted{line});
        settings.push_back(
            {AsWide(InfoOf(property).Key), ValueText(object, property, Trimmed(line.substr(equals + 1)))});
    }
    return settings;
}

} // namespace vantik
