#include "ole/pages/PropertyWatch.h"

#include <atomic>

#include "ole/com/Module.h"

namespace vantik {

// By itself, so that an object which keeps it for ever keeps no page.
class PropertyWatch::Sink final : public IPropertyNotifySink {
public:
    explicit Sink(PropertyListener& listener) noexcept : listener_(&listener) {}

    void End() noexcept { listener_ = nullptr; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IPropertyNotifySink;
        *object = known ? static_cast<IPropertyNotifySink*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (!left) delete this;
        return left;
    }
    STDMETHODIMP OnChanged(DISPID) noexcept override {
        if (listener_) listener_->PropertyChanged();
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

private:
    ~Sink() = default;

    ModuleReference module_;
    std::atomic<ULONG> references_ = 1;
    PropertyListener* listener_;
};

PropertyWatch::PropertyWatch(IUnknown* object, PropertyListener& listener)
    : sink_(ComPtr<Sink>::Adopt(new Sink(listener))) {
    const auto points = QueryFor<IConnectionPointContainer>(object);
    if (!points || FAILED(points->FindConnectionPoint(IID_IPropertyNotifySink, point_.Put()))) return;
    if (point_ && FAILED(point_->Advise(sink_.Get(), &cookie_))) point_ = nullptr;
}

PropertyWatch::PropertyWatch(PropertyWatch&&) noexcept = default;

PropertyWatch::~PropertyWatch() {
    if (sink_) sink_->End();
    if (point_) point_->Unadvise(cookie_);
}

} // namespace vantik
