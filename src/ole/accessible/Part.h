// The parts of the control that are told apart by those who cannot see it.
#pragma once

#include <cstdint>

namespace vantik {

enum class PartKind : std::uint8_t {
    Row, // the control itself
    Tab,
    CloseButton,
    PreviousButton,
    NextButton,
    MenuButton,
    Page
};

struct Part {
    PartKind Kind = PartKind::Row;
    std::int16_t Tab = -1; // of a tab and its close button

    friend bool operator==(const Part&, const Part&) = default;
};

} // namespace vantik
