#include "tools/skinpreview/Sheet.h"

#include <algorithm>

#include "host/HostError.h"
#include "tools/skinpreview/Canvas.h"
#include "tools/skinpreview/Cutout.h"
#include "tools/skinpreview/PreviewedControl.h"

namespace vantik {

namespace {

constexpr std::uint32_t Paper = 0xF4F4F4;
constexpr int Edge = 16; // around the sheet
constexpr int Gap = 16;  // between its pictures
constexpr int ButtonZoom = 2;

constexpr Side Sides[] = { // in this order on the sheet
    Side::Top, Side::Bottom, Side::Left, Side::Right};
constexpr const wchar_t* ButtonLooks[] = {L"greyed", L"released", L"pressed"};

const wchar_t* NameOf(Side side) noexcept {
    constexpr const wchar_t* Names[] = {L"Left", L"Right", L"Top", L"Bottom"};
    return Names[static_cast<int>(side)];
}

// All that is to be seen of a side.
struct SidePictures {
    vantik::Side Side;
    Snapshot Looks;
    Snapshot Buttons[std::size(ButtonLooks)];
};

SidePictures TakePictures(ControlModule& module, const PreviewedSkin& skin, Side side) {
    PreviewedControl control(module, skin, side);
    return {side,
            control.Looks(),
            {control.GreyedButtons(), control.ReleasedButtons(), control.PressedButtons()}};
}

// Things are placed first, so that the sheet becomes just as large as they need.
class SheetLayout {
public:
    // Each returns where the thing ends.
    POINT Add(const std::wstring& text, POINT at, Lettering lettering = Lettering::Plain) {
        const SIZE extent = ExtentOf(text, lettering);
        texts_.push_back({text, at, lettering});
        return Grow({at.x + extent.cx, at.y + LineHeight});
    }

    POINT Add(const std::wstring& name, const Snapshot& picture, POINT at, int zoom = 1) {
        const POINT end = {at.x + picture.Width * zoom, at.y + picture.Height * zoom};
        pictures_.push_back(picture);
        parts_.push_back({name, {at.x, at.y, end.x, end.y}, zoom});
        return Grow(end);
    }

    // The bitmap is a part of its own, within the picture around it.
    POINT Add(const Cutout& cutout, const Snapshot& bitmap, POINT at) {
        const POINT end = Add(L"Cut-out", cutout.Picture, at);
        const POINT origin = {at.x + cutout.Origin.x, at.y + cutout.Origin.y};
        inner_.push_back({L"Bitmap",
                          {origin.x, origin.y, origin.x + bitmap.Width * cutout.Zoom,
                           origin.y + bitmap.Height * cutout.Zoom},
                          cutout.Zoom});
        return end;
    }

    Sheet Draw() const {
        Canvas canvas(size_.x + Edge, size_.y + Edge, Paper);
        for (std::size_t i = 0; i < pictures_.size(); ++i)
            canvas.Put(pictures_[i], parts_[i].Place.left, parts_[i].Place.top, parts_[i].Zoom);
        for (const Text& each : texts_) canvas.Write(each.Words, each.At.x, each.At.y, each.Letters);
        Sheet sheet = {canvas.Take(), parts_};
        sheet.Parts.insert(sheet.Parts.end(), inner_.begin(), inner_.end());
        return sheet;
    }

private:
    struct Text {
        std::wstring Words;
        POINT At;
        Lettering Letters;
    };

    POINT Grow(POINT end) {
        size_ = {std::max(size_.x, end.x), std::max(size_.y, end.y)};
        return end;
    }

