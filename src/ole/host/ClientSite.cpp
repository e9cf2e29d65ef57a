#include "ole/host/ClientSite.h"

namespace vantik {

// The old site is let go last: that may run code of the host.
void ClientSite::Set(IOleClientSite* site) noexcept {
    const auto oldSite = std::exchange(site_, ComPtr<IOleClientSite>(site));
    const auto oldFrame = std::exchange(simpleFrame_, QueryFor<ISimpleFrameSite>(site));
}

ComPtr<IDispatch> ClientSite::ExtendedControl() const noexcept {
    ComPtr<IDispatch> extended;
    const auto controlSite = As<IOleControlSite>();
    if (!controlSite || FAILED(controlSite->GetExtendedControl(extended.Put()))) return nullptr;
    return extended;
}

ComPtr<IOleContainer> ClientSite::Container() const noexcept {
    const auto site = site_;
    ComPtr<IOleContainer> container;
    if (!site || FAILED(site->GetContainer(container.Put()))) return nullptr;
    return container;
}

} // namespace vantik
