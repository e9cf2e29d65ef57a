#include "hostile/random/RandomBag.h"

#include "hostile/random/RandomVariant.h"

namespace vantik {

HRESULT RandomBag::Failure(IErrorLog* log, LPCOLESTR name) noexcept {
    EXCEPINFO exception = {};
    if (log && world_.Draw.OneIn(2)) log->AddError(name, &exception);
    return world_.Draw.OneIn(2) ? STG_E_READFAULT : E_FAIL;
}

HRESULT RandomBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept {
    const ComPtr<RandomBag> alive(this);
    world_.Visit("bag: Read");
    if (kind_ == Kind::Broken && world_.Draw.OneIn(20)) return Failure(log, name);
    const bool wild = kind_ == Kind::Wild && world_.Draw.OneIn(6);
    const auto found = values_.find(name);
    if (!wild && found == values_.end()) return E_INVALIDARG;
    if (wild)
        *value = OwnedValue(world_);
    else
        Variant(found->second).MoveTo(value);
    return S_OK;
}

HRESULT RandomBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    const ComPtr<RandomBag> alive(this);
    world_.Visit("bag: Write");
    if (kind_ == Kind::Broken && world_.Draw.OneIn(20)) return STG_E_MEDIUMFULL;
    values_[name] = Variant(*value);
    return S_OK;
}

} // namespace vantik
