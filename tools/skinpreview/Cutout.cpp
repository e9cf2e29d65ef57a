#include "tools/skinpreview/Cutout.h"

#include <algorithm>

#include "check/RectNames.h"
#include "tools/skinpreview/Canvas.h"
#include "tools/skinpreview/TagPlaces.h"

namespace vantik {

namespace {

constexpr int Widest = 880, Highest = 760; // the enlarged bitmap
constexpr int MostZoom = 12;
constexpr int Margin = 56; // for numbers beside the bitmap
constexpr std::uint32_t TagColour = 0xFFFFD0, TagEdge = 0x606060, Bracket = 0xC02020;

int ZoomFor(const Snapshot& bitmap) {
    return std::clamp(std::min(Widest / bitmap.Width, Highest / bitmap.Height), 1, MostZoom);
}

bool IsMeasure(std::int32_t index) noexcept { return index == TabRect || index == BRect; }

struct Shown {
    std::int32_t Index;
    RECT Place;
};

class CutoutDrawing {
public:
    CutoutDrawing(const PreviewedSkin& skin, std::uint32_t background)
        : skin_(skin),
          zoom_(ZoomFor(skin.Bitmap())),
          size_{skin.Bitmap().Width * zoom_ + 2 * Margin, skin.Bitmap().Height * zoom_ + 2 * Margin},
          canvas_(size_.cx, size_.cy, background) {}

    Cutout Draw() {
        canvas_.Put(skin_.Bitmap(), Margin, Margin, zoom_);
        const std::vector<Shown> shown = ShownRects();
        for (const Shown& each : shown)
            IsMeasure(each.Index) ? DrawBracket(each.Place) : canvas_.Outline(each.Place);
        DrawTags(shown);
        return {canvas_.Take(), zoom_, {Margin, Margin}};
    }

private:
    std::vector<Shown> ShownRects() const {
        std::vector<Shown> shown;
        for (std::int32_t i = 0; i < SkinRects::Count; ++i) {
            const auto& rect = skin_.Rects()[static_cast<std::size_t>(i)];
            if (rect && rect->Height > 0 && (IsMeasure(i) || rect->Width > 0))
                shown.push_back({i, PlaceOf(i, *rect)});
        }
        return shown;
    }

    // Of those whose height alone counts, a place beside the bitmap.
    RECT PlaceOf(std::int32_t index, const SkinRect& rect) const {
        const LONG top = Margin + rect.Top * zoom_, bottom = Margin + (rect.Bottom + 1) * zoom_;
        if (!IsMeasure(index))
            return {Margin + rect.Left * zoom_, top, Margin + (rect.Right + 1) * zoom_, bottom};
        const LONG left = index == TabRect ? 8 : 30;
        return {left, top, left + 8, bottom};
    }

    void DrawBracket(const RECT& place) {
        canvas_.Fill({place.left, place.top, place.right, place.top + 1}, Bracket);
        canvas_.Fill({place.left, place.bottom - 1, place.right, place.bottom}, Bracket);
        canvas_.Fill({place.left, place.top, place.left + 1, place.bottom}, Bracket);
    }

    void DrawTags(const std::vector<Shown>& shown) {
        std::vector<Tag> tags;
        for (const Shown& each : shown) tags.push_back({each.Place, SizeOf(each.Index)});
        const std::vector<RECT> places = PlaceTags(tags, {0, 0, size_.cx, size_.cy});
        for (std::size_t i = 0; i < places.size(); ++i) DrawLeader(places[i], tags[i].Of);
        for (std::size_t i = 0; i < places.size(); ++i) DrawTag(places[i], std::to_wstring(shown[i].Index));
    }

    static SIZE SizeOf(std::int32_t index) {
        return {ExtentOf(std::to_wstring(index), Lettering::Bold).cx + 6, LineHeight - 2};
    }

    // From the tag to the nearest point of what it belongs to.
    void DrawLeader(const RECT& tag, const RECT& of) {
        const POINT from = {(tag.left + tag.right) / 2, (tag.top + tag.bottom) / 2};
        const POINT to = {std::clamp(from.x, of.left, of.right - 1),
                          std::clamp(from.y, of.top, of.bottom - 1)};
        canvas_.Line(from, to, Bracket);
    }

    void DrawTag(const RECT& place, const std::wstring& number) {
        canvas_.Fill(place, TagEdge);
        canvas_.Fill({place.left + 1, place.top + 1, place.right - 1, place.bottom - 1}, TagColour);
        canvas_.Write(number, place.left + 3, place.top, Lettering::Bold);
    }

    const PreviewedSkin& skin_;
    int zoom_;
    SIZE size_;
    Canvas canvas_;
};

std::wstring Range(std::int32_t first, std::int32_t last) {
    return first == last ? std::to_wstring(first) : std::to_wstring(first) + L".." + std::to_wstring(last);
}

std::wstring LineOf(std::int32_t index, const SkinRect& rect) {
    const std::string_view name = RectName(index);
    const std::wstring height = std::to_wstring(rect.Height);
    const std::wstring begin = std::to_wstring(index) + L"  " + std::wstring(name.begin(), name.end());
    if (IsMeasure(index)) return begin + L":  " + height + L" high";
    return begin + L":  x " + Range(rect.Left, rect.Right) + L", y " + Range(rect.Top, rect.Bottom) + L"  (" +
           std::to_wstring(rect.Width) + L" x " + height + L")";
}

} // namespace

Cutout MakeCutout(const PreviewedSkin& skin, std::uint32_t background) {
    return CutoutDrawing(skin, background).Draw();
}

std::vector<std::wstring> ListOfRects(const PreviewedSkin& skin) {
    std::vector<std::wstring> list;
    for (std::int32_t i = 0; i < SkinRects::Count; ++i)
        if (const auto& rect = skin.Rects()[static_cast<std::size_t>(i)]) list.push_back(LineOf(i, *rect));
    return list;
}

} // namespace vantik
