// The control on a form with a skin, shown in its looks.
#pragma once

#include <vector>

#include "acctree/Node.h"
#include "host/HostForm.h"
#include "host/Snapshot.h"
#include "tools/skinpreview/PreviewedSkin.h"

namespace vantik {

class PreviewedControl {
public:
    PreviewedControl(ControlModule& module, const PreviewedSkin& skin, Side side);

    // Four bars: normal, hover, active and disabled.
    Snapshot Looks();

    // The buttons beside the row: greyed, as far as they can be, released, and each pressed.
    Snapshot GreyedButtons();
    Snapshot ReleasedButtons();
    Snapshot PressedButtons();

private:
    IDispatch& Control() { return form_.Control(); }
    int Number(const wchar_t* property);
    void LoadSkin(const PreviewedSkin& skin);
    void SetUsualValues(const PreviewedSkin& skin);
    void SetFont(const PreviewedSkin& skin);
    void Resize(const PreviewedSkin& skin);
    void ShowTabs();
    void ShowManyTabs();
    void PointAt(POINT point);
    Snapshot Take();
    Snapshot Print();

    std::vector<Node> Parts(LONG role);
    RECT PlaceOf(const Node& node);
    std::vector<RECT> BarPlaces();
    std::vector<RECT> ButtonPlaces();
    Snapshot CutButtons(const Snapshot& picture);

    ControlModule& module_;
    Side side_;
    std::vector<std::wstring> icons_;
    HostForm form_;
};

} // namespace vantik
