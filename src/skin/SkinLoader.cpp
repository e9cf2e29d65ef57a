#include "skin/SkinLoader.h"

#include <string>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/PictureLoading.h"
#include "png/ByteSource.h"
#include "skin/DefaultSkin.h"
#include "skin/SkinFolder.h"
#include "skin/SkinParser.h"

namespace vantik {

namespace {

constexpr std::int64_t MaxFileSize = 256 << 20; // far above any skin; a larger file is a mistake

std::string ReadBytes(const std::u16string& path) {
    FileSource file(path);
    if (file.Size() > MaxFileSize) Raise(RunTimeErrorNumber::OutOfMemory);
    std::string bytes(static_cast<std::size_t>(file.Size()), '\0');
    file.Read({reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
}

// The folder of the definition, after the built-in skin took the place of a missing one.
SkinFolder FindDefinition(UserControl& host, ControlState& state) {
    PropertyValues& properties = state.Properties;
    const std::u16string hostFolder = host.HostFolder();
    const SkinFolder configured(hostFolder, properties.SkinPath);
    if (FileExists(configured.PathOf(properties.SkinFile))) return configured;
    ExtractDefaultSkin(hostFolder);
    if (!state.ReplacedSkinPath) state.ReplacedSkinPath = properties.SkinPath;
    properties.SkinPath = u"Temp";
    return {hostFolder, properties.SkinPath};
}

// Not by the platform's own way from a path to a picture, which takes the path for a URL.
ComPtr<IPictureDisp> LoadPicture(const std::u16string& path) {
    const std::string bytes = ReadBytes(path);
    const auto picture = PictureFrom({reinterpret_cast<const BYTE*>(bytes.data()), bytes.size()});
    if (!picture) Raise(RunTimeErrorNumber::InvalidPicture);
    return picture.As<IPictureDisp>();
}

} // namespace

void LoadSkin(UserControl& host, ControlState& state, Surfaces& surfaces) {
    const SkinFolder folder = FindDefinition(host, state);
    SkinParser(state, folder).Parse(DecodeAnsi(ReadBytes(folder.PathOf(state.Properties.SkinFile))));
    if (state.SkinBitmapPath.empty()) return;
    surfaces.SkinDC.CreateFromPicture(LoadPicture(state.SkinBitmapPath).Get());
}

} // namespace vantik
