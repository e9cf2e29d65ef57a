// The page "Skin": a folder and a definition in it, chosen from what lies there, the settings that go with them, and what
// is wrong in the definition.
#pragma once

#include "ole/pages/PropertyPage.h"
#include "ole/pages/SkinList.h"

namespace vantik {

class SkinPage final : public PropertyPage {
public:
    SkinPage();

private:
    ~SkinPage() override = default;

    void FillLists() override;
    void ShowRest() override;
    void Beside(WORD control, WORD what) override;
    void DrawBeside(WORD control, const DRAWITEMSTRUCT& item) override;
    void Focused(WORD control) override;
    void TextEntered(Property property) override;
    std::vector<Assignment> Wanted() const override;
    bool IsEdited() const noexcept override { return settings_ || PropertyPage::IsEdited(); }
    void Forget() noexcept override;

    std::optional<std::u16string> Folder() const; // as SkinPath names it
    std::u16string Settings() const;              // the file that they stand in
    void NeedDefinition() const;
    void ShowDefinitions();
    void ShowSettings() const;
    void ShowFaults() const;
    void TurnSettings();
    void TakeChosenSkin();

    SkinList skins_;

    bool settings_ = false;       // are to be applied, too
    std::u16string listedFolder_; // whose definitions are in the list
};

} // namespace vantik
