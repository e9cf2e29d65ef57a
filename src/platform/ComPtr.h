// A counted reference to a COM object.
#pragma once

#include <utility>

#include "platform/mDeclares.h"

namespace vantik {

template <class Interface>
class ComPtr {
public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {} // NOLINT: null is a value of every pointer
    explicit ComPtr(Interface* shared) noexcept : pointer_(shared) {
        if (pointer_) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ~ComPtr() { Reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    // Takes over a reference that was counted already.
    static ComPtr Adopt(Interface* counted) noexcept {
        ComPtr owner;
        owner.pointer_ = counted;
        return owner;
    }

    // Cleared before the release, which may run code that looks here again.
    void Reset() noexcept {
        if (Interface* old = std::exchange(pointer_, nullptr)) old->Release();
    }

    // For functions that hand out a counted reference through an out parameter.
    Interface** Put() noexcept {
        Reset();
        return &pointer_;
    }
    void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }

    // Null when the object does not have the interface.
    template <class Other>
    ComPtr<Other> As() const noexcept {
        ComPtr<Other> other;
        if (pointer_ && FAILED(pointer_->QueryInterface(__uuidof(Other), other.PutVoid()))) other = nullptr;
        return other;
    }

    // A counted reference for the caller of an interface of ours.
    Interface* Copy() const noexcept {
        if (pointer_) pointer_->AddRef();
        return pointer_;
    }

    Interface* Get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

private:
    Interface* pointer_ = nullptr;
};

template <class Interface>
ComPtr<Interface> QueryFor(IUnknown* object) noexcept {
    ComPtr<Interface> found;
    if (object && FAILED(object->QueryInterface(__uuidof(Interface), found.PutVoid()))) found = nullptr;
    return found;
}

} // namespace vantik
