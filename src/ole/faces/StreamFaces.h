// Persistence by a stream, and by a stream in a storage.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class StreamInitFace final : public Face<IPersistStreamInit> {
public:
    explicit StreamInitFace(Control& control) noexcept;

    STDMETHODIMP GetClassID(CLSID* classId) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP Load(IStream* stream) noexcept override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) noexcept override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;
    STDMETHODIMP InitNew() noexcept override;

private:
    Control& control_;
};

class StorageFace final : public Face<IPersistStorage> {
public:
    explicit StorageFace(Control& control) noexcept;

    STDMETHODIMP GetClassID(CLSID* classId) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP InitNew(IStorage* storage) noexcept override;
    STDMETHODIMP Load(IStorage* storage) noexcept override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
    STDMETHODIMP SaveCompleted(IStorage* storage) noexcept override;
    STDMETHODIMP HandsOffStorage() noexcept override;

private:
    Control& control_;
    bool saved_ = false; // and the host has not said yet what becomes of it
};

} // namespace vantik
