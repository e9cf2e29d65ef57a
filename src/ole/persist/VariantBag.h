// Properties as automation values: what the routes of persistence have in common.
#pragma once

#include "control/PropertyBag.h"
#include "ole/com/Variant.h"

namespace vantik {

// How a property of the type travels.
VARTYPE VariantTypeOf(PropertyType type) noexcept;

class VariantReader : public PropertyReader {
public:
    void Read(const PropertyInfo& info, std::int16_t& value) final;
    void Read(const PropertyInfo& info, std::int32_t& value) final;
    void Read(const PropertyInfo& info, std::u16string& value) final;
    void Read(const PropertyInfo& info, ComPtr<IPictureDisp>& value) final;
    void Read(const PropertyInfo& info, ComPtr<IFontDisp>& value) final;

private:
    // Whether there is a value for the key, which is put into the variant in any type.
    virtual bool Fetch(const PropertyInfo& info, Variant& value) = 0;

    bool FetchAs(const PropertyInfo& info, Variant& value);
    bool FetchConverted(const PropertyInfo& info, Variant& value);
    template <class Interface>
    void ReadObject(const PropertyInfo& info, ComPtr<Interface>& value);
};

class VariantWriter : public PropertyWriter {
public:
    void Write(const PropertyInfo& info, std::int16_t value, std::int16_t defaultValue) final;
    void Write(const PropertyInfo& info, std::int32_t value, std::int32_t defaultValue) final;
    void Write(const PropertyInfo& info, const std::u16string& value,
               const std::u16string& defaultValue) final;
    void Write(const PropertyInfo& info, IPictureDisp* value) final;
    void Write(const PropertyInfo& info, IFontDisp* value, IFontDisp* defaultValue) final;

protected:
    // Values that equal their defaults are left out unless all are asked for.
    explicit VariantWriter(bool all) noexcept : all_(all) {}

private:
    virtual void Store(const PropertyInfo& info, VARIANT& value) = 0;

    bool all_;
};

} // namespace vantik
