#include "ole/host/ConnectionPoint.h"

#include <algorithm>

#include "ole/com/Enumerator.h"

namespace vantik {

namespace {

struct ConnectionTraits {
    using Interface = IEnumConnections;
    using Item = CONNECTDATA;
    using Kept = Connection;
    static void CopyOut(const Kept& kept, Item& item) { item = {kept.Sink.Copy(), kept.Cookie}; }
};

} // namespace

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IConnectionPoint;
    *object = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
    if (!iid) return E_POINTER;
    *iid = outgoing_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    if (!container) return E_POINTER;
    return controlling_.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

ComPtr<IUnknown> ConnectionPoint::AskFor(IUnknown& sink) const noexcept {
    ComPtr<IUnknown> found;
    if (SUCCEEDED(sink.QueryInterface(outgoing_, found.PutVoid()))) return found;
    if (SUCCEEDED(sink.QueryInterface(alternative_, found.PutVoid()))) return found;
    return nullptr;
}

// What is kept as IUnknown is really the sink's answer for the outgoing interface.
STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    return Guarded(controlling_, [&] {
        auto found = AskFor(*sink);
        if (!found) return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({++lastCookie_, std::move(found)});
        *cookie = lastCookie_;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    return Guarded(controlling_, [&] {
        const auto found = std::ranges::find(connections_, cookie, &Connection::Cookie);
        if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
        const Connection released = std::move(*found); // let go when nothing is half done
        connections_.erase(found);
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** enumerator) noexcept {
    return Guarded([&] { return Enumerator<ConnectionTraits>::Create(connections_, enumerator); });
}

bool ConnectionPoint::IsConnected(DWORD cookie) const noexcept {
    return std::ranges::find(connections_, cookie, &Connection::Cookie) != connections_.end();
}

} // namespace vantik
