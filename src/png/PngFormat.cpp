#include "png/PngFormat.h"

#include <algorithm>
#include <cstring>

#include "base/RunTimeError.h"

namespace vantik {

namespace {

void NeedBytes(ByteView data, std::size_t count) {
    if (data.size() < count) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
}

template <class Number>
Number NumberAt(ByteView data, std::size_t offset) {
    NeedBytes(data, offset + sizeof(Number));
    Number number;
    std::memcpy(&number, data.data() + offset, sizeof number);
    return number;
}

} // namespace

bool IsPngSignature(std::span<const std::uint8_t, 8> bytes) noexcept {
    return std::equal(bytes.begin(), bytes.end(), PngSignature.begin());
}

std::int32_t BigEndianLong(ByteView data, std::size_t offset) {
    return SwapLong(NumberAt<std::int32_t>(data, offset));
}

std::int16_t BigEndianInteger(ByteView data, std::size_t offset) {
    return SwapInteger(NumberAt<std::int16_t>(data, offset));
}

ImageHeader ParseHeader(ByteView data) {
    NeedBytes(data, 13);
    return {BigEndianLong(data, 0), BigEndianLong(data, 4), data[8], data[9], data[10], data[11], data[12]};
}

} // namespace vantik
