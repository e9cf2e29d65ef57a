#include "ole/control/ControlHost.h"

#include "ole/com/Identifiers.h"
#include "ole/control/Control.h"
#include "ole/control/HighContrast.h"
#include "ole/host/Children.h"
#include "ole/host/ModelessOff.h"
#include "platform/Files.h"

namespace vantik {

namespace {

// The application's file name without its extension.
std::u16string HostTitle() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH - 1);
    const std::wstring_view file = std::wstring_view(path).substr(std::wstring_view(path).rfind(L'\\') + 1);
    return FromWide(file.substr(0, file.rfind(L'.')));
}

} // namespace

HDC ControlHost::hDC() { return control_.Surface.DC(); }
bool ControlHost::ReadSurface(const RECT& area, std::span<std::uint32_t> rows) {
    return control_.Surface.Read(area, rows);
}
void ControlHost::Cls() { control_.Surface.Clear(); }
HWND ControlHost::hWnd() { return control_.Place.Window(); }
void ControlHost::ReleaseCapture() { control_.Place.ReleaseCapture(); }
bool ControlHost::TakesWheel(std::int32_t turn) { return control_.Place.TakesWheel(turn); }

void ControlHost::Refresh() {
    if (const HWND window = hWnd()) {
        InvalidateRect(window, nullptr, FALSE);
        UpdateWindow(window);
    } else {
        control_.ShowChanges();
    }
}

double ControlHost::TwipsPerPixelX() { return control_.Size.Screen().WholeTwipsPerPixelX(); }
double ControlHost::TwipsPerPixelY() { return control_.Size.Screen().WholeTwipsPerPixelY(); }
double ControlHost::Left() { return control_.Place.Position().x * TwipsPerPixelX(); }
double ControlHost::Top() { return control_.Place.Position().y * TwipsPerPixelY(); }
double ControlHost::Width() { return control_.Size.Pixels().cx * TwipsPerPixelX(); }
double ControlHost::Height() { return control_.Size.Pixels().cy * TwipsPerPixelY(); }

ComPtr<IFontDisp> ControlHost::AmbientFont() { return control_.Ambient.Font(); }
CaptionColours ControlHost::ColoursOf(const CaptionColours& ofProperties, CaptionKind kind) {
    return HighContrastColours(kind, ofProperties.Text).value_or(ofProperties);
}

Boolean ControlHost::AmbientUserMode() { return control_.Ambient.UserMode() ? True : False; }

void ControlHost::PropertyChanged(Property property) {
    control_.Document.MarkDirty();
    control_.PropertySinks.ForEach<IPropertyNotifySink>(
        [&](IPropertyNotifySink& sink) { sink.OnChanged(DispIdOf(property)); });
}

TabEvents& ControlHost::Events() { return control_.Events; }

std::vector<std::unique_ptr<ChildControl>> ControlHost::ChildControls() {
    auto children = FindChildren(
        {control_.Site, control_.Controlling, hWnd(), control_.Place.RowStop(), control_.Size.Screen()});
    if (!children.empty()) control_.Place.ChildrenMayMove();
    return children;
}

std::u16string ControlHost::HostFolder() { return ApplicationFolder(); }

ComPtr<IUnknown> ControlHost::KeepAlive() { return ComPtr<IUnknown>(&control_.Controlling); }

void ControlHost::MsgBox(const std::u16string& text) {
    if (control_.IsSilent) Raise(RunTimeErrorNumber::FileNotFound);
    const HWND window = hWnd();
    const HWND owner = window ? GetAncestor(window, GA_ROOT) : nullptr;
    const ModelessOff off(control_.Place.Frame());
    MessageBoxW(owner, AsWide(text), AsWide(HostTitle()), MB_OK);
}

} // namespace vantik
