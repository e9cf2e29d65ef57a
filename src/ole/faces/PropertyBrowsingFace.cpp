#include "ole/faces/PropertyBrowsingFace.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "ole/com/Identifiers.h"
#include "ole/com/TaskMemory.h"
#include "ole/com/TypeDescriptions.h"
#include "ole/com/TypeInfo.h"
#include "ole/com/Variant.h"
#include "ole/control/Control.h"

namespace vantik {

namespace {

struct Constant {
    std::u16string Name;
    LONG Value;
};

std::optional<Property> PropertyOf(DISPID id) noexcept {
    for (std::size_t row = 0; row < PropertyCount; ++row)
        if (DispIdOf(static_cast<Property>(row)) == id) return static_cast<Property>(row);
    return std::nullopt;
}

Property Known(DISPID id) {
    const auto property = PropertyOf(id);
    if (!property) RaiseHostError(DISP_E_MEMBERNOTFOUND);
    return *property;
}

// Numbers, flags and choices are edited in the browser itself: with a page it would offer that instead.
CLSID PageOf(Property property) noexcept {
    if (property == Property::SkinFile || property == Property::SkinPath) return CLSID_SkinPage;
    switch (InfoOf(property).Type) {
    case PropertyType::Colour: return CLSID_CColorPropPage;
    case PropertyType::Font: return CLSID_CFontPropPage;
    case PropertyType::Picture: return CLSID_CPicturePropPage;
    default: return CLSID_NULL;
    }
}

// The enumeration that the type library gives the property, null where it gives none.
ComPtr<ITypeInfo> EnumerationOf(DISPID id) {
    const auto members = OwnTypeInfo(IID__VantikFrameTab);
    for (UINT index = 0;; ++index) {
        const FunctionDescription function(*members.Get(), index);
        if (!function) return nullptr;
        if (function->memid != id || function->invkind != INVOKE_PROPERTYPUT) continue;
        const TYPEDESC& type = function->lprgelemdescParam[0].tdesc;
        if (type.vt != VT_USERDEFINED) return nullptr;
        ComPtr<ITypeInfo> named;
        Check(members->GetRefTypeInfo(type.hreftype, named.Put()));
        return TypeAttributes(*named.Get()).Values->typekind == TKIND_ENUM ? named : nullptr;
    }
}

Constant ConstantAt(ITypeInfo& enumeration, UINT index) {
    const VariableDescription variable(enumeration, index);
    BSTR name = nullptr;
    Check(enumeration.GetDocumentation(variable->memid, &name, nullptr, nullptr, nullptr));
    Constant constant = {FromBstr(name), variable->lpvarValue->lVal};
    SysFreeString(name);
    return constant;
}

std::vector<Constant> ConstantsOf(DISPID id) {
    std::vector<Constant> constants;
    const auto enumeration = EnumerationOf(id);
    const UINT count = enumeration ? TypeAttributes(*enumeration.Get()).Values->cVars : 0;
    for (UINT index = 0; index < count; ++index) constants.push_back(ConstantAt(*enumeration.Get(), index));
    return constants;
}

// Every copy is there before the first is given away.
LPOLESTR* NamesOf(const std::vector<Constant>& constants) {
    std::vector<TaskArray<wchar_t>> copies;
    for (const Constant& constant : constants) copies.push_back(TaskCopy(AsWide(constant.Name)));
    auto names = NewTaskArray<LPOLESTR>(copies.size());
    std::ranges::transform(copies, names.get(), [](TaskArray<wchar_t>& copy) { return copy.release(); });
    return names.release();
}

void GetValue(IUnknown& object, DISPID id, Variant& value) {
    const auto dispatch = QueryFor<IDispatch>(&object);
    if (!dispatch) RaiseHostError(E_UNEXPECTED);
    DISPPARAMS none = {};
    Check(dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                           nullptr));
}

} // namespace

PropertyBrowsingFace::PropertyBrowsingFace(Control& control) noexcept
    : Face(control.Controlling), control_(control) {}

// The browser has to find its own words for an object.
STDMETHODIMP PropertyBrowsingFace::GetDisplayString(DISPID property, BSTR* text) noexcept {
    return Guard([&]() -> HRESULT {
        Required(text) = nullptr;
        Known(property);
        Variant value;
        GetValue(control_.Controlling, property, value);
        if (value.vt == VT_DISPATCH) return S_FALSE;
        for (const Constant& constant : ConstantsOf(property))
            if (value.lVal == constant.Value) return *text = NewBstr(constant.Name), S_OK;
        Check(value.ChangeType(VT_BSTR));
        *text = value.Detach().bstrVal;
        return S_OK;
    });
}

STDMETHODIMP PropertyBrowsingFace::MapPropertyToPage(DISPID property, CLSID* page) noexcept {
    return Guard([&]() -> HRESULT {
        Required(page) = CLSID_NULL;
        *page = PageOf(Known(property));
        return *page == CLSID_NULL ? PERPROP_E_NOPAGEAVAILABLE : S_OK;
    });
}

STDMETHODIMP PropertyBrowsingFace::GetPredefinedStrings(DISPID property, CALPOLESTR* texts,
                                                        CADWORD* cookies) noexcept {
    return Guard([&] {
        Required(texts) = {};
        Required(cookies) = {};
        Known(property);
        const auto constants = ConstantsOf(property);
        if (constants.empty()) return;
        auto values = NewTaskArray<DWORD>(constants.size());
        std::ranges::transform(constants, values.get(),
                               [](const Constant& each) { return static_cast<DWORD>(each.Value); });
        const auto count = static_cast<ULONG>(constants.size());
        *texts = {count, NamesOf(constants)};
        *cookies = {count, values.release()};
    });
}

STDMETHODIMP PropertyBrowsingFace::GetPredefinedValue(DISPID property, DWORD cookie,
                                                      VARIANT* value) noexcept {
    return Guard([&]() -> HRESULT {
        VariantInit(&Required(value));
        Known(property);
        for (const Constant& constant : ConstantsOf(property)) {
            if (static_cast<DWORD>(constant.Value) != cookie) continue;
            *value = Variant(std::int32_t{constant.Value}).Detach();
            return S_OK;
        }
        return E_INVALIDARG;
    });
}

} // namespace vantik
