#include "SkinSession.h"

#include <algorithm>

#include "SkinFiles.h"
#include "check/CheckSkin.h"
#include "host/HostError.h"
#include "host/SafeFile.h"
#include "model/Skin.h"
#include "tools/skin/SkinAt.h"
#include "tools/skin/SkinPicture.h"
#include "tools/skinview/model/LocalNames.h"

namespace vantik {

namespace {

constexpr int LineHeight = 14; // of captions, about

PixelImage ImageOf(const Snapshot& picture) {
    PixelImage image(picture.Width, picture.Height);
    std::ranges::copy(picture.Pixels, image.Data());
    return image;
}

// For a skin without settings: what lets its looks be told apart, captions in the middle of bars.
std::vector<SkinSetting> PlainSettings(bool lying, int barHeight) {
    const int shift = lying ? std::max((barHeight - LineHeight) / 2, 0) : 0;
    return {{L"BarWidth", L"110"},
            {L"TabBorder", L"True"},
            {L"CaptionPos", L"1"},
            {L"CaptionYjust", std::to_wstring(shift)},
            {L"IcoXjust", lying ? L"2" : L"0"},
            {L"IcoYjust", lying ? L"0" : L"2"}};
}

std::wstring ToWide(const std::u16string& text) { return {text.begin(), text.end()}; }

} // namespace

void SkinSession::Open(const std::filesystem::path& path) {
    Document document(ReadDefinition(path));
    path_ = std::filesystem::absolute(path);
    document_ = std::move(document);
    bitmap_ = {};
    ReadFiles();
}

void SkinSession::Save() {
    WriteFileSafely(path_, document_.Bytes());
    document_.NoteSaved();
    watch_.Watch(FilesOfSkin(path_, document_.Text()));
}

void SkinSession::ReadFiles() {
    ReadPieces();
    watch_.Watch(FilesOfSkin(path_, document_.Text()));
    working_.TakeFiles(SkinAt(path_), document_.Text());
    ReadBitmap();
    ReadSettings();
}

void SkinSession::ReadBitmap() {
    for (const SkinFile& file : SkinAt(path_).Find(BitmapNameOf(document_.Text())))
        if (const auto picture = ReadPicture(file.Bytes)) bitmap_ = ImageOf(*picture);
}

void SkinSession::ReadSettings() {
    const Piece* bar = FindPiece(pieces_, BRect);
    const int height = bar ? bar->Box().Height() : 0;
    settingsFault_.clear();
    try {
        lying_ = SettingsBeside(path_, true);
        standing_ = SettingsBeside(path_, false);
    } catch (const HostError& error) {
        settingsFault_ = error.what();
        lying_ = standing_ = {};
    }
    if (lying_.empty()) lying_ = PlainSettings(true, height);
    if (standing_.empty()) standing_ = PlainSettings(false, height);
}

std::optional<std::string> SkinSession::ForeignText() const {
    try {
        std::string text = ReadDefinition(path_);
        if (text != document_.Bytes() && text != document_.Saved()) return text;
    } catch (const HostError&) { // gone: what is in the editor is all that is left of it
    }
    return std::nullopt;
}

std::vector<Fault> SkinSession::Faults() const {
    return CheckSkin(EditedSource(SkinAt(path_), document_.Bytes()));
}

PreviewSkin SkinSession::Named(std::wstring file) const {
    PreviewSkin skin = {working_.SkinPath(), std::move(file), {}, lying_, standing_};
    for (const std::u16string& key : TabIconsOf(document_.Text())) skin.Icons.push_back(ToWide(key));
    return skin;
}

PreviewSkin SkinSession::ForControls() { return Named(working_.Put(document_.Text())); }

std::optional<PreviewSkin> SkinSession::ForControlsWithLit(std::int32_t piece) {
    const auto lit = Lit(document_.Text(), bitmap_, piece);
    if (!lit) return std::nullopt;
    return Named(working_.Put(*lit));
}

} // namespace vantik
