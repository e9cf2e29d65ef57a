// What the host gave the control to talk to.
#pragma once

#include "platform/ComPtr.h"

namespace vantik {

class ClientSite {
public:
    void Set(IOleClientSite* site) noexcept;

    IOleClientSite* Get() const noexcept { return site_.Get(); }
    explicit operator bool() const noexcept { return static_cast<bool>(site_); }

    // Another interface of the site, null where it has none.
    template <class Interface>
    ComPtr<Interface> As() const noexcept {
        return site_.As<Interface>();
    }

    // Asked for at every message, so it is kept.
    const ComPtr<ISimpleFrameSite>& SimpleFrame() const noexcept { return simpleFrame_; }

    // The object by which the host lets scripts reach the control, null where it has none.
    ComPtr<IDispatch> ExtendedControl() const noexcept;

    ComPtr<IOleContainer> Container() const noexcept;

private:
    ComPtr<IOleClientSite> site_;
    ComPtr<ISimpleFrameSite> simpleFrame_;
};

} // namespace vantik
