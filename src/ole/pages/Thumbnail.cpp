#include "ole/pages/Thumbnail.h"

#include <algorithm>
#include <optional>

#include "base/Numbers.h"
#include "base/Text.h"
#include "check/DefinitionText.h"
#include "check/FolderSource.h"
#include "gfx/Surface.h"
#include "ole/pages/ScratchControl.h"
#include "ole/pages/SkinFiles.h"
#include "ole/pages/SkinSettings.h"

namespace vantik {

namespace {

constexpr std::int32_t Bars = 2;
constexpr const char16_t* UsualWidth = u"84"; // of a bar, where the skin does not say

// Of the row of bars, with a strip of the page below it.
LONG HeightOf(const std::u16string& folder, const std::u16string& definition) {
    constexpr LONG Usual = 32, Largest = 200, Page = 4;
    const DefinitionText text(FolderSource(FolderOfSkin(folder), definition).Definition());
    const DefinitionLine* const row = text.EntryOf(BRect);
    const auto rect = row ? text.RectOf(*row) : std::nullopt;
    return (rect ? std::clamp<LONG>(rect->Height, 1, Largest) : Usual) + Page;
}

// A skin is a picture of itself also where its settings make no sense.
void AssignSettings(const ScratchControl& control, const std::u16string& path) {
    try {
        control.Assign(ReadSkinSettings(path, control.Object()));
    } catch (const RunTimeError&) {
    }
}

// Shorter than they are used, so that two of them say enough in a small place.
std::int32_t ShortenBars(const ScratchControl& control) {
    const auto width = control.Value(L"BarWidth");
    const std::int32_t shorter = std::clamp(width ? ToInteger32(*width) : 0, 30, 3000) * 2 / 3;
    const Assignment narrow[] = {{L"BarWidth", DecimalText(shorter)}};
    control.Assign(narrow);
    return shorter;
}

// The buttons beside the row come behind the part that is cut out: they would push the bars out of a place this small.
Thumbnail PictureOf(const ScratchControl& control, SIZE size) {
    constexpr LONG MostOfButtons = 1000;
    const RECT all = {0, 0, size.cx + MostOfButtons, size.cy}, part = {0, 0, size.cx, size.cy};
    Surface surface;
    surface.Resize({all.right, all.bottom});
    control.Draw(surface.DC(), all);
    Thumbnail picture = {size, std::vector<std::uint32_t>(static_cast<std::size_t>(size.cx * size.cy))};
    if (!surface.Read(part, picture.Rows)) picture = {};
    return picture;
}

Thumbnail FullPictureOf(const std::u16string& folder, const std::u16string& definition) {
    const ScratchControl control = ScratchControl::New();
    // The skin that it has before need not be there, so that it cannot be given back.
    const Assignment skin[] = {
        {L"SkinPath", folder, false}, {L"SkinFile", definition, false}, {L"BarWidth", UsualWidth}};
    control.Assign(skin);
    AssignSettings(control, SettingsOfSkin(folder, definition));
    const LONG width = Bars * ShortenBars(control), height = HeightOf(folder, definition);
    const Assignment tabs[] = {{L"TabCount", DecimalText(Bars)}, {L"ActiveTab", u"0"}};
    control.Assign(tabs);
    return PictureOf(control, {width, height});
}

SIZE Fitted(SIZE size, SIZE most) noexcept {
    if (size.cx > most.cx) size = {most.cx, std::max(1L, size.cy * most.cx / size.cx)};
    if (size.cy > most.cy) size = {std::max(1L, size.cx * most.cy / size.cy), most.cy};
    return size;
}

struct Mean {
    std::uint32_t Red = 0, Green = 0, Blue = 0, Count = 0;

    void Add(std::uint32_t pixel) noexcept {
        Red += pixel >> 16 & 0xFF, Green += pixel >> 8 & 0xFF, Blue += pixel & 0xFF, ++Count;
    }
    std::uint32_t Pixel() const noexcept { return Red / Count << 16 | Green / Count << 8 | Blue / Count; }
};

} // namespace

Thumbnail Shrunk(const Thumbnail& picture, SIZE size) {
    const LONG width = picture.Size.cx, height = picture.Size.cy;
    Thumbnail small = {size, {}};
    for (LONG y = 0; y < size.cy; ++y)
        for (LONG x = 0; x < size.cx; ++x) {
            Mean mean;
            for (LONG v = y * height / size.cy; v < (y + 1) * height / size.cy; ++v)
                for (LONG u = x * width / size.cx; u < (x + 1) * width / size.cx; ++u)
                    mean.Add(picture.Rows[static_cast<std::size_t>(v * width + u)]);
            small.Rows.push_back(mean.Pixel());
        }
    return small;
}

Thumbnail ThumbnailOf(const std::u16string& folder, SIZE most) try {
    const auto definitions = SkinDefinitions(folder);
    if (definitions.empty() || most.cx <= 0 || most.cy <= 0) return {};
    const Thumbnail picture = FullPictureOf(folder, PlainestOf(definitions));
    return picture.Rows.empty() ? picture : Shrunk(picture, Fitted(picture.Size, most));
} catch (const RunTimeError&) {
    return {};
}

} // namespace vantik
