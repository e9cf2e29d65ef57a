// The properties as bytes.
//
// A header (magic, version, size of what follows), then one record per property: length and text of the key, type and
// size of the value, and the value. Numbers are little-endian. A reader takes the records that it knows, wherever they
// stand, and passes over the others, so that older and newer versions read each other; a property without a record has its
// default. Pictures and fonts write themselves.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "ole/persist/VariantBag.h"

namespace vantik {

// The whole stream is read before the first property is taken: a stream that is no stream of ours leaves the control as
// it was.
class StreamReader final : public VariantReader {
public:
    explicit StreamReader(IStream& stream);

private:
    struct Value {
        VARTYPE Type;
        std::vector<std::byte> Bytes;
    };

    bool Fetch(const PropertyInfo& info, Variant& value) override;

    std::map<std::u16string, Value, std::less<>> values_;
};

// Collects the records; Flush writes them out.
class StreamWriter final : public VariantWriter {
public:
    StreamWriter() noexcept : VariantWriter(false) {}

    void Flush(IStream& stream) const;
    std::size_t Size() const noexcept;

private:
    void Store(const PropertyInfo& info, VARIANT& value) override;

    std::vector<std::byte> records_;
};

} // namespace vantik
