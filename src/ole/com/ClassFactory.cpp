#include "ole/com/ClassFactory.h"

#include <atomic>

#include "ole/com/ErrorInfo.h"
#include "ole/com/Module.h"

namespace vantik {

namespace {

class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(Maker maker) noexcept : maker_(maker) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (!left) delete this;
        return left;
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        // An outer object has to keep the inner one by its own, non-delegating IUnknown.
        if (outer && iid != IID_IUnknown) return CLASS_E_NOAGGREGATION;
        return Guarded([&] { return maker_(outer, iid, object); });
    }
    STDMETHODIMP LockServer(BOOL lock) noexcept override {
        if (lock)
            LockModule();
        else
            UnlockModule();
        return S_OK;
    }

private:
    ~ClassFactory() = default;

    ModuleReference module_;
    std::atomic<ULONG> references_ = 1;
    Maker maker_;
};

} // namespace

HRESULT MakeClassFactory(Maker maker, REFIID iid, void** factory) {
    const auto made = ComPtr<IClassFactory>::Adopt(new ClassFactory(maker));
    return made->QueryInterface(iid, factory);
}

} // namespace vantik
