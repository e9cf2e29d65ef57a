// What the container offers. Real hosts lack one thing or another; each can be missing here.
#pragma once

namespace vantik {

struct HostSwitches {
    bool UserMode = true; // False: the form is being designed

    bool Ambients = true;
    bool AmbientFontIsText = false; // a host that gives the font's name instead of a font

    bool Container = true;        // IOleClientSite::GetContainer answers
    bool EnumerateObjects = true; // IOleContainer::EnumObjects answers
    bool VbGetControl = false;    // the site has IVBGetControl
    bool Extenders = true;        // IOleControlSite::GetExtendedControl answers
    bool SimpleFrameSite = true;
    bool Frame = true; // GetWindowContext hands out a frame

    bool InitNew = true;        // a new control is told so
    bool SiteFirst = true;      // a control that asks for its site before its properties gets it then
    bool QuickActivate = false; // the site and the sinks come in one call where the control can do that
    bool ForwardKeys = true;    // the message loop offers keys to the active control
};

} // namespace vantik
