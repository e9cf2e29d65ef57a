// Persistence by a property bag.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class PropertyBagFace final : public Face<IPersistPropertyBag> {
public:
    explicit PropertyBagFace(Control& control) noexcept;

    STDMETHODIMP GetClassID(CLSID* classId) noexcept override;
    STDMETHODIMP InitNew() noexcept override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;

private:
    Control& control_;
};

} // namespace vantik
