// A stream that reads and writes less than it should, or other bytes, or nothing; and a storage of such streams.
#pragma once

#include <cstddef>
#include <vector>

#include "host/ComObject.h"
#include "hostile/random/World.h"

namespace vantik {

template <>
inline bool IsServedBy<IStream>(REFIID id) noexcept {
    return id == __uuidof(IStream) || id == __uuidof(ISequentialStream);
}

class RandomStream final : public ComObject<IStream> {
public:
    RandomStream(World& world, std::vector<std::byte> bytes, bool fails)
        : world_(world), bytes_(std::move(bytes)), fails_(fails) {}

    const std::vector<std::byte>& Bytes() const noexcept { return bytes_; }

    STDMETHODIMP Read(void* bytes, ULONG count, ULONG* read) noexcept override;
    STDMETHODIMP Write(const void* bytes, ULONG count, ULONG* written) noexcept override;
    STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetSize(ULARGE_INTEGER) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Revert() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IStream**) noexcept override { return E_NOTIMPL; }

private:
    World& world_;
    std::vector<std::byte> bytes_;
    std::size_t next_ = 0;
    bool fails_;
};

class RandomStorage final : public ComObject<IStorage> {
public:
    RandomStorage(World& world, ComPtr<RandomStream> stream) : world_(world), stream_(std::move(stream)) {}

    STDMETHODIMP CreateStream(const OLECHAR*, DWORD, DWORD, DWORD, IStream** stream) noexcept override {
        return Hand("CreateStream", stream);
    }
    STDMETHODIMP OpenStream(const OLECHAR*, void*, DWORD, DWORD, IStream** stream) noexcept override {
        return Hand("OpenStream", stream);
    }
    STDMETHODIMP CreateStorage(const OLECHAR*, DWORD, DWORD, DWORD, IStorage**) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP OpenStorage(const OLECHAR*, IStorage*, DWORD, SNB, DWORD, IStorage**) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP CopyTo(DWORD, const IID*, SNB, IStorage*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP MoveElementTo(const OLECHAR*, IStorage*, const OLECHAR*, DWORD) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) noexcept override { return S_OK; }
    STDMETHODIMP Revert() noexcept override { return S_OK; }
    STDMETHODIMP EnumElements(DWORD, void*, DWORD, IEnumSTATSTG**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DestroyElement(const OLECHAR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP RenameElement(const OLECHAR*, const OLECHAR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetElementTimes(const OLECHAR*, const FILETIME*, const FILETIME*,
                                 const FILETIME*) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetClass(REFCLSID) noexcept override { return S_OK; }
    STDMETHODIMP SetStateBits(DWORD, DWORD) noexcept override { return S_OK; }
    STDMETHODIMP Stat(STATSTG*, DWORD) noexcept override { return E_NOTIMPL; }

private:
    HRESULT Hand(const char* call, IStream** stream) noexcept {
        *stream = nullptr;
        const ComPtr<RandomStorage> alive(this);
        const HRESULT result = world_.Called(call);
        if (SUCCEEDED(result)) *stream = stream_.As<IStream>().Copy();
        return result;
    }

    World& world_;
    ComPtr<RandomStream> stream_;
};

} // namespace vantik
