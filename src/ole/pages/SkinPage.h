// The page "Skin": a folder and a definition in it, chosen from what lies there, and the settings that go with them.
#pragma once

#include "ole/pages/PropertyPage.h"

namespace vantik {

class SkinPage final : public PropertyPage {
public:
    SkinPage();

private:
    ~SkinPage() override = default;

    void FillLists() override;
    void ShowRest() override;
    void PressedBeside(WORD control) override;
    void TextEntered(Property property) override;
    std::vector<Assignment> Wanted() const override;
    bool IsEdited() const noexcept override { return settings_ || PropertyPage::IsEdited(); }
    void Forget() noexcept override;

    std::optional<std::u16string> Folder() const; // as SkinPath names it
    std::u16string Settings() const;              // the file that they stand in
    void NeedDefinition() const;

    bool settings_ = false;       // are to be applied, too
    std::u16string listedFolder_; // whose definitions are in the list
};

} // namespace vantik
