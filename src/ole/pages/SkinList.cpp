#include "ole/pages/SkinList.h"

#include <algorithm>

#include "base/Text.h"
#include "gfx/RowDrawing.h"

namespace vantik {

namespace {

constexpr int Lines = 3; // that are seen at a time

// As lists are filled everywhere, in the colours of the system.
void DrawGround(const DRAWITEMSTRUCT& item) noexcept {
    const bool isChosen = item.itemState & ODS_SELECTED;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(isChosen ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(item.hDC, GetSysColor(isChosen ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(item.hDC, TRANSPARENT);
}

void DrawName(HDC dc, const std::u16string& name, RECT place) noexcept {
    DrawTextW(dc, AsWide(name), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
}

// In the middle of its height.
void DrawPicture(HDC dc, const Thumbnail& picture, RECT place) noexcept {
    if (picture.Rows.empty()) return;
    place.top += (place.bottom - place.top - picture.Size.cy) / 2;
    place.right = place.left + picture.Size.cx;
    place.bottom = place.top + picture.Size.cy;
    DrawRows(dc, place, picture.Size, picture.Rows.data());
}

std::u16string_view WithoutSeparators(std::u16string_view folder) noexcept {
    return folder.substr(0, folder.find_last_not_of(u"\\/") + 1);
}

} // namespace

void SkinList::Fill(HWND list, const std::vector<std::u16string>& folders) {
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    entries_.clear();
    for (const std::u16string& folder : folders) {
        if (SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(folder.c_str())) >= 0)
            entries_.push_back({folder, std::nullopt});
    }
    RECT client = {};
    GetClientRect(list, &client);
    SendMessageW(list, LB_SETITEMHEIGHT, 0, client.bottom / Lines);
}

std::u16string SkinList::Chosen(HWND list) const {
    const auto index = static_cast<std::size_t>(SendMessageW(list, LB_GETCURSEL, 0, 0));
    return index < entries_.size() ? entries_[index].Folder : std::u16string();
}

void SkinList::Choose(HWND list, const std::u16string& folder) const {
    const auto found = std::ranges::find_if(entries_, [&](const Entry& each) {
        return EqualIgnoringCase(each.Folder, WithoutSeparators(folder));
    });
    const auto index = found == entries_.end() ? std::ptrdiff_t{LB_ERR} : found - entries_.begin();
    if (SendMessageW(list, LB_GETCURSEL, 0, 0) != index)
        SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

const Thumbnail& SkinList::PictureOf(std::size_t index, SIZE most) {
    Entry& entry = entries_[index];
    if (!entry.Picture) entry.Picture = ThumbnailOf(entry.Folder, most);
    return *entry.Picture;
}

// The name in the left half, the picture in the right one. An empty list has the mark of the keyboard alone.
void SkinList::Draw(const DRAWITEMSTRUCT& item) {
    const RECT& all = item.rcItem;
    DrawGround(item);
    if (item.itemID < entries_.size()) {
        const LONG margin = (all.bottom - all.top) / 10, middle = (all.left + all.right) / 2;
        DrawName(item.hDC, entries_[item.itemID].Folder,
                 {all.left + 2 * margin, all.top, middle - margin, all.bottom});
        const RECT place = {middle, all.top + margin, all.right - margin, all.bottom - margin};
        DrawPicture(item.hDC, PictureOf(item.itemID, {place.right - place.left, place.bottom - place.top}),
                    place);
    }
    if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) DrawFocusRect(item.hDC, &all);
}

} // namespace vantik
