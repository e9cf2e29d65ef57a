// A face is one group of interfaces of the control. All faces share the identity of the controlling object.
#pragma once

#include <tuple>

#include "ole/com/ErrorInfo.h"
#include "platform/ComPtr.h"

namespace vantik {

template <class... Interfaces>
class Face : public Interfaces... {
public:
    explicit Face(IUnknown& controlling) noexcept : controlling_(controlling) {}
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept final {
        return controlling_.QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept final { return controlling_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept final { return controlling_.Release(); }

protected:
    ~Face() = default;

    // Runs the body of a method; the control outlives it.
    template <class Body>
    HRESULT Guard(Body body) const noexcept {
        return Guarded(controlling_, body);
    }

    // The same in the face's first interface, where that is one of those whose callers may ask for an error's text.
    template <class Body>
    HRESULT GuardAndTell(Body body) const noexcept {
        using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;
        const ComPtr<IUnknown> alive(&controlling_);
        return Reported(__uuidof(First), body);
    }

private:
    IUnknown& controlling_;
};

} // namespace vantik
