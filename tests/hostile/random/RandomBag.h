// A property bag that keeps what it is given, and now and then gives something else.
#pragma once

#include <map>
#include <string>

#include "host/ComObject.h"
#include "host/Variant.h"
#include "hostile/random/World.h"

namespace vantik {

class RandomBag final : public ComObject<IPropertyBag> {
public:
    enum class Kind { Good, Wild, Broken };
    RandomBag(World& world, Kind kind) : world_(world), kind_(kind) {}

    void Now(Kind kind) noexcept { kind_ = kind; }

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;

private:
    HRESULT Failure(IErrorLog* log, LPCOLESTR name) noexcept;

    World& world_;
    Kind kind_;
    std::map<std::wstring, Variant> values_;
};

class RandomErrorLog final : public ComObject<IErrorLog> {
public:
    explicit RandomErrorLog(World& world) : world_(world) {}
    STDMETHODIMP AddError(LPCOLESTR, EXCEPINFO*) noexcept override { return world_.Called("AddError"); }

private:
    World& world_;
};

} // namespace vantik
