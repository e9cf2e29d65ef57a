// The windows on the control: those of five tabs, and one that stays on every tab.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "PageColour.h"
#include "host/HostForm.h"
#include "host/Widgets.h"

namespace vantik {

class Pages {
public:
    static const std::vector<std::wstring>& Captions();
    static constexpr const wchar_t* FixedControl = L"cmdOk";
    static constexpr std::int32_t TabOffSet = 20000; // twips; wider than the form ever gets

    using Report = std::function<void(const std::wstring&)>;

    // Makes the windows; tab 0 is the active one.
    Pages(HostForm& form, const FormFont& font, Report report);

    void Arrange(SIZE control); // keeps the fixed button in its corner
    void TakeBackground() { colour_.TakeFrom(form_); }
    const PageColour& Background() const noexcept { return colour_; }

    // What the control's window was sent by its children.
    std::optional<LRESULT> ControlMessage(UINT message, WPARAM wParam, LPARAM lParam);

private:
    void Make();
    void Place(HostedWindow& window, int tab);

    HostForm& form_;
    const FormFont& font_;
    Report report_;
    PageColour colour_;
};

} // namespace vantik
