// An object with members of any name, which mean anything.
#pragma once

#include "host/ComObject.h"
#include "hostile/random/RandomVariant.h"
#include "hostile/random/World.h"

namespace vantik {

// The rest of any object that answers by names.
HRESULT AnyNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept;

// Describes a failure in all the ways there are.
HRESULT Fail(World& world, HRESULT result, EXCEPINFO* exception) noexcept;

class RandomDispatch final : public ComObject<IDispatch> {
public:
    explicit RandomDispatch(World& world) noexcept : world_(world) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
        const HRESULT result = world_.Called("GetIDsOfNames");
        return SUCCEEDED(result) ? AnyNames(names, count, ids) : result;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* exception,
                        UINT*) noexcept override {
        const HRESULT outcome = world_.Called("Invoke");
        if (FAILED(outcome)) return Fail(world_, outcome, exception);
        if (result) *result = OwnedValue(world_);
        return outcome;
    }

private:
    World& world_;
};

} // namespace vantik
