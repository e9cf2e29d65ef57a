#include "demos/form/design/PlacedChildren.h"

#include <algorithm>
#include <cmath>

#include <commctrl.h>

namespace vantik {

namespace {

constexpr int FirstId = 1000;

struct WindowTraits {
    const wchar_t* Class;
    DWORD Style;
};

WindowTraits WindowOf(ChildKind kind) noexcept {
    switch (kind) {
    case ChildKind::Label: return {L"STATIC", SS_LEFT | SS_NOPREFIX};
    case ChildKind::TextBox: return {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP};
    case ChildKind::Button: return {L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP};
    case ChildKind::CheckBox: return {L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP};
    case ChildKind::List: break;
    }
    return {L"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP};
}

// What the pointer does over the window is its parent's.
LRESULT CALLBACK LetThrough(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_NCHITTEST) return HTTRANSPARENT;
    return DefSubclassProc(window, message, wParam, lParam);
}

FormItem& ItemOf(HostedWindow& window) noexcept { return window; }

// Forms keep whole twips.
int Whole(double twips) noexcept { return static_cast<int>(std::lround(twips)); }

Box ToTwips(const Placement& place) noexcept {
    return {Whole(place.Left), Whole(place.Top), Whole(place.Width), Whole(place.Height)};
}

Placement ToPlacement(const Box& twips) noexcept {
    return {static_cast<double>(twips.Left), static_cast<double>(twips.Top), static_cast<double>(twips.Width),
            static_cast<double>(twips.Height)};
}

} // namespace

void PlacedChildren::Add(const Child& child) {
    const WindowTraits traits = WindowOf(child.Kind);
    const int id = FirstId + static_cast<int>(children_.size());
    const HWND window = MakeWidget(form_.ControlWindow(), traits.Class, L"", traits.Style | WS_CLIPSIBLINGS,
                                   {0, 0, 0, 0}, id, font_);
    if (underDesign_) SetWindowSubclass(window, LetThrough, 0, 0);
    HostedWindow& item = form_.Add(child.Name, window);
    item.Place(ToPlacement(child.Place));
    children_.push_back({child.Kind, child.Text, &item});
    Show(children_.back());
}

void PlacedChildren::Remove(std::wstring_view name) {
    const Placed* child = Find(name);
    if (!child) return;
    HostedWindow* const item = child->Item;
    const HWND window = item->Window();
    children_.erase(children_.begin() + (child - children_.data()));
    form_.Remove(*item);
    DestroyWindow(window);
}

void PlacedChildren::Clear() {
    while (!children_.empty()) Remove(ItemOf(*children_.back().Item).Name());
}

std::vector<Child> PlacedChildren::All() const {
    std::vector<Child> all;
    for (const Placed& child : children_) {
        const FormItem& item = ItemOf(*child.Item);
        all.push_back({child.Kind, item.Name(), ToTwips(item.Place()), child.Text});
    }
    return all;
}

void PlacedChildren::SetPixels(std::wstring_view name, const Box& place) {
    const Placed* child = Find(name);
    if (!child) return;
    const RECT pixels = {place.Left, place.Top, place.Right(), place.Bottom()};
    child->Item->Place(ToPlacement(ToTwips(vantik::ToPlacement(pixels))));
    InvalidateRect(child->Item->Window(), nullptr, TRUE);
}

void PlacedChildren::SetText(std::wstring_view name, const std::wstring& text) {
    for (Placed& child : children_) {
        if (!SameName(ItemOf(*child.Item).Name(), name)) continue;
        child.Text = text;
        Show(child);
    }
}

void PlacedChildren::Show(const Placed& child) {
    const HWND window = child.Item->Window();
    if (child.Kind != ChildKind::List) {
        SetWindowTextW(window, child.Text.c_str());
        return;
    }
    SendMessageW(window, LB_RESETCONTENT, 0, 0);
    for (const std::wstring& line : LinesOf(child.Text))
        SendMessageW(window, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
}

const PlacedChildren::Placed* PlacedChildren::Find(std::wstring_view name) const noexcept {
    const auto found = std::ranges::find_if(
        children_, [&](const Placed& child) { return SameName(ItemOf(*child.Item).Name(), name); });
    return found == children_.end() ? nullptr : &*found;
}

Box PlacedChildren::Pixels(const Placed& child) {
    const RECT place = ToPixels(ItemOf(*child.Item).Place());
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

Box PlacedChildren::Pixels(std::wstring_view name) const {
    const Placed* child = Find(name);
    return child ? Pixels(*child) : Box();
}

bool PlacedChildren::IsOnPage(std::wstring_view name, const Box& page) const {
    if (!Find(name)) return false;
    const Box place = Pixels(name);
    return place.Left < page.Right() && place.Right() > page.Left && place.Top < page.Bottom() &&
           place.Bottom() > page.Top;
}

// The first of siblings is the uppermost.
std::wstring PlacedChildren::NameAt(int x, int y) const {
    for (const Placed& child : children_)
        if (Pixels(child).Contains(x, y)) return ItemOf(*child.Item).Name();
    return {};
}

} // namespace vantik
