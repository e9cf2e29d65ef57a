// The counting and asking part of the container's COM objects.
#pragma once

#include "platform/ComPtr.h"

namespace vantik {

// Whether a pointer to the interface also serves the id; true for the interface that it extends.
template <class Interface>
inline bool IsServedBy(REFIID id) noexcept {
    return id == __uuidof(Interface);
}
template <>
inline bool IsServedBy<IOleInPlaceSiteEx>(REFIID id) noexcept {
    return id == __uuidof(IOleInPlaceSiteEx) || id == __uuidof(IOleInPlaceSite) || id == __uuidof(IOleWindow);
}
template <>
inline bool IsServedBy<IOleInPlaceFrame>(REFIID id) noexcept {
    return id == __uuidof(IOleInPlaceFrame) || id == __uuidof(IOleInPlaceUIWindow) ||
           id == __uuidof(IOleWindow);
}
template <>
inline bool IsServedBy<IOleContainer>(REFIID id) noexcept {
    return id == __uuidof(IOleContainer) || id == __uuidof(IParseDisplayName);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored \
    "-Wnon-virtual-dtor" // no object is deleted through an interface of the platform

// Born with no reference: MakeCom hands out the first one.
template <class First, class... Rest>
class ComObject : public First, public Rest... {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (id == __uuidof(IUnknown)) {
            *object = static_cast<First*>(this);
        } else if (Offers(id)) {
            Find<First, Rest...>(id, object);
        }
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

protected:
    ComObject() = default;
    virtual ~ComObject() = default;

    // An object that can be asked to lack an interface says so here.
    virtual bool Offers(REFIID) const noexcept { return true; }

private:
    template <class Interface, class... Others>
    void Find(REFIID id, void** object) noexcept {
        if (IsServedBy<Interface>(id)) {
            *object = static_cast<Interface*>(this);
        } else if constexpr (sizeof...(Others) > 0) {
            Find<Others...>(id, object);
        }
    }

    ULONG references_ = 0;
};

#pragma GCC diagnostic pop

template <class Object, class... Arguments>
ComPtr<Object> MakeCom(Arguments&&... arguments) {
    return ComPtr<Object>(new Object(std::forward<Arguments>(arguments)...));
}

} // namespace vantik
