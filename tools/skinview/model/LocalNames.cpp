#include "tools/skinview/model/LocalNames.h"

#include <algorithm>
#include <array>

namespace vantik {

namespace {

constexpr std::array<std::u16string_view, 4> ButtonKeys = {u"DELETEBUTTON", u"LEFTBUTTON", u"RIGHTBUTTON",
                                                           u"MENUBAR"};

bool IsIcon(const DefinitionLine& line) noexcept {
    return line.Kind == LineKind::Entry && line.Section == SectionKind::Icon;
}

bool NamesFile(const DefinitionLine& line) noexcept { return line.IsFile || IsIcon(line); }

std::string LocalNameOf(std::vector<LocalFile>& files, std::u16string name) {
    const auto known = std::ranges::find(files, name, &LocalFile::Named);
    if (known != files.end()) return known->Local;
    files.push_back({std::move(name), "file-" + std::to_string(files.size())});
    return files.back().Local;
}

} // namespace

LocalSkin WithLocalNames(const DefinitionText& definition) {
    DefinitionText text = definition;
    LocalSkin skin;
    for (std::size_t i = 0; i < text.Lines().size(); ++i) { // replacing a value changes no other line
        const DefinitionLine line = text.Lines()[i];
        if (NamesFile(line)) text.Replace(line.Value, LocalNameOf(skin.Files, text.Upper(line.Value)));
    }
    skin.Definition = text.Bytes();
    return skin;
}

std::string WithBitmap(const DefinitionText& definition, const std::string& file) {
    DefinitionText text = definition;
    for (std::size_t i = 0; i < text.Lines().size(); ++i)
        if (text.Lines()[i].IsFile) text.Replace(Span(text.Lines()[i].Value), file);
    return text.Bytes();
}

std::u16string BitmapNameOf(const DefinitionText& definition) {
    std::u16string name;
    for (const DefinitionLine& line : definition.Lines())
        if (line.IsFile) name = definition.Upper(line.Value);
    return name;
}

std::vector<std::u16string> TabIconsOf(const DefinitionText& definition) {
    std::vector<std::u16string> keys;
    for (const DefinitionLine& line : definition.Lines()) {
        if (!IsIcon(line)) continue;
        std::u16string key = definition.Upper(line.Key);
        if (std::ranges::find(ButtonKeys, std::u16string_view(key)) == ButtonKeys.end())
            keys.push_back(std::move(key));
    }
    return keys;
}

} // namespace vantik
