#include "ole/host/Advises.h"

#include "ole/com/ErrorInfo.h"

namespace vantik {

void Advises::SetView(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    const auto old = std::exchange(view_, ComPtr<IAdviseSink>(sink));
    viewAspects_ = aspects;
    viewFlags_ = flags;
    if (flags & ADVF_PRIMEFIRST) SendViewChange();
}

void Advises::GetView(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const noexcept {
    if (aspects) *aspects = viewAspects_;
    if (flags) *flags = viewFlags_;
    if (sink) *sink = view_.Copy();
}

IOleAdviseHolder& Advises::Object() {
    if (!object_) Check(CreateOleAdviseHolder(object_.Put()));
    return *object_.Get();
}

IDataAdviseHolder& Advises::Data() {
    if (!data_) Check(CreateDataAdviseHolder(data_.Put()));
    return *data_.Get();
}

void Advises::SendViewChange() noexcept {
    const auto sink = view_;
    if (!sink) return;
    if (viewFlags_ & ADVF_ONLYONCE) view_ = nullptr;
    sink->OnViewChange(viewAspects_, -1);
}

void Advises::ViewChanged(IDataObject* dataObject) noexcept {
    SendViewChange();
    if (const auto holder = data_) holder->SendOnDataChange(dataObject, 0, 0);
}

void Advises::Saved() noexcept {
    if (const auto holder = object_) holder->SendOnSave();
}

void Advises::Closed() noexcept {
    if (const auto holder = object_) holder->SendOnClose();
}

} // namespace vantik
