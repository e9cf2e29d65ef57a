#include "ole/pages/SkinPage.h"

#include <algorithm>

#include "base/ErrorText.h"
#include "base/Text.h"
#include "ole/pages/PageNumbers.h"
#include "ole/pages/ReadingBox.h"
#include "ole/pages/SkinFaults.h"
#include "ole/pages/SkinFiles.h"
#include "ole/pages/SkinSettings.h"
#include "platform/Files.h"
#include "platform/Module.h"

namespace vantik {

namespace {

constexpr Field Fields[] = {
    {SKIN_FOLDER, Property::SkinPath, FieldKind::Text},
    {SKIN_FILE, Property::SkinFile, FieldKind::Text},
};

void FillList(HWND list, const std::vector<std::u16string>& texts) {
    SendMessageW(list, CB_RESETCONTENT, 0, 0);
    for (const std::u16string& text : texts)
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

bool IsOneOf(const std::vector<std::u16string>& texts, const std::u16string& text) {
    for (const std::u16string& each : texts)
        if (EqualIgnoringCase(each, text)) return true;
    return false;
}

} // namespace

SkinPage::SkinPage() : PropertyPage(PAGE_SKIN, Fields) {}

std::optional<std::u16string> SkinPage::Folder() const { return Shown(Property::SkinPath); }

std::u16string SkinPage::Settings() const {
    return SettingsOfSkin(Folder().value_or(u""), Shown(Property::SkinFile).value_or(u""));
}

void SkinPage::FillLists() {
    const auto folders = SkinFolders();
    FillList(Item(SKIN_FOLDER), folders);
    skins_.Fill(Item(SKIN_LIST), folders);
    LeaveKeysToPage(Item(SKIN_FAULTS));
}

void SkinPage::ShowRest() {
    skins_.Choose(Item(SKIN_LIST), Folder().value_or(u""));
    ShowDefinitions();
    ShowSettings();
    ShowFaults();
}

// A list that is filled anew loses the text beside it.
void SkinPage::ShowDefinitions() {
    const std::u16string folder = Folder().value_or(u"");
    const HWND list = Item(SKIN_FILE);
    if (folder == listedFolder_ && SendMessageW(list, CB_GETCOUNT, 0, 0)) return;
    FillList(list, SkinDefinitions(folder));
    SetWindowTextW(list, AsWide(Shown(Property::SkinFile).value_or(u"")));
    listedFolder_ = folder;
}

void SkinPage::ShowSettings() const {
    const HWND box = Item(SKIN_SETTINGS);
    EnableWindow(box, Folder() && FileExists(Settings()));
    SendMessageW(box, BM_SETCHECK, settings_ ? BST_CHECKED : BST_UNCHECKED, 0);
}

// Of several objects that differ there is nothing to say.
void SkinPage::ShowFaults() const {
    const auto folder = Folder(), file = Shown(Property::SkinFile);
    std::u16string faults;
    if (folder && file) {
        faults = FaultsOfSkin(*folder, *file);
        if (faults.empty()) faults = ResourceText(TEXT_NO_FAULTS);
    }
    ShowText(Item(SKIN_FAULTS), faults);
}

// Whoever comes back to the page may have written to the skin meanwhile.
void SkinPage::Focused(WORD control) {
    PropertyPage::Focused(control);
    RefreshSoon();
}

void SkinPage::Beside(WORD control, WORD what) {
    if (control == SKIN_SETTINGS && what == BN_CLICKED) TurnSettings();
    if (control == SKIN_LIST && what == LBN_SETFOCUS) Focused(control);
    if (control == SKIN_LIST && what == LBN_SELCHANGE) TakeChosenSkin();
}

void SkinPage::TurnSettings() {
    settings_ = !settings_;
    Edited();
}

void SkinPage::TakeChosenSkin() {
    std::u16string folder = skins_.Chosen(Item(SKIN_LIST));
    if (folder.empty()) return;
    Enter(Property::SkinPath, std::move(folder));
    TextEntered(Property::SkinPath);
}

void SkinPage::DrawBeside(WORD control, const DRAWITEMSTRUCT& item) {
    if (control == SKIN_LIST) skins_.Draw(item);
}

// Another folder may have its definition under another name, and its settings are another matter.
void SkinPage::TextEntered(Property property) {
    if (property != Property::SkinPath) return;
    settings_ = false;
    const auto definitions = SkinDefinitions(Folder().value_or(u""));
    if (!definitions.empty() && !IsOneOf(definitions, Shown(Property::SkinFile).value_or(u"")))
        Enter(Property::SkinFile, PlainestOf(definitions));
}

// The control would show a message of its own, and keep what it has.
void SkinPage::NeedDefinition() const {
    const auto folder = Folder(), file = Shown(Property::SkinFile);
    if (!folder || !file) return; // several objects, each with its own
    const std::u16string path = FolderOfSkin(*folder) + *file;
    if (file->empty() || !FileExists(path))
        Raise(RunTimeErrorNumber::FileNotFound, PathText{path}, u": ",
              DescriptionOf(RunTimeErrorNumber::FileNotFound));
}

// A folder alone loads nothing: the definition is assigned again. Neither can be undone where its files are not there.
std::vector<Assignment> SkinPage::Wanted() const {
    auto wanted = PropertyPage::Wanted();
    if (!wanted.empty()) NeedDefinition();
    if (!Entered(Property::SkinFile) && Entered(Property::SkinPath))
        if (const auto file = Shown(Property::SkinFile)) wanted.push_back({L"SkinFile", *file});
    for (Assignment& assignment : wanted) assignment.CanBeUndone = false;
    if (settings_ && Folder() && Objects().Count())
        for (Assignment& setting : ReadSkinSettings(Settings(), Objects().At(0)))
            wanted.push_back(std::move(setting));
    return wanted;
}

void SkinPage::Forget() noexcept {
    settings_ = false;
    PropertyPage::Forget();
}

} // namespace vantik
