#include "tools/skinpreview/PreviewedControl.h"

#include <algorithm>
#include <cmath>

#include "host/Input.h"
#include "host/MessageLoop.h"
#include "host/PixelCanvas.h"
#include "host/SavedObjects.h"
#include "host/SkinSettings.h"
#include "model/Enumerations.h"
#include "tools/skinpreview/Pictures.h"

namespace vantik {

namespace {

constexpr const wchar_t* Captions[] = {L"Normal", L"Hover", L"Active", L"Disabled"};
enum : std::int16_t { NormalTab, HoverTab, ActiveTab, DisabledTab, TabCount };

constexpr std::int16_t ManyTabs = 3 * TabCount;
constexpr LONG Page = 56;           // pixels of the page that are shown
constexpr LONG RoomForButtons = 96; // beside the row, at 100 percent
constexpr int RowHeight = 30;       // at 100 percent, of skins whose captions have nine points

LONG HeightOf(const PreviewedSkin& skin, std::int32_t rect) {
    const auto& given = skin.Rects()[static_cast<std::size_t>(rect)];
    return given ? std::max(given->Height, 0) : 0;
}

// How much larger than at 100 percent the skin is meant to be, in halves.
double ScaleOf(const PreviewedSkin& skin) {
    return std::max(1.0, std::round(2.0 * HeightOf(skin, BRect) / RowHeight) / 2);
}

std::int16_t ToInteger(double value) { return static_cast<std::int16_t>(std::lround(value)); }

POINT MiddleOf(const RECT& place) noexcept {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

FormLayout LayoutOf() {
    FormLayout layout;
    layout.Title = L"Preview";
    return layout;
}

} // namespace

PreviewedControl::PreviewedControl(ControlModule& module, const PreviewedSkin& skin, Side side)
    : module_(module), side_(side), icons_(skin.TabIcons()), form_(module, LayoutOf()) {
    form_.Window().Show();
    form_.OpenNew();
    Put(Control(), L"TabPos", static_cast<std::int32_t>(side));
    LoadSkin(skin);
    SetFont(skin);
    Resize(skin);
}

int PreviewedControl::Number(const wchar_t* property) { return Get(Control(), property).Number(); }

void PreviewedControl::LoadSkin(const PreviewedSkin& skin) {
    Put(Control(), L"SkinPath", skin.SkinPath());
    Put(Control(), L"SkinFile", skin.SkinFile(side_));
    const auto settings = skin.Settings(side_);
    if (settings.empty()) return SetUsualValues(skin);
    for (const SkinSetting& setting : ReadSkinSettings(settings.wstring()))
        Put(Control(), setting.Property, SettingFromText(setting.Value, module_.Constants()));
}

// Where a skin comes without any: captions between icon and close button.
void PreviewedControl::SetUsualValues(const PreviewedSkin& skin) {
    constexpr double BarWidth = 112, BehindIcon = 24, LetterHeight = 14;
    const double scale = ScaleOf(skin);
    Put(Control(), L"BarWidth", ToInteger(BarWidth * scale));
    Put(Control(), L"CaptionPos", std::int32_t{Lies(side_) ? AlignLeft : AlignMiddle});
    Put(Control(), L"CaptionXjust", ToInteger(Lies(side_) ? BehindIcon * scale : 0));
    Put(Control(), L"CaptionYjust",
        ToInteger(Lies(side_) ? (HeightOf(skin, BRect) - LetterHeight * scale) / 2 : 0));
}

void PreviewedControl::SetFont(const PreviewedSkin& skin) {
    SavedFont font;
    font.Name = L"Segoe UI";
    font.Size = 9 * ScaleOf(skin);
    PutReference(Control(), L"Font", MakeAgain(font).Get());
}

void PreviewedControl::Resize(const PreviewedSkin& skin) {
    const double scale = ScaleOf(skin);
    const LONG length = TabCount * Number(L"BarWidth") + std::lround(RoomForButtons * scale);
    const LONG breadth = HeightOf(skin, BRect) + std::lround(Page * scale);
    const SIZE size = Lies(side_) ? SIZE{length, breadth} : SIZE{breadth, length};
    form_.Window().ResizeClient(size);
    form_.MoveControl({0, 0, size.cx, size.cy});
}

void PreviewedControl::ShowTabs() {
    Put(Control(), L"TabCount", TabCount);
    for (std::int16_t tab = 0; tab < TabCount; ++tab) {
        Call(Control(), L"SetBarCaption", {tab, Captions[tab], true});
        if (!icons_.empty())
            Call(Control(), L"SetBarIco", {tab, icons_[static_cast<std::size_t>(tab) % icons_.size()]});
    }
    Call(Control(), L"SetBarEnable", {std::int16_t{DisabledTab}, false});
    Put(Control(), L"ActiveTab", std::int16_t{ActiveTab});
}

// The bars are painted with the look of the one under the pointer when they are painted next.
void PreviewedControl::PointAt(POINT point) {
    MovePointer(form_, point);
    Call(Control(), L"SetBarCaption", {std::int16_t{NormalTab}, Captions[NormalTab], true});
}

Snapshot PreviewedControl::Looks() {
    ShowTabs();
    PointAt(MiddleOf(BarPlaces().at(HoverTab)));
    return Take();
}

// Without the dots that show where the keyboard is.
Snapshot PreviewedControl::Take() {
    SetFocus(nullptr);
    PumpMessages(form_);
    return Print();
}

// By the window itself, which may be larger than the screen.
Snapshot PreviewedControl::Print() {
    RECT client = {};
    GetClientRect(form_.ControlWindow(), &client);
    PixelCanvas canvas(client.right, client.bottom);
    SendMessageW(form_.ControlWindow(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.DC()), PRF_CLIENT);
    return canvas.Take();
}

std::vector<Node> PreviewedControl::Parts(LONG role) {
    const auto root = Node::OfWindow(form_.ControlWindow());
    if (!root) throw HostError("the control does not tell where its bars and buttons are");
    std::vector<Node> parts = root->Children();
    std::erase_if(parts, [&](const Node& each) { return each.Role() != role; });
    return parts;
}

RECT PreviewedControl::PlaceOf(const Node& node) {
    RECT place = node.Place();
    MapWindowPoints(nullptr, form_.ControlWindow(), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::vector<RECT> PreviewedControl::BarPlaces() {
    std::vector<RECT> places;
    for (const Node& tab : Parts(ROLE_SYSTEM_PAGETAB)) places.push_back(PlaceOf(tab));
    return places;
}

std::vector<RECT> PreviewedControl::ButtonPlaces() {
    std::vector<RECT> places;
    for (const Node& button : Parts(ROLE_SYSTEM_PUSHBUTTON)) places.push_back(PlaceOf(button));
    return places;
}

// Scrolled by one, so that there are more tabs on either side.
void PreviewedControl::ShowManyTabs() {
    constexpr std::size_t Next = 1;
    Put(Control(), L"TabCount", ManyTabs);
    const std::vector<RECT> buttons = ButtonPlaces();
    if (buttons.size() <= Next) return;
    PressButton(form_, MiddleOf(buttons[Next]));
    ReleaseButton(form_, MiddleOf(buttons[Next]));
}

Snapshot PreviewedControl::CutButtons(const Snapshot& picture) {
    constexpr LONG Margin = 2;
    RECT all = {};
    for (const RECT& place : ButtonPlaces()) UnionRect(&all, &all, &place);
    InflateRect(&all, Margin, Margin);
    return CutOut(picture, all);
}

Snapshot PreviewedControl::GreyedButtons() {
    ShowTabs();
    PointAt({-1, -1});
    return CutButtons(Take());
}

Snapshot PreviewedControl::ReleasedButtons() {
    ShowManyTabs();
    PointAt({-1, -1});
    return CutButtons(Take());
}

Snapshot PreviewedControl::PressedButtons() {
    ShowManyTabs();
    Snapshot all = Take();
    for (const RECT& place : ButtonPlaces()) {
        PressButton(form_, MiddleOf(place));
        const Snapshot pressed = Print();
        ReleaseButton(form_, {-1, -1});
        Paste(all, CutOut(pressed, place), place.left, place.top);
    }
    return CutButtons(all);
}

} // namespace vantik
