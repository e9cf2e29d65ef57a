#include "Preview.h"

#include <array>

#include "acctree/Node.h"
#include "host/SavedObjects.h"

namespace vantik {

namespace {

constexpr std::int16_t ActiveTab = 0, HoverTab = 1, DisabledTab = 3;
// More than fit, so that the buttons beside the row show both of their looks.
constexpr std::array Captions = {L"Active", L"Hover",   L"Normal", L"Disabled", L"Fifth",
                                 L"Sixth",  L"Seventh", L"Eighth", L"Ninth",    L"Tenth"};
constexpr UINT PoseMessage = WM_APP;

FormLayout LayoutOf(HWND parent, const RECT& place) {
    const SIZE size = {place.right - place.left, place.bottom - place.top};
    return {L"Preview", size, {0, 0, size.cx, size.cy}, L"VantikFrameTab1", parent};
}

void Write(TextPropertyBag& bag, const std::wstring& property, Variant value) {
    Check(bag.Write(property.c_str(), &const_cast<VARIANT&>(value.Get())), "Writing a property");
}

} // namespace

Preview::Preview(ControlModule& module, HWND parent, Side side, const RECT& place, const PreviewSkin& skin)
    : form_(module, LayoutOf(parent, place), {},
            {[this](EventCall& event) { OnEvent(event); },
             [this](UINT m, WPARAM, LPARAM) { return OnMessage(m); },
             [this](UINT m, WPARAM, LPARAM) { return OnControlMessage(m); },
             {},
             {}}) {
    form_.Window().MoveTo(place);
    Open(side, skin, module.Constants());
    NameTabs(skin);
}

// Only what is seen takes the pointer; it is not painted before all is as it is to be.
void Preview::Show() {
    ShowWindow(form_.Window().Handle(), SW_SHOWNA);
    ShowHoverLook();
}

// As a form does that was saved: so the skin is read once, and nothing is painted on the way.
void Preview::Open(Side side, const PreviewSkin& skin, const std::vector<EnumerationMember>& constants) {
    const auto bag = MakeCom<TextPropertyBag>();
    Write(*bag.Get(), L"TabPos", static_cast<std::int32_t>(side));
    Write(*bag.Get(), L"TabCount", static_cast<std::int16_t>(Captions.size()));
    Write(*bag.Get(), L"ActiveTab", ActiveTab);
    Write(*bag.Get(), L"DelButton", true);
    for (const SkinSetting& setting : IsLying(side) ? skin.Lying : skin.Standing)
        Write(*bag.Get(), setting.Property, SettingFromText(setting.Value, constants));
    Write(*bag.Get(), L"SkinPath", skin.Path);
    Write(*bag.Get(), L"SkinFile", skin.File);
    form_.OpenFrom(*bag.Get());
}

void Preview::NameTabs(const PreviewSkin& skin) {
    SavedFont font;
    font.Name = FormFont().Name();
    font.Size = FormFont::Points;
    PutReference(form_.Control(), L"Font", MakeAgain(font).Get());
    for (std::int16_t tab = 0; tab < static_cast<std::int16_t>(Captions.size()); ++tab) {
        const auto index = static_cast<std::size_t>(tab);
        Call(form_.Control(), L"SetBarCaption", {tab, Captions[index], false});
        if (!skin.Icons.empty())
            Call(form_.Control(), L"SetBarIco", {tab, skin.Icons[index % skin.Icons.size()]});
    }
    Call(form_.Control(), L"SetBarEnable", {DisabledTab, false});
}

void Preview::MoveTo(const RECT& place) {
    form_.Window().MoveTo(place);
    form_.MoveControl({0, 0, place.right - place.left, place.bottom - place.top});
    ShowHoverLook();
}

// The control paints its bars anew when something of them changes, not when the pointer moves.
void Preview::Redraw() { Call(form_.Control(), L"SetBarCaption", {ActiveTab, Captions[ActiveTab], true}); }

// Without the pointer one bar shows how it looks under it: a visit is feigned, and what was painted meanwhile stays.
void Preview::ShowHoverLook() {
    const HWND window = form_.ControlWindow();
    const auto row = Node::OfWindow(window);
    if (!row) return;
    const auto bars = row->Children();
    if (bars.size() <= static_cast<std::size_t>(HoverTab)) return;
    const RECT bar = bars[static_cast<std::size_t>(HoverTab)].Place();
    POINT inside = {bar.left + 2, bar.bottom - 3};
    ScreenToClient(window, &inside);
    posing_ = true;
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(inside.x, inside.y));
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(-1, -1));
    posing_ = false;
}

void Preview::OnEvent(EventCall& event) {
    if (event.Name() == L"TabMove") Redraw();
    if (event.Name() == L"TabClose") event.Argument(0) = -1; // it stays
    if (event.Name() != L"TabDown") return;
    std::int16_t& tab = event.Argument(0);
    if (!Call(form_.Control(), L"GetTabEnable", {tab}).Flag())
        tab = static_cast<std::int16_t>(Get(form_.Control(), L"ActiveTab").Number());
}

std::optional<LRESULT> Preview::OnMessage(UINT message) {
    if (message != PoseMessage) return std::nullopt;
    ShowHoverLook();
    return 0;
}

// The control lets the pointer go when that leaves the row.
std::optional<LRESULT> Preview::OnControlMessage(UINT message) {
    if (message == WM_CAPTURECHANGED && !posing_) PostMessageW(form_.Window().Handle(), PoseMessage, 0, 0);
    return std::nullopt;
}

} // namespace vantik
