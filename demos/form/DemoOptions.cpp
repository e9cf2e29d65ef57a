// The options of the demo form and what they do to the control.
#include "DemoForm.h"

namespace vantik {

namespace {

const std::vector<std::wstring> Sides = {L"Left", L"Right", L"Top", L"Bottom"}; // in the order of dTabPos
const std::vector<std::wstring> Placements = {L"Start", L"Middle", L"End", L"Custom"}; // of dTabBarPos
const std::vector<std::wstring> Alignments = {L"Left", L"Middle", L"Right"};           // of FontPos

constexpr std::int16_t ManyTabs = 40;
constexpr std::int16_t TabToDisable = 2;

std::vector<std::wstring> NamesOf(const std::vector<SkinChoice>& skins) {
    std::vector<std::wstring> names;
    for (const SkinChoice& skin : skins) names.push_back(skin.Name);
    return names;
}

} // namespace

void DemoForm::MakeOptions() {
    options_ = std::make_unique<OptionPanel>(form_->Window().Handle(), font_, PanelWidth);
    MakeLookOptions();
    options_->AddGap(4);
    MakeTabOptions();
    options_->AddGap(4);
    options_->AddHeading(L"Events");
}

// A setting that is a property of the control.
OptionPanel::Setting<int> DemoForm::NumberSetting(const wchar_t* property) {
    return {[=, this](int number) {
                Set(property, number);
                ArrangeCaptions();
            },
            [=, this] { return Number(property); }};
}

OptionPanel::Setting<bool> DemoForm::FlagSetting(const wchar_t* property) {
    return {[=, this](bool flag) {
                Set(property, flag);
                ArrangeCaptions();
            },
            [=, this] { return Get(Control(), property).Flag(); }};
}

OptionPanel::Setting<std::wstring> DemoForm::TextSetting(const wchar_t* property) {
    return {[=, this](const std::wstring& text) { Set(property, text); },
            [=, this] { return Get(Control(), property).Text(); }};
}

void DemoForm::MakeLookOptions() {
    options_->AddChoice(L"Side", Sides,
                        {[this](int side) { ShowSide(side); }, [this] { return Number(L"TabPos"); }});
    options_->AddChoice(L"Placement", Placements, NumberSetting(L"TabBarPos"));
    options_->AddChoice(L"Captions", Alignments, NumberSetting(L"CaptionPos"));
    options_->AddChoice(L"Skin", NamesOf(skins_),
                        {[this](int skin) { UseSkin(skin); }, [this] { return skin_; }});
    options_->AddNumber(L"Bar width", 1, 400, NumberSetting(L"BarWidth"));
    options_->AddNumber(L"Bar gap", -40, 40, NumberSetting(L"TabToTab"));
    options_->AddText(L"Fixed", TextSetting(L"FixOcxList"));
}

void DemoForm::MakeTabOptions() {
    options_->AddSwitch(L"Edges on every bar", FlagSetting(L"TabBorder"));
    options_->AddSwitch(L"Close buttons", FlagSetting(L"DelButton"));
    options_->AddSwitch(L"Icons", {[this](bool on) { ShowIcons(on); }, [this] { return icons_; }});
    options_->AddSwitch(L"Disable the third tab", {[this](bool on) { EnableTab(TabToDisable, !on); },
                                                   [this] { return !IsEnabled(TabToDisable); }});
    options_->AddGap(4);
    options_->AddButtons({{L"Insert", [this] { InsertTab(); }},
                          {L"Remove", [this] { RemoveTab(); }},
                          {L"40 tabs", [this] { SetTabCount(ManyTabs); }}});
}

void DemoForm::Set(const wchar_t* property, Variant value) {
    Try([&] { Put(Control(), property, std::move(value)); });
}

int DemoForm::Number(const wchar_t* property) { return Get(Control(), property).Number(); }

bool DemoForm::IsEnabled(std::int16_t tab) { return Call(Control(), L"GetTabEnable", {tab}).Flag(); }

void DemoForm::ShowIcons(bool show) {
    icons_ = show;
    const std::vector<std::wstring>& icons = ChosenSkin().Icons;
    Try([&] {
        const int count = Number(L"TabCount");
        for (std::int16_t tab = 0; tab < count; ++tab) {
            Call(Control(), L"SetBarIco",
                 {tab, show ? icons[static_cast<std::size_t>(tab) % icons.size()] : L"-1"});
        }
    });
    ArrangeCaptions();
}

void DemoForm::EnableTab(std::int16_t tab, bool enable) {
    Try([&] { Call(Control(), L"SetBarEnable", {tab, enable}); });
}

void DemoForm::SetTabCount(std::int16_t count) {
    Set(L"TabCount", count);
    ShowIcons(icons_);
}

std::int16_t DemoForm::ActiveTab() { return static_cast<std::int16_t>(Number(L"ActiveTab")); }

void DemoForm::InsertTab() {
    Try([&] {
        Bstr caption(L"");
        Call(Control(), L"InsertTab", {ActiveTab(), caption.Put()});
        Note(L"inserted " + caption.Text());
    });
    ShowIcons(icons_);
}

void DemoForm::RemoveTab() {
    Try([&] { Call(Control(), L"RemoveTab", {ActiveTab()}); });
    ArrangeLater();
}

void DemoForm::ShowTabMenu() {
    const HMENU menu = CreatePopupMenu();
    const int count = Number(L"TabCount");
    for (std::int16_t tab = 0; tab < count; ++tab) {
        const UINT state = (tab == ActiveTab() ? MF_CHECKED : 0U) | (IsEnabled(tab) ? 0U : MF_GRAYED);
        const std::wstring caption = Call(Control(), L"GetTabCaption", {tab}).Text();
        AppendMenuW(menu, state, static_cast<UINT_PTR>(tab + 1), caption.c_str());
    }
    const POINT corner = keys_->MenuCorner();
    const int chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD, corner.x, corner.y, 0, form_->Window().Handle(), nullptr);
    DestroyMenu(menu);
    if (chosen > 0) Set(L"ActiveTab", static_cast<std::int16_t>(chosen - 1));
}

} // namespace vantik
