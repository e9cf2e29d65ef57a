// The skins of the demo form, and how captions and icons stand in their bars.
#include "DemoForm.h"

namespace vantik {

namespace {

constexpr int LeftSide = 0, RightSide = 1;
constexpr int AlignLeft = 0, AlignMiddle = 1, AlignRight = 2;

constexpr int IconRoom = 22;    // an icon and the gap behind it
constexpr int BehindIcon = 28;  // where captions begin that the skin would not put there
constexpr int AwayFromIcon = 6; // in the middle, with no close button at the other end to balance the icon

} // namespace

// The value that the skin in force wants; 0 for a property that it does not care about.
int DemoForm::SkinValue(const wchar_t* property) const {
    int value = 0; // the last one counts
    for (const SkinSetting& setting : ChosenVariant().Settings)
        if (setting.Property == property)
            value = SettingFromText(setting.Value, module_.Constants()).Number();
    return value;
}

void DemoForm::LoadSkin() {
    Put(Control(), L"SkinPath", ChosenSkin().Folder);
    Put(Control(), L"SkinFile", ChosenVariant().File);
}

void DemoForm::UseSkin(int skin) {
    Try([&] {
        skin_ = skin;
        LoadSkin();
        for (const SkinSetting& setting : ChosenVariant().Settings)
            Put(Control(), setting.Property, SettingFromText(setting.Value, module_.Constants()));
        pages_->TakeBackground();
        ShowIcons(icons_);
        options_->Refresh();
    });
}

void DemoForm::ShowSide(int side) {
    Set(L"TabPos", side);
    const bool lying = side != LeftSide && side != RightSide;
    if (std::exchange(lying_, lying) != lying) {
        Try([&] {
            LoadSkin();
            Put(Control(), L"CaptionPos", SkinValue(L"CaptionPos"));
        });
    }
    ArrangeCaptions();
}

// How far captions stand from where the control puts them along the bar. Icons are at the bars' beginning, which is the
// upper end of standing ones, where captions end.
int DemoForm::CaptionShift() {
    const int position = Number(L"CaptionPos");
    const int wanted = SkinValue(lying_ ? L"CaptionXjust" : L"CaptionYjust");
    const bool own = position == SkinValue(L"CaptionPos");
    if (position == AlignMiddle) {
        if (icons_ && !Get(Control(), L"DelButton").Flag()) return AwayFromIcon;
        return own && icons_ ? wanted : 0;
    }
    if (position != (lying_ ? AlignLeft : AlignRight)) return 0;
    const int behindIcon = own ? wanted : BehindIcon;
    return icons_ ? behindIcon : behindIcon - IconRoom;
}

void DemoForm::ArrangeCaptions() {
    const int along = CaptionShift();
    Set(L"IcoXjust", SkinValue(L"IcoXjust"));
    Set(L"IcoYjust", SkinValue(L"IcoYjust"));
    Set(L"CaptionXjust", lying_ ? along : SkinValue(L"CaptionXjust"));
    Set(L"CaptionYjust", lying_ ? SkinValue(L"CaptionYjust") : along);
}

} // namespace vantik
