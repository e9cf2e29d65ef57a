// What a property browser asks about one property: its page, its value as text, the values to choose from.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class PropertyBrowsingFace final : public Face<IPerPropertyBrowsing> {
public:
    explicit PropertyBrowsingFace(Control& control) noexcept;

    STDMETHODIMP GetDisplayString(DISPID property, BSTR* text) noexcept override;
    STDMETHODIMP MapPropertyToPage(DISPID property, CLSID* page) noexcept override;
    STDMETHODIMP GetPredefinedStrings(DISPID property, CALPOLESTR* texts, CADWORD* cookies) noexcept override;
    STDMETHODIMP GetPredefinedValue(DISPID property, DWORD cookie, VARIANT* value) noexcept override;

private:
    Control& control_;
};

} // namespace vantik
