#include "skin/SkinLoader.h"

#include <string>

#include "base/ErrorText.h"
#include "base/Text.h"
#include "platform/FileStore.h"
#include "platform/PictureLoading.h"
#include "png/ByteSource.h"
#include "render/SharedPngSize.h"
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

// A definition that is read takes effect line by line, so that what stands before an error counts.
void ReadDefinition(const SkinFolder& folder, const FileIdentity& identity, ControlState& state) {
    const std::u16string path = folder.PathOf(state.Properties.SkinFile);
    const auto naming = [&](const RunTimeError& error) {
        return ErrorText(PathText{path}, u", ", error.Description());
    };
    SkinParser parser(state, folder, ReadSharedPngFileSize);
    bool isInForce = false;
    const auto said = Shared<SkinDefinition>(path, identity, FileContent::Definition, [&] {
        const std::u16string text = DecodeAnsi(ReadBytes(path));
        Explaining([&] { parser.Parse(text); }, naming);
        isInForce = true;
        return parser.TakeSaid();
    });
    if (!isInForce) Explaining([&] { parser.Apply(*said); }, naming);
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

// The pixels are what the surface has got of the picture.
std::shared_ptr<const PixelRows> TakePicture(const std::u16string& path, pcMemDC& surface, bool& isThere) {
    const auto picture = LoadPicture(path);
    isThere = surface.CreateFromPicture(picture.Get());
    return isThere ? surface.RowsOfAll(BitmapSizeOf(picture.Get())) : nullptr;
}

void LoadBitmap(const std::u16string& path, pcMemDC& surface) {
    bool isThere = false;
    const auto pixels = Shared<PixelRows>(path, IdentityOf(path), FileContent::Bitmap,
                                          [&] { return TakePicture(path, surface, isThere); });
    if (!isThere && !(pixels && surface.CreateFromRows(pixels)))
        Raise(RunTimeErrorNumber::OutOfMemory, PathText{path}, u": ",
              DescriptionOf(RunTimeErrorNumber::OutOfMemory));
}

void LoadBitmap(const ControlState& state, Surfaces& surfaces) {
    if (state.SkinBitmapPath.empty()) return;
    Explaining(
        [&] { LoadBitmap(state.SkinBitmapPath, surfaces.SkinDC); },
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
    const FileIdentity extracted = IdentityOf(folder.PathOf(state.Properties.SkinFile));
    Explaining([&] { ReadDefinition(folder, extracted, state); },
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
    const FileIdentity identity = IdentityOf(definition);
    if (identity.IsFile) {
        ReadDefinition(configured, identity, state);
    } else {
        ExtractInPlaceOf(definition, hostFolder);
        if (!state.ReplacedSkinPath) state.ReplacedSkinPath = state.Properties.SkinPath;
        state.Properties.SkinPath = u"Temp";
        ReadDefinitionInPlaceOf(definition, {hostFolder, state.Properties.SkinPath}, state);
    }
    LoadBitmap(state, surfaces);
}

} // namespace vantik
