// What owns an interface of COM, and what becomes of its errors.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using Com = std::unique_ptr<Interface, Releaser>;

template <class Interface>
Com<Interface> Query(IUnknown& object) {
    Interface* found = nullptr;
    object.QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(&found));
    return Com<Interface>(found);
}

// Throws the error that a call returned.
struct ComError {
    HRESULT Result;
};
inline void Check(HRESULT result) {
    if (FAILED(result)) throw ComError{result};
}
