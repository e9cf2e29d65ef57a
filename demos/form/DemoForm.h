// The demo: a form whose options change the control that stands on it, and a list of what the control reports.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "EventList.h"
#include "FormKeys.h"
#include "OptionPanel.h"
#include "Pages.h"
#include "Skins.h"
#include "host/HostForm.h"
#include "host/Widgets.h"

namespace vantik {

class DemoForm {
public:
    explicit DemoForm(ControlModule& module);

    HostForm& Form() noexcept { return *form_; }
    IDispatch& Control() { return form_->Control(); }

    // What the options do; the pictures use it, too.
    void ShowSide(int side);
    void ShowIcons(bool show);
    void EnableTab(std::int16_t tab, bool enable);
    void UseSkin(int skin);
    void SetTabCount(std::int16_t count);
    void ShowOptions() { options_->Refresh(); } // after changes that did not come from them
    void TakeFocus() { form_->UIActivate(); }   // the first stop of the form
    const std::vector<SkinChoice>& Skins() const noexcept { return skins_; }

private:
    static constexpr int PanelWidth = 236;

    void OpenControl();
    void MakeOptions();
    void MakeLookOptions();
    void MakeTabOptions();
    OptionPanel::Setting<int> NumberSetting(const wchar_t* property);
    OptionPanel::Setting<bool> FlagSetting(const wchar_t* property);
    OptionPanel::Setting<std::wstring> TextSetting(const wchar_t* property);
    void Arrange();
    void ArrangeLater();
    void LoadSkin();
    const SkinChoice& ChosenSkin() const { return skins_.at(static_cast<std::size_t>(skin_)); }
    const SkinVariant& ChosenVariant() const { return lying_ ? ChosenSkin().Lying : ChosenSkin().Standing; }
    int SkinValue(const wchar_t* property) const;
    int CaptionShift();
    void ArrangeCaptions();
    void Note(const std::wstring& line);
    void RefuseDisabledTab(EventCall& event);
    void OnEvent(EventCall& event);
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnControlMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Sets a property; what the control refuses is noted in the list.
    void Set(const wchar_t* property, Variant value);
    template <class Piece>
    void Try(Piece piece) {
        try {
            piece();
        } catch (const HostError& error) {
            Note(FromUtf8(error.what()));
        }
    }
    void InsertTab();
    void RemoveTab();
    void ShowTabMenu();
    int Number(const wchar_t* property);
    std::int16_t ActiveTab();
    bool IsEnabled(std::int16_t tab);

    ControlModule& module_;
    FormFont font_;
    std::vector<SkinChoice> skins_;
    int skin_ = 0;
    bool lying_ = true; // the skin in force is the one for such bars
    bool icons_ = false;
    std::unique_ptr<HostForm> form_;
    std::unique_ptr<OptionPanel> options_;
    std::unique_ptr<EventList> events_;
    std::unique_ptr<Pages> pages_;
    std::unique_ptr<FormKeys> keys_;
};

} // namespace vantik
