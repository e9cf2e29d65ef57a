// The engine's window onto its host, on one page. The COM shell implements it for real containers, a test for none.
//
// Every call may run host code; what the engine needs afterwards it reads again. A call that the host cannot answer has
// a harmless result (null window, no children, size 0); only what is documented here is raised.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "model/Enumerations.h"
#include "model/Properties.h"
#include "platform/ComPtr.h"

namespace vantik {

// One control that the host keeps on this one. Each access raises NoSuchMember when the child has no such property, or
// whatever error the child itself reports.
class ChildControl {
public:
    virtual ~ChildControl() = default;
    virtual double Left() = 0; // in the host's unit, twips on a form
    virtual void Left(double left) = 0;
    virtual std::u16string Name() = 0;
    virtual void Visible(Boolean visible) = 0;
};

// The events; a handler may change what the references show. An error of a handler propagates as RunTimeError.
class TabEvents {
public:
    virtual ~TabEvents() = default;
    virtual void DownBarDown() = 0;
    virtual void PreTabDown(std::int16_t& firstPos) = 0;
    virtual void NextTabDown(std::int16_t& firstPos) = 0;
    virtual void TabMove(std::int16_t& index) = 0;
    virtual void TabDown(std::int16_t& index, std::int16_t& button) = 0;
    virtual void TabClose(std::int16_t& index) = 0;
};

// What a caption is written in: OLE colours.
struct CaptionColours {
    std::int32_t Text;
    std::optional<std::int32_t> Ground; // without one the bar shows between the letters
};

enum class CaptionKind : std::uint8_t { Normal, Active, Disabled };

class UserControl {
public:
    virtual ~UserControl() = default;

    // The drawing surface: as large as the control, keeps its image between repaints. Never null.
    virtual HDC hDC() = 0;
    // Its pixels in a rectangle, 0xRRGGBB, rows from the top; 0 where it has none. False when they cannot be had.
    virtual bool ReadSurface(const RECT& area, std::span<std::uint32_t> rows) = 0;
    virtual void Cls() = 0;     // clears the surface to the background colour
    virtual void Refresh() = 0; // shows on the window what was drawn on the surface, now

    virtual HWND hWnd() = 0; // null while there is no window

    // Lets the pointer go where the window has captured it.
    virtual void ReleaseCapture() {}

    // Whether a turn of the wheel over the window is one for the control. The number is the message's wParam.
    virtual bool TakesWheel(std::int32_t /*turn*/) { return true; }

    // Position in the container and size, in twips, and the screen's conversion factors.
    virtual double Left() = 0;
    virtual double Top() = 0;
    virtual double Width() = 0;
    virtual double Height() = 0;
    virtual double TwipsPerPixelX() = 0;
    virtual double TwipsPerPixelY() = 0;

    // Ambient properties of the host.
    virtual ComPtr<IFontDisp> AmbientFont() = 0; // a standard font where the host has none; never null
    virtual Boolean AmbientUserMode() = 0;

    // Those of the properties, unless the host knows some that its user reads better.
    virtual CaptionColours ColoursOf(const CaptionColours& ofProperties, CaptionKind) { return ofProperties; }

    virtual void PropertyChanged(Property property) = 0;
    virtual TabEvents& Events() = 0;
    virtual std::vector<std::unique_ptr<ChildControl>> ChildControls() = 0;

    // The folder of the running application, without a trailing backslash.
    virtual std::u16string HostFolder() = 0;

    // Keeps the control and this host alive while the reference is held; null where the owner sees to that itself.
    virtual ComPtr<IUnknown> KeepAlive() { return nullptr; }

    // A message box with an OK button and the host application's title.
    virtual void MsgBox(const std::u16string& text) = 0;
};

} // namespace vantik
