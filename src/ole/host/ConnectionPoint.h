// One outgoing interface of the control and the sinks connected to it.
#pragma once

#include <vector>

#include "platform/ComPtr.h"

namespace vantik {

struct Connection {
    DWORD Cookie;
    ComPtr<IUnknown> Sink;
};

class ConnectionPoint final : public IConnectionPoint {
public:
    // A sink that lacks the interface may offer the alternative instead.
    ConnectionPoint(IUnknown& controlling, REFIID outgoing, REFIID alternative) noexcept
        : controlling_(controlling), outgoing_(outgoing), alternative_(alternative) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    // An identity of its own, but it lives and dies with the control.
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return controlling_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return controlling_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** enumerator) noexcept override;

    const IID& Outgoing() const noexcept { return outgoing_; }

    // Calls every sink that is connected now and still is when its turn comes.
    template <class Interface, class Call>
    void ForEach(Call call) const {
        const auto snapshot = connections_;
        for (const Connection& connection : snapshot)
            if (IsConnected(connection.Cookie)) call(*static_cast<Interface*>(connection.Sink.Get()));
    }

private:
    bool IsConnected(DWORD cookie) const noexcept;
    ComPtr<IUnknown> AskFor(IUnknown& sink) const noexcept;

    IUnknown& controlling_;
    IID outgoing_, alternative_;
    DWORD lastCookie_ = 0;
    std::vector<Connection> connections_;
};

} // namespace vantik
