// A host for the engine's tests: a surface to paint on, a log of what the control asked for, and handlers to answer its
// events with.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/UserControl.h"
#include "tests/gfx/TestSurface.h"

namespace vantik::test {

struct FakeChild {
    std::u16string Name;
    double Left = 0;
    Boolean Visible = True;
    bool HasLeft = true; // a child without the property raises NoSuchMember
    bool HasName = true;
    bool HasVisible = true;
};

class FakeUserControl : public UserControl, private TabEvents {
public:
    static constexpr double TwipsPerPixel = 15;

    // Without a window, hWnd is null, as before the host creates one.
    FakeUserControl(std::int32_t width, std::int32_t height, bool withWindow = false);
    ~FakeUserControl() override;
    FakeUserControl(const FakeUserControl&) = delete;
    FakeUserControl& operator=(const FakeUserControl&) = delete;

    HDC hDC() override;
    bool ReadSurface(const RECT& area, std::span<std::uint32_t> rows) override;
    void Cls() override; // the surface becomes BackColour
    void Refresh() override;
    HWND hWnd() override { return window_; }
    void ReleaseCapture() override { ++CapturesReleased; }
    double Left() override { return LeftTwips; }
    double Top() override { return TopTwips; }
    double Width() override { return WidthTwips; }
    double Height() override { return HeightTwips; }
    double TwipsPerPixelX() override { return PerPixelX; }
    double TwipsPerPixelY() override { return PerPixelY; }
    ComPtr<IFontDisp> AmbientFont() override { return Font; }
    Boolean AmbientUserMode() override { return UserMode; }
    bool TakesWheel(std::int32_t) override { return Wheel; }
    CaptionColours ColoursOf(const CaptionColours& ofProperties, CaptionKind kind) override {
        return OtherColours ? OtherColours(ofProperties, kind) : ofProperties;
    }
    void PropertyChanged(Property property) override; // logged by its key
    TabEvents& Events() override { return *this; }
    std::vector<std::unique_ptr<ChildControl>> ChildControls() override;
    std::u16string HostFolder() override { return Folder; }
    void MsgBox(const std::u16string& text) override;

    // What the host says.
    double LeftTwips = 0, TopTwips = 0, WidthTwips = 0, HeightTwips = 0;
    double PerPixelX = TwipsPerPixel, PerPixelY = TwipsPerPixel;
    std::uint32_t BackColour = 0xC8C8C8; // 0xRRGGBB
    Boolean UserMode = True;
    bool Wheel = true;
    ComPtr<IFontDisp> Font;
    std::u16string Folder = u"C:\\nowhere";
    std::vector<FakeChild> Children;
    std::function<CaptionColours(const CaptionColours&, CaptionKind)> OtherColours;

    // Called whenever the control is about to draw, and whenever it is about to tell something or to move children.
    std::function<void()> OnDraw, OnCall;

    // Called inside the events, after they were logged, with what the control passed.
    struct {
        std::function<void()> DownBarDown;
        std::function<void(std::int16_t&)> PreTabDown, NextTabDown, TabMove, TabClose;
        std::function<void(std::int16_t&, std::int16_t&)> TabDown;
    } On;

    // A new size and a new, blank surface.
    void Resize(std::int32_t width, std::int32_t height);

    Pixels Read() const { return surface_->Read(); }
    void Write(const Pixels& content) { surface_->Write(content); }

    // Everything since the last call, such as "PropertyChanged TabCount; TabDown 1 1; Cls".
    std::string TakeLog();
    // The bounds of what the window has to paint since the last call, "left,top,right,bottom"; empty for nothing.
    std::string TakeInvalidated();
    std::vector<std::u16string> Messages; // of message boxes
    int CapturesReleased = 0;

private:
    void DownBarDown() override;
    void PreTabDown(std::int16_t& firstPos) override;
    void NextTabDown(std::int16_t& firstPos) override;
    void TabMove(std::int16_t& index) override;
    void TabDown(std::int16_t& index, std::int16_t& button) override;
    void TabClose(std::int16_t& index) override;
    void Log(const std::string& entry);

    std::optional<TestSurface> surface_;
    HWND window_ = nullptr;
    std::string log_;
};

// A font object by name and size.
ComPtr<IFontDisp> FontOf(const std::u16string& name, int points);

} // namespace vantik::test
