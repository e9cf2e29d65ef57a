// The options of the demo form and what they do to the control.
#include "DemoForm.h"

namespace vantik {

namespace {

const std::vector<std::wstring> Sides = {L"Left", L"Right", L"Top", L"Bottom"}; // in the order of dTabPos
const std::vector<std::wstring> Placements = {L"Start", L"Middle", L"End", L"Custom"}; // of dTabBarPos
const std::vector<std::wstring> Alignments = {L"Left", L"Middle", L"Right"};           // of FontPos
constexpr int Top = 2;
constexpr int Middle = 1;

constexpr std::int16_t ManyTabs = 40;
constexpr std::int16_t TabToDisable = 2;
constexpr const wchar_t* Icons[] = {L"Sun", L"HandNo"};

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

void DemoForm::MakeLookOptions() {
    options_->AddChoice(L"Side", Sides, Top, [this](int side) { Set(L"TabPos", side); });
    options_->AddChoice(L"Placement", Placements, 0, [this](int placement) { Set(L"TabBarPos", placement); });
    options_->AddChoice(L"Captions", Alignments, Middle,
                        [this](int alignment) { Set(L"CaptionPos", alignment); });
    options_->AddChoice(L"Skin", NamesOf(skins_), 0,
                        [this](int skin) { UseSkin(static_cast<std::size_t>(skin)); });
    options_->AddNumber(L"Bar width", InitialBarWidth, 1, 400,
                        [this](int width) { Set(L"BarWidth", static_cast<std::int16_t>(width)); });
    options_->AddNumber(L"Bar gap", 0, 0, 40,
                        [this](int gap) { Set(L"TabToTab", static_cast<std::int16_t>(gap)); });
    options_->AddText(L"Fixed", Pages::FixedControl,
                      [this](const std::wstring& names) { Set(L"FixOcxList", names); });
}

void DemoForm::MakeTabOptions() {
    options_->AddSwitch(L"Edges on every bar", false, [this](bool on) { Set(L"TabBorder", on); });
    options_->AddSwitch(L"Close buttons", false, [this](bool on) { Set(L"DelButton", on); });
    options_->AddSwitch(L"Icons", false, [this](bool on) { ShowIcons(on); });
    options_->AddSwitch(L"Disable the third tab", false, [this](bool on) { EnableTab(TabToDisable, !on); });
    options_->AddGap(4);
    options_->AddButtons({{L"Insert", [this] { InsertTab(); }},
                          {L"Remove", [this] { RemoveTab(); }},
                          {L"40 tabs", [this] { SetTabCount(ManyTabs); }}});
}

template <class Piece>
void DemoForm::Try(Piece piece) {
    try {
        piece();
    } catch (const HostError& error) {
        Note(FromUtf8(error.what()));
    }
}

void DemoForm::Set(const wchar_t* property, Variant value) {
    Try([&] { Put(Control(), property, std::move(value)); });
}

std::int16_t DemoForm::Number(const wchar_t* property) {
    return static_cast<std::int16_t>(Get(Control(), property).Number());
}

void DemoForm::ShowIcons(bool show) {
    Try([&] {
        const std::int16_t count = Number(L"TabCount");
        for (std::int16_t tab = 0; tab < count; ++tab) {
            Call(Control(), L"SetBarIco", {tab, show ? Icons[tab % 2] : L"-1"});
        }
        Put(Control(), L"IcoXjust", std::int16_t{2});
        Put(Control(), L"CaptionXjust", static_cast<std::int16_t>(show ? 8 : 0));
    });
}

void DemoForm::EnableTab(std::int16_t tab, bool enable) {
    Try([&] { Call(Control(), L"SetBarEnable", {tab, enable}); });
}

void DemoForm::UseSkin(std::size_t index) {
    Try([&] {
        Put(Control(), L"SkinPath", skins_.at(index).Folder);
        Put(Control(), L"SkinFile", L"skin.ini");
        pages_->TakeBackground();
    });
}

void DemoForm::SetTabCount(std::int16_t count) { Set(L"TabCount", count); }

void DemoForm::InsertTab() {
    Try([&] {
        Bstr caption(L"");
        Call(Control(), L"InsertTab", {Number(L"ActiveTab"), caption.Put()});
        Note(L"inserted " + caption.Text());
    });
}

void DemoForm::RemoveTab() {
    Try([&] { Call(Control(), L"RemoveTab", {Number(L"ActiveTab")}); });
}

void DemoForm::ShowTabMenu() {
    const HMENU menu = CreatePopupMenu();
    const std::int16_t count = Number(L"TabCount");
    for (std::int16_t tab = 0; tab < count; ++tab) {
        const bool active = tab == Number(L"ActiveTab");
        const bool enabled = Call(Control(), L"GetTabEnable", {tab}).Flag();
        const std::wstring caption = Call(Control(), L"GetTabCaption", {tab}).Text();
        AppendMenuW(menu, (active ? MF_CHECKED : 0U) | (enabled ? 0U : MF_GRAYED),
                    static_cast<UINT_PTR>(tab + 1), caption.c_str());
    }
    POINT pointer = {};
    GetCursorPos(&pointer);
    const int chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD, pointer.x, pointer.y, 0, form_->Window().Handle(), nullptr);
    DestroyMenu(menu);
    if (chosen > 0) Set(L"ActiveTab", static_cast<std::int16_t>(chosen - 1));
}

} // namespace vantik
