// What the faces of one control work on: its engine, the engine's host, and the state of the conversation with the container.
#pragma once

#include "control/VantikFrameTab.h"
#include "ole/Activation.h"
#include "ole/Advises.h"
#include "ole/Ambients.h"
#include "ole/ClientSite.h"
#include "ole/ConnectionPoint.h"
#include "ole/ControlHost.h"
#include "ole/Document.h"
#include "ole/EventSource.h"
#include "ole/Extent.h"
#include "ole/Surface.h"

namespace vantik {

class Control {
public:
    Control(IUnknown& controlling, const Resolution& screen);
    ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // The object that the outside world knows. Not to be asked for anything while it is being made.
    IUnknown& Controlling;

    ClientSite Site;
    Ambients Ambient{Site};
    Extent Size;
    vantik::Surface Surface;
    Advises Advise;
    ConnectionPoint EventSinks, PropertySinks;
    EventSource Events{Controlling, EventSinks};
    vantik::Activation Activation{*this};
    ControlHost Host{*this};
    VantikFrameTab Engine{Host};
    vantik::Document Document{*this};

    void SetSite(IOleClientSite* site);

    // The size in pixels is another one now.
    void Resized();

    // Makes those look again who show the control otherwise than by its window.
    void ShowChanges() noexcept;

    // The picture as it has to look now.
    vantik::Surface& PaintedSurface() noexcept;
};

} // namespace vantik
