#include "host/AmbientProperties.h"

#include <olectl.h>

#include "host/SavedObjects.h"

namespace vantik {

namespace {

Variant Colour(OLE_COLOR colour) { return Variant(static_cast<std::int32_t>(colour)); }

Variant Font(const AmbientValues& values, bool asText) {
    if (asText) return Variant(values.FontName);
    SavedFont font;
    font.Name = values.FontName;
    font.Size = values.FontSize;
    return Variant(MakeAgain(font).Get());
}

} // namespace

std::optional<Variant> AmbientProperty(DISPID id, const AmbientValues& values, const HostSwitches& switches,
                                       const std::wstring& controlName) {
    if (!switches.Ambients) return std::nullopt;
    switch (id) {
    case DISPID_AMBIENT_BACKCOLOR: return Colour(values.BackColor);
    case DISPID_AMBIENT_FORECOLOR: return Colour(values.ForeColor);
    case DISPID_AMBIENT_FONT: return Font(values, switches.AmbientFontIsText);
    case DISPID_AMBIENT_DISPLAYNAME: return Variant(controlName);
    case DISPID_AMBIENT_LOCALEID: return Variant(static_cast<std::int32_t>(GetUserDefaultLCID()));
    case DISPID_AMBIENT_SCALEUNITS: return Variant(L"Twip");
    case DISPID_AMBIENT_USERMODE: return Variant(switches.UserMode);
    case DISPID_AMBIENT_UIDEAD: return Variant(values.UIDead);
    case DISPID_AMBIENT_SHOWGRABHANDLES: return Variant(!switches.UserMode);
    case DISPID_AMBIENT_SHOWHATCHING: return Variant(!switches.UserMode);
    case DISPID_AMBIENT_DISPLAYASDEFAULT: return Variant(false);
    case DISPID_AMBIENT_SUPPORTSMNEMONICS: return Variant(false);
    case DISPID_AMBIENT_AUTOCLIP: return Variant(true);
    case DISPID_AMBIENT_MESSAGEREFLECT: return Variant(false);
    default: return std::nullopt;
    }
}

} // namespace vantik
