// A list of objects, as IEnumUnknown.
#pragma once

#include <vector>

#include "host/ComObject.h"

namespace vantik {

class UnknownEnumerator final : public ComObject<IEnumUnknown> {
public:
    explicit UnknownEnumerator(std::vector<ComPtr<IUnknown>> objects, std::size_t next = 0)
        : objects_(std::move(objects)), next_(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, IUnknown** objects, ULONG* fetched) noexcept override {
        if (!objects || (!fetched && count != 1)) return E_POINTER;
        ULONG given = 0;
        for (; given < count && next_ < objects_.size(); ++given) objects[given] = objects_[next_++].Copy();
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override {
        const bool enough = count <= objects_.size() - next_;
        next_ = enough ? next_ + count : objects_.size();
        return enough ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() noexcept override {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumUnknown** copy) noexcept override {
        if (!copy) return E_POINTER;
        *copy = MakeCom<UnknownEnumerator>(objects_, next_).Copy();
        return S_OK;
    }

private:
    std::vector<ComPtr<IUnknown>> objects_;
    std::size_t next_;
};

} // namespace vantik
