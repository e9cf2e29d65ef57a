// The engine's window onto its host, for a real container or for none.
#pragma once

#include "platform/UserControl.h"

namespace vantik {

class Control;

class ControlHost final : public UserControl {
public:
    explicit ControlHost(Control& control) noexcept : control_(control) {}

    HDC hDC() override;
    bool ReadSurface(const RECT& area, std::span<std::uint32_t> rows) override;
    void Cls() override;
    void Refresh() override;
    HWND hWnd() override;
    void ReleaseCapture() override;
    bool TakesWheel(std::int32_t turn) override;

    double Left() override;
    double Top() override;
    double Width() override;
    double Height() override;
    double TwipsPerPixelX() override;
    double TwipsPerPixelY() override;

    ComPtr<IFontDisp> AmbientFont() override;
    Boolean AmbientUserMode() override;
    CaptionColours ColoursOf(const CaptionColours& ofProperties, CaptionKind kind) override;

    void PropertyChanged(Property property) override;
    TabEvents& Events() override;
    std::vector<std::unique_ptr<ChildControl>> ChildControls() override;
    std::u16string HostFolder() override;
    ComPtr<IUnknown> KeepAlive() override;
    void MsgBox(const std::u16string& text) override;

private:
    Control& control_;
};

} // namespace vantik
