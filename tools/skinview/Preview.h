// The control on one of its four sides, with bars that show every look.
#pragma once

#include <string>
#include <vector>

#include "host/HostForm.h"
#include "host/SkinSettings.h"
#include "host/Widgets.h"

namespace vantik {

enum class Side : std::int32_t { Left, Right, Top, Bottom }; // the control's dTabPos

inline bool IsLying(Side side) noexcept { return side == Side::Top || side == Side::Bottom; }

// What a control is told of a skin.
struct PreviewSkin {
    std::wstring Path, File;
    std::vector<std::wstring> Icons;          // for its tabs, as far as they go
    std::vector<SkinSetting> Lying, Standing; // the properties that go with it
};

class Preview {
public:
    // Hidden at first. HostError when the control refuses the skin.
    Preview(ControlModule& module, HWND parent, Side side, const RECT& place, const PreviewSkin& skin);

    void MoveTo(const RECT& place);
    void Show();
    bool TranslateMessage(MSG& message) { return form_.TranslateMessage(message); }

private:
    void Open(Side side, const PreviewSkin& skin, const std::vector<EnumerationMember>& constants);
    void NameTabs(const PreviewSkin& skin);
    void Redraw();
    void ShowHoverLook();
    void OnEvent(EventCall& event);
    std::optional<LRESULT> OnMessage(UINT message);
    std::optional<LRESULT> OnControlMessage(UINT message);

    bool posing_ = false; // the pointer is not really there
    HostForm form_;
};

} // namespace vantik
