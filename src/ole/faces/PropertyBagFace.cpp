#include "ole/faces/PropertyBagFace.h"

#include "ole/com/Identifiers.h"
#include "ole/control/Control.h"
#include "ole/persist/VariantBag.h"

namespace vantik {

namespace {

class BagReader final : public VariantReader {
public:
    BagReader(IPropertyBag& bag, IErrorLog* log) noexcept : bag_(bag), log_(log) {}

private:
    // A bag says E_INVALIDARG for a key that it does not have. The type tells it what to make of a text.
    bool Fetch(const PropertyInfo& info, Variant& value) override {
        value.vt = VariantTypeOf(info.Type);
        if (value.vt == VT_BSTR) value.bstrVal = nullptr;
        if (value.vt == VT_UNKNOWN) value.punkVal = nullptr;
        const HRESULT result = bag_.Read(AsWide(info.Key), &value, log_);
        if (result == E_INVALIDARG) return false;
        Check(result);
        return true;
    }

    void Rejected(const PropertyInfo& info, const RunTimeError& error) noexcept override {
        if (!log_) return;
        EXCEPINFO exception = {};
        exception.bstrSource = SysAllocString(ProgId);
        exception.bstrDescription = SysAllocString(AsWide(error.Description()));
        exception.scode = ResultOf(error);
        log_->AddError(AsWide(info.Key), &exception);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
    }

    IPropertyBag& bag_;
    IErrorLog* log_;
};

class BagWriter final : public VariantWriter {
public:
    BagWriter(IPropertyBag& bag, bool all) noexcept : VariantWriter(all), bag_(bag) {}

private:
    void Store(const PropertyInfo& info, VARIANT& value) override {
        Check(bag_.Write(AsWide(info.Key), &value));
    }

    IPropertyBag& bag_;
};

} // namespace

PropertyBagFace::PropertyBagFace(Control& control) noexcept : Face(control.Controlling), control_(control) {}

STDMETHODIMP PropertyBagFace::GetClassID(CLSID* classId) noexcept {
    if (!classId) return E_POINTER;
    *classId = CLSID_VantikFrameTab;
    return S_OK;
}

STDMETHODIMP PropertyBagFace::InitNew() noexcept {
    return GuardAndTell([&] { control_.Document.InitNew(); });
}

STDMETHODIMP PropertyBagFace::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
    return GuardAndTell([&] {
        BagReader reader(Required(bag), log);
        control_.Document.Load(reader);
    });
}

STDMETHODIMP PropertyBagFace::Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept {
    return GuardAndTell([&] {
        BagWriter writer(Required(bag), saveAll);
        control_.Document.Save(writer, clearDirty);
    });
}

} // namespace vantik
