// What a device context shows, as the background of a picture.
#pragma once

#include "platform/mDeclares.h"
#include "png/Composite.h"

namespace vantik {

class DeviceBackground final : public BackgroundSource {
public:
    DeviceBackground(HDC dc, std::int32_t x, std::int32_t y) noexcept : dc_(dc), x_(x), y_(y) {}

    // Leaves the rows as they are when there is no such context.
    void ReadRows(std::int32_t width, std::int32_t height, std::span<std::uint8_t> rows) noexcept override;

private:
    const HDC dc_;
    const std::int32_t x_;
    const std::int32_t y_;
};

} // namespace vantik
