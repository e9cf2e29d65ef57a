#include "ole/server/ClassFactory.h"

#include <atomic>

#include "ole/com/ErrorInfo.h"
#include "ole/com/Identifiers.h"
#include "ole/com/Module.h"
#include "ole/server/ControlObject.h"

namespace vantik {

namespace {

class ClassFactory final : public IClassFactory {
public:
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
        return Guarded([&] { return ControlObject::Create(outer, iid, object); });
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
};

} // namespace

HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (classId != CLSID_VantikFrameTab) return CLASS_E_CLASSNOTAVAILABLE;
    const auto factory = ComPtr<IClassFactory>::Adopt(new ClassFactory);
    return factory->QueryInterface(iid, object);
}

} // namespace vantik
