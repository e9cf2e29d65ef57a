// Something that stands on the control, as far as the host says so.
#pragma once

#include "host/ComObject.h"
#include "hostile/random/RandomDispatch.h"

namespace vantik {

class RandomChild final : public ComObject<IDispatch, IOleWindow> {
public:
    // The control on which it stands, by its place; a child that held it would keep it for ever.
    RandomChild(World& world, int place) : world_(world), place_(static_cast<std::size_t>(place)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
        const HRESULT result = world_.Called("child: GetIDsOfNames");
        return SUCCEEDED(result) ? AnyNames(names, count, ids) : result;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* value,
                        EXCEPINFO* exception, UINT*) noexcept override {
        const ComPtr<RandomChild> alive(this);
        const HRESULT result = world_.Called("child: Invoke");
        if (FAILED(result)) return Fail(world_, result, exception);
        if (flags & DISPATCH_PROPERTYPUT) return Put(id, parameters->rgvarg[0]);
        if (value) *value = Get(id);
        return S_OK;
    }
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        *window = world_.Draw.OneIn(2) ? ::GetWindow(WindowOf(world_.Places()[place_]), GW_CHILD) : nullptr;
        return world_.Called("child: GetWindow");
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }

private:
    HRESULT Put(DISPID id, const VARIANT& value) noexcept {
        if (id == L'L' && value.vt == VT_R8) left_ = value.dblVal;
        return S_OK;
    }
    // By the first letters of Left, Name, Visible and Container.
    VARIANT Get(DISPID id) {
        if (world_.IsRough(3)) return OwnedValue(world_);
        VARIANT value;
        Variant answer;
        if (id == L'L') answer = left_;
        if (id == L'N') answer = L"Child1";
        if (id == L'V') answer = true;
        if (id == L'C') answer = world_.Places()[place_].Control.Get();
        answer.MoveTo(&value);
        return value;
    }

    World& world_;
    std::size_t place_;
    double left_ = 100;
};

// A list of children that may be no good.
ComPtr<IEnumUnknown> RandomList(World& world, int place);

} // namespace vantik
