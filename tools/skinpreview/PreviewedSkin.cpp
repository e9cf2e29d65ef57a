#include "tools/skinpreview/PreviewedSkin.h"

#include <algorithm>

#include "base/Text.h"
#include "check/DefinitionText.h"
#include "host/HostError.h"
#include "tools/skin/SkinAt.h"
#include "tools/skin/SkinPicture.h"

namespace vantik {

namespace {

namespace fs = std::filesystem;

std::wstring Wide(std::u16string_view text) { return {text.begin(), text.end()}; }

bool HasRole(const std::u16string& key) {
    return key == u"DELETEBUTTON" || key == u"LEFTBUTTON" || key == u"RIGHTBUTTON" || key == u"MENUBAR";
}

} // namespace

PreviewedSkin::PreviewedSkin(const fs::path& definition) : definition_(fs::absolute(definition)) {
    if (!SkinAt(definition_).IsThere()) throw HostError("cannot read " + ToUtf8(definition_.wstring()));
    CopyFolder();
    ReadDefinition();
}

std::wstring PreviewedSkin::Title() const {
    return definition_.parent_path().filename().wstring() + L"  " + definition_.filename().wstring();
}

std::wstring PreviewedSkin::BitmapName() const { return bitmapName_; }

std::wstring PreviewedSkin::SkinFile(Side side) const {
    const fs::path sides = SidesOf(definition_.filename());
    return (!Lies(side) && fs::exists(copy_.PathOf(sides.wstring())) ? sides : definition_.filename())
        .wstring();
}

fs::path PreviewedSkin::Settings(Side side) const {
    const fs::path lying = L"SETTINGS.TXT";
    for (const fs::path& file : {Lies(side) ? lying : SidesOf(lying), lying})
        if (fs::exists(copy_.PathOf(file.wstring()))) return copy_.PathOf(file.wstring());
    return {};
}

fs::path PreviewedSkin::SidesOf(const fs::path& file) const {
    return file.stem().wstring() + L"-SIDES" + file.extension().wstring();
}

void PreviewedSkin::CopyFolder() const {
    for (const fs::directory_entry& each : fs::directory_iterator(definition_.parent_path()))
        if (each.is_regular_file())
            fs::copy_file(each.path(), copy_.PathOf(each.path().filename().wstring()));
}

void PreviewedSkin::ReadDefinition() {
    const FolderSource source = SkinAt(definition_);
    const DefinitionText text(source.Definition());
    std::u16string bitmap;
    for (const DefinitionLine& line : text.Lines()) {
        if (line.Rect) rects_[static_cast<std::size_t>(*line.Rect)] = text.RectOf(line);
        if (line.IsFile) bitmap = DecodeAnsi(text.At(line.Value));
        const bool isIcon = line.Kind == LineKind::Entry && line.Section == SectionKind::Icon;
        if (isIcon && !HasRole(text.Upper(line.Key))) tabIcons_.push_back(Wide(text.Upper(line.Key)));
    }
    const std::vector<vantik::SkinFile> files = source.Find(bitmap);
    if (bitmap.empty() || files.empty()) throw HostError("the definition names no bitmap that is there");
    bitmapName_ = Wide(bitmap);
    auto picture = ReadPicture(files.front().Bytes);
    if (!picture) throw HostError("the skin's bitmap is no picture");
    bitmap_ = std::move(*picture);
}

} // namespace vantik
