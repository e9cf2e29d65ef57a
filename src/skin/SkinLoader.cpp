#include "skin/SkinLoader.h"

#include <string>

#include "base/ErrorText.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/PictureLoading.h"
#include "png/ByteSource.h"
#include "skin/DefaultSkin.h"
#include "skin/PictureFile.h"
#include "skin/SkinFolder.h"
#include "skin/SkinParser.h"

namespace vantik {

namespace {

constexpr std::int64_t MaxFileSize = 256 << 20; // far above any skin; a larger file is a mistake

std::string ReadBytes(const std::u16string& path) {
    FileSource file(path);
    if (file.Size() > MaxFileSize)
        Raise(RunTimeErrorNumber::OutOfMemory, PathText{path}, u" is larger than 256 megabytes");
    std::string bytes(static_cast<std::size_t>(file.Size()), '\0');
    file.Read({reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
}

void ReadDefinition(const SkinFolder& folder, ControlState& state) {
    const std::u16string path = folder.PathOf(state.Properties.SkinFile);
    const std::u16string text = DecodeAnsi(ReadBytes(path));
    Explaining(
        [&] { SkinParser(state, folder).Parse(text); },
        [&](const RunTimeError& error) { return ErrorText(PathText{path}, u", ", error.Description()); });
}

// Not by the platform's own way from a path to a picture, which takes the path for a URL.
ComPtr<IPictureDisp> LoadPicture(const std::u16string& path) {
    const std::string file = ReadBytes(path);
    const std::span<const std::uint8_t> bytes(reinterpret_cast<const std::uint8_t*>(file.data()),
                                              file.size());
    const auto picture = IsWholePicture(bytes) ? PictureFrom(bytes) : nullptr;
    if (!picture)
        Raise(RunTimeErrorNumber::InvalidPicture, PathText{path}, u": ",
              DescriptionOf(RunTimeErrorNumber::InvalidPicture));
    return picture.As<IPictureDisp>();
}

void LoadBitmap(const ControlState& state, Surfaces& surfaces) {
    if (state.SkinBitmapPath.empty()) return;
    Explaining(
        [&] {
            const auto picture = LoadPicture(state.SkinBitmapPath);
            if (!surfaces.SkinDC.CreateFromPicture(picture.Get()))
                Raise(RunTimeErrorNumber::OutOfMemory, PathText{state.SkinBitmapPath}, u": ",
                      DescriptionOf(RunTimeErrorNumber::OutOfMemory));
        },
        [](const RunTimeError& error) { return ErrorText(u"The skin's bitmap ", error.Description()); });
}

void ExtractInPlaceOf(const std::u16string& missing, const std::u16string& hostFolder) {
    Explaining([&] { ExtractDefaultSkin(hostFolder); },
               [&](const RunTimeError& error) {
                   return ErrorText(
                       PathText{missing}, u" is missing, and the built-in skin cannot be written to ",
                       error.Description(), u". Ship a skin with the application, or let it write there");
               });
}

// The built-in skin has one definition, whatever the name of the missing one is.
void ReadDefinitionInPlaceOf(const std::u16string& missing, const SkinFolder& folder, ControlState& state) {
    Explaining([&] { ReadDefinition(folder, state); },
               [&](const RunTimeError& error) {
                   if (error.Number() != RunTimeErrorNumber::FileNotFound) return std::u16string();
                   return ErrorText(PathText{missing},
                                    u" is missing, and the built-in skin has skin.ini only: ",
                                    error.Description());
               });
}

} // namespace

void LoadSkin(UserControl& host, ControlState& state, Surfaces& surfaces) {
    const std::u16string hostFolder = host.HostFolder();
    const SkinFolder configured(hostFolder, state.Properties.SkinPath);
    const std::u16string definition = configured.PathOf(state.Properties.SkinFile);
    if (FileExists(definition)) {
        ReadDefinition(configured, state);
    } else {
        ExtractInPlaceOf(definition, hostFolder);
        if (!state.ReplacedSkinPath) state.ReplacedSkinPath = state.Properties.SkinPath;
        state.Properties.SkinPath = u"Temp";
        ReadDefinitionInPlaceOf(definition, {hostFolder, state.Properties.SkinPath}, state);
    }
    LoadBitmap(state, surfaces);
}

} // namespace vantik
