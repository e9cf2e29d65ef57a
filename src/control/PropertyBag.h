// How the engine loads and saves its properties, whatever route the host chose (bag, stream, storage).
#pragma once

#include <string>

#include "base/RunTimeError.h"
#include "model/Properties.h"
#include "platform/ComPtr.h"

namespace vantik {

class PropertyReader {
public:
    virtual ~PropertyReader() = default;

    // Each keeps the given default when the key is not there; a value that cannot be read raises.
    virtual void Read(const PropertyInfo& info, std::int16_t& value) = 0;
    virtual void Read(const PropertyInfo& info, std::int32_t& value) = 0;
    virtual void Read(const PropertyInfo& info, std::u16string& value) = 0;
    virtual void Read(const PropertyInfo& info, ComPtr<IPictureDisp>& value) = 0;
    virtual void Read(const PropertyInfo& info, ComPtr<IFontDisp>& value) = 0;

    // A value that could be read turns out to be of no use. The error goes to the loader all the same.
    virtual void Rejected(const PropertyInfo& /*info*/, const RunTimeError& /*error*/) noexcept {}
};

// The default comes along because a property bag omits a value that equals it.
class PropertyWriter {
public:
    virtual ~PropertyWriter() = default;
    virtual void Write(const PropertyInfo& info, std::int16_t value, std::int16_t defaultValue) = 0;
    virtual void Write(const PropertyInfo& info, std::int32_t value, std::int32_t defaultValue) = 0;
    virtual void Write(const PropertyInfo& info, const std::u16string& value,
                       const std::u16string& defaultValue) = 0;
    virtual void Write(const PropertyInfo& info, IPictureDisp* value) = 0;
    virtual void Write(const PropertyInfo& info, IFontDisp* value, IFontDisp* defaultValue) = 0;
};

} // namespace vantik
