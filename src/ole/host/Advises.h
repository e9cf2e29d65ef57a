// Those who asked to be told when the control changes its picture, is saved or closes.
#pragma once

#include "platform/ComPtr.h"

namespace vantik {

class Advises {
public:
    // The one sink of IViewObject; null ends the advice.
    void SetView(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept;
    void GetView(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const noexcept;

    // Made on first use.
    IOleAdviseHolder& Object();
    IDataAdviseHolder& Data();
    ComPtr<IOleAdviseHolder> ObjectIfAny() const noexcept { return object_; }
    ComPtr<IDataAdviseHolder> DataIfAny() const noexcept { return data_; }

    // The picture is another one now. The data object is the control's own.
    void ViewChanged(IDataObject* dataObject) noexcept;
    void Saved() noexcept;
    void Closed() noexcept;

private:
    void SendViewChange() noexcept;

    ComPtr<IAdviseSink> view_;
    DWORD viewAspects_ = 0, viewFlags_ = 0;
    ComPtr<IOleAdviseHolder> object_;
    ComPtr<IDataAdviseHolder> data_;
};

} // namespace vantik
