// Hears the control's events.
#pragma once

#include "Com.h"

#include <ocidl.h>

#include <functional>

// Lives longer than the connection, so nobody has to count who uses it.
class Events final : public IDispatch {
public:
    explicit Events(IUnknown& control);
    ~Events() { point_->Unadvise(cookie_); }
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;

    // What is left in an index counts; -1 keeps a tab from being closed.
    std::function<void(short& index, short button)> TabDown;
    std::function<void(short& index)> TabClose;
    std::function<void()> MenuDown;

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 1; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override;

private:
    void Hear(DISPID event, const DISPPARAMS& arguments);

    Com<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};
