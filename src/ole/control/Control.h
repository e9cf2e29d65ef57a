// What the faces of one control work on: its engine, the engine's host, and the state of the conversation with the container.
#pragma once

#include "control/VantikFrameTab.h"
#include "gfx/Surface.h"
#include "ole/control/ControlHost.h"
#include "ole/control/ControlPlace.h"
#include "ole/control/Document.h"
#include "ole/host/Advises.h"
#include "ole/host/Ambients.h"
#include "ole/host/ClientSite.h"
#include "ole/host/ConnectionPoint.h"
#include "ole/host/EventSource.h"
#include "ole/host/Extent.h"

namespace vantik {

class Control {
public:
    Control(IUnknown& controlling, ControlPlace& place, const Resolution& screen);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // Nobody would press its messages away: they are errors instead.
    bool IsSilent = false;

    // The object that the outside world knows. Not to be asked for anything while it is being made.
    IUnknown& Controlling;

    ControlPlace& Place;

    ClientSite Site;
    Ambients Ambient{Site};
    Extent Size;
    vantik::Surface Surface;
    Advises Advise;
    ConnectionPoint EventSinks, PropertySinks;
    EventSource Events{Controlling, EventSinks};
    ControlHost Host{*this};
    VantikFrameTab Engine{Host};
    vantik::Document Document{*this};

    void SetSite(IOleClientSite* site);

    // The size in pixels is another one now.
    void Resized();

    // Tells those who watch the window, or makes those look again who show the control otherwise.
    void ShowChanges() noexcept;

    // The picture as it has to look now.
    vantik::Surface& PaintedSurface() noexcept;
};

} // namespace vantik
