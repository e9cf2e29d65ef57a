// The enumerators of COM: one template for all of them.
#pragma once

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

#include "ole/com/ErrorInfo.h"
#include "ole/com/Module.h"
#include "platform/ComPtr.h"

namespace vantik {

// Traits: the interface, the type of an item, what is kept of it, and CopyOut, which makes the caller's copy.
template <class Traits>
class Enumerator final : public Traits::Interface {
public:
    using Item = typename Traits::Item;
    using Kept = typename Traits::Kept;
    using Interface = typename Traits::Interface;

    static HRESULT Create(std::vector<Kept> items, Interface** enumerator) {
        if (!enumerator) return E_POINTER;
        *enumerator = new Enumerator(std::make_shared<const std::vector<Kept>>(std::move(items)), 0);
        return S_OK;
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(Interface);
        *object = known ? static_cast<Interface*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (!left) delete this;
        return left;
    }

    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) noexcept override {
        if (!items || (!fetched && count != 1)) return E_POINTER;
        ULONG copied = 0;
        const HRESULT result = Guarded([&] {
            for (; copied < count && next_ < items_->size(); ++copied, ++next_)
                Traits::CopyOut((*items_)[next_], items[copied]);
        });
        if (fetched) *fetched = copied;
        if (FAILED(result)) return result;
        return copied == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        const std::size_t left = items_->size() - next_;
        next_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) noexcept override {
        if (!copy) return E_POINTER;
        return Guarded([&] { *copy = new Enumerator(items_, next_); });
    }

private:
    Enumerator(std::shared_ptr<const std::vector<Kept>> items, std::size_t next) noexcept
        : items_(std::move(items)), next_(next) {}
    ~Enumerator() = default;

    ModuleReference module_;
    std::atomic<ULONG> references_ = 1;
    std::shared_ptr<const std::vector<Kept>> items_;
    std::size_t next_;
};

} // namespace vantik
