// What every object answers whose members go by number only: events come so, and ambient properties are asked for so.
#pragma once

#include "host/ComObject.h"

namespace vantik {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored \
    "-Wnon-virtual-dtor" // no object is deleted through an interface of the platform

class NumberedDispatch : public IDispatch {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
};

#pragma GCC diagnostic pop

template <>
inline bool IsServedBy<NumberedDispatch>(REFIID id) noexcept {
    return id == __uuidof(IDispatch);
}

} // namespace vantik
