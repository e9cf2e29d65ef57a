// Notices when a property of an object changes, whoever changes it.
#pragma once

#include "platform/ComPtr.h"

namespace vantik {

class PropertyListener {
public:
    virtual void PropertyChanged() noexcept = 0;

protected:
    ~PropertyListener() = default;
};

// An object without such an outgoing interface is not watched.
class PropertyWatch {
public:
    class Sink;

    PropertyWatch(IUnknown* object, PropertyListener& listener);
    PropertyWatch(PropertyWatch&&) noexcept;
    PropertyWatch& operator=(PropertyWatch&&) = delete;
    ~PropertyWatch();

private:
    ComPtr<Sink> sink_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace vantik
