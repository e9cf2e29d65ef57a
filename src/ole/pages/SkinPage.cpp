#include "ole/pages/SkinPage.h"

#include <algorithm>

#include "base/ErrorText.h"
#include "base/Text.h"
#include "ole/pages/PageNumbers.h"
#include "ole/pages/SkinFiles.h"
#include "ole/pages/SkinSettings.h"
#include "platform/Files.h"

namespace vantik {

namespace {

constexpr Field Fields[] = {
    {SKIN_FOLDER, Property::SkinPath, FieldKind::Text},
    {SKIN_FILE, Property::SkinFile, FieldKind::Text},
};

// A definition for bars on the left or the right has settings of its own: SKIN-SIDES.INI those of SETTINGS-SIDES.TXT.
std::u16string SettingsOf(const std::u16string& definition) {
    constexpr std::u16string_view Sides = u"-SIDES.INI";
    const bool isForSides = UpperCase(definition).ends_with(Sides);
    return isForSides ? u"SETTINGS-SIDES.TXT" : u"SETTINGS.TXT";
}

// The plainest name: the others are variants.
const std::u16string& FirstChoice(const std::vector<std::u16string>& definitions) {
    return *std::ranges::min_element(definitions, {}, &std::u16string::size);
}

void FillList(HWND list, const std::vector<std::u16string>& texts) {
    SendMessageW(list, CB_RESETCONTENT, 0, 0);
    for (const std::u16string& text : texts)
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::u16string PathIn(const std::u16string& folder, const std::u16string& file) {
    return ApplicationFolder() + u"\\" + folder + u"\\" + file;
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
    return PathIn(Folder().value_or(u""), SettingsOf(Shown(Property::SkinFile).value_or(u"")));
}

void SkinPage::FillLists() { FillList(Item(SKIN_FOLDER), SkinFolders()); }

// A list that is filled anew loses the text beside it.
void SkinPage::ShowRest() {
    const std::u16string folder = Folder().value_or(u"");
    if (const HWND list = Item(SKIN_FILE);
        folder != listedFolder_ || !SendMessageW(list, CB_GETCOUNT, 0, 0)) {
        FillList(list, SkinDefinitions(folder));
        SetWindowTextW(list, AsWide(Shown(Property::SkinFile).value_or(u"")));
        listedFolder_ = folder;
    }
    const HWND box = Item(SKIN_SETTINGS);
    EnableWindow(box, Folder() && FileExists(Settings()));
    SendMessageW(box, BM_SETCHECK, settings_ ? BST_CHECKED : BST_UNCHECKED, 0);
}

void SkinPage::PressedBeside(WORD control) {
    if (control != SKIN_SETTINGS) return;
    settings_ = !settings_;
    Edited();
}

// Another folder may have its definition under another name, and its settings are another matter.
void SkinPage::TextEntered(Property property) {
    if (property != Property::SkinPath) return;
    settings_ = false;
    const auto definitions = SkinDefinitions(Folder().value_or(u""));
    if (!definitions.empty() && !IsOneOf(definitions, Shown(Property::SkinFile).value_or(u"")))
        Enter(Property::SkinFile, FirstChoice(definitions));
}

// The control would show a message of its own, and keep what it has.
void SkinPage::NeedDefinition() const {
    const auto folder = Folder(), file = Shown(Property::SkinFile);
    if (!folder || !file) return; // several objects, each with its own
    const std::u16string path = PathIn(*folder, *file);
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