    std::vector<Text> texts_;
    std::vector<Snapshot> pictures_;
    std::vector<SheetPart> parts_, inner_;
    POINT size_ = {};
};

// --- the parts of the sheet; each returns where it ends

POINT AddLooks(SheetLayout& layout, const SidePictures& pictures, POINT at) {
    layout.Add(NameOf(pictures.Side), at, Lettering::Bold);
    return layout.Add(NameOf(pictures.Side), pictures.Looks, {at.x, at.y + LineHeight});
}

// Below each other where the row lies, beside each other where it stands, each with its name above.
POINT AddButtons(SheetLayout& layout, const SidePictures& pictures, POINT at) {
    layout.Add(std::wstring(L"Buttons, ") + NameOf(pictures.Side), at, Lettering::Bold);
    POINT next = {at.x, at.y + LineHeight}, end = next;
    for (std::size_t i = 0; i < std::size(ButtonLooks); ++i) {
        const POINT text = layout.Add(ButtonLooks[i], next);
        const POINT picture = layout.Add(std::wstring(NameOf(pictures.Side)) + L", " + ButtonLooks[i],
                                         pictures.Buttons[i], {next.x, text.y}, ButtonZoom);
        end = {std::max({end.x, picture.x, text.x}), std::max(end.y, picture.y)};
        next = Lies(pictures.Side) ? POINT{next.x, picture.y + Gap / 2}
                                   : POINT{std::max(picture.x, text.x) + Gap, next.y};
    }
    return end;
}

POINT AddButtons(SheetLayout& layout, const std::vector<SidePictures>& sides, POINT at) {
    POINT end = at;
    for (const SidePictures& each : sides) {
        const POINT last = AddButtons(layout, each, at);
        at.x = last.x + 2 * Gap;
        end = {last.x, std::max(end.y, last.y)};
    }
    return end;
}

void AddBitmap(SheetLayout& layout, const PreviewedSkin& skin, POINT at) {
    const Snapshot& bitmap = skin.Bitmap();
    const Cutout cutout = MakeCutout(skin, Paper);
    layout.Add(skin.BitmapName() + L"  " + std::to_wstring(bitmap.Width) + L" x " +
                   std::to_wstring(bitmap.Height) + L" pixels, " + std::to_wstring(cutout.Zoom) +
                   L" times as large",
               at, Lettering::Bold);
    layout.Add(cutout, bitmap, {at.x, at.y + LineHeight});
}

// In as many columns as there is room for.
void AddList(SheetLayout& layout, const std::vector<std::wstring>& list, POINT at, LONG width) {
    constexpr LONG ColumnWidth = 300;
    const auto columns = static_cast<std::size_t>(std::max<LONG>(width / ColumnWidth, 1));
    const std::size_t rows = (list.size() + columns - 1) / columns;
    for (std::size_t i = 0; i < list.size(); ++i)
        layout.Add(list[i], {at.x + static_cast<LONG>(i / rows) * ColumnWidth,
                             at.y + static_cast<LONG>(i % rows) * LineHeight});
}

} // namespace

const SheetPart& Sheet::Part(std::wstring_view name) const {
    const auto part =
        std::find_if(Parts.begin(), Parts.end(), [&](const SheetPart& each) { return each.Name == name; });
    if (part == Parts.end()) throw HostError("the sheet has no such part");
    return *part;
}

// Top and bottom above each other, the buttons and the list of rectangles beneath; left and right beside them, then the
// bitmap.
Sheet MakeSheet(ControlModule& module, const PreviewedSkin& skin) {
    std::vector<SidePictures> sides;
    for (const Side side : Sides) sides.push_back(TakePictures(module, skin, side));
    SheetLayout layout;
    const LONG first = layout.Add(skin.Title(), {Edge, Edge}, Lettering::Bold).y + Gap;
    const POINT topEnd = AddLooks(layout, sides[0], {Edge, first});
    const POINT bottomEnd = AddLooks(layout, sides[1], {Edge, topEnd.y + Gap});
    const POINT buttonsEnd = AddButtons(layout, sides, {Edge, bottomEnd.y + Gap});
    const LONG besideRows = std::max(topEnd.x, buttonsEnd.x) + Gap;
    AddList(layout, ListOfRects(skin), {Edge, buttonsEnd.y + Gap}, besideRows - Edge);
    const POINT leftEnd = AddLooks(layout, sides[2], {besideRows, first});
    const POINT rightEnd = AddLooks(layout, sides[3], {leftEnd.x + Gap, first});
    AddBitmap(layout, skin, {rightEnd.x + Gap, first});
    return layout.Draw();
}

} // namespace vantik
