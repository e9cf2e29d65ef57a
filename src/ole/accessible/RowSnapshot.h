// What those who watch the row are told of, as it was at one moment, and what there is to tell between two moments.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "ole/accessible/PartTree.h"
#include "platform/mDeclares.h"

namespace vantik {

// So little that it is kept at any time.
struct RowNumbers {
    explicit RowNumbers(const ControlState& control) noexcept;

    std::int16_t Count, Active;
    std::int16_t First; // of the tabs that show
    std::int32_t Shown;
    bool HasCloseButtons;
    bool HasTabsBefore, HasTabsBehind;
    bool MarksLetters;

    bool HasActive() const noexcept { return Active >= 0 && Active < Count; }
    bool Shows(std::int32_t tab) const noexcept { return tab >= First && tab < End(); }
    std::int32_t End() const noexcept { return First + Shown; }
};

// Kept while somebody listens. Taking them may raise what painting raises.
struct RowDetails {
    RowDetails(const ControlState& control, const RowNumbers& numbers);

    std::vector<LayoutRect> Bars; // of the tabs that show
    std::array<std::optional<LayoutRect>, BehindTabs.size()> Behind;
    std::u16string ActiveCaption;
};

struct RowSnapshot {
    RowNumbers Numbers;
    std::optional<RowDetails> Details;
};

// In the terms of NotifyWinEvent.
struct RowEvent {
    DWORD Event;
    LONG Child;
};

// In the order in which they are told; EVENT_OBJECT_FOCUS only where the row has the focus. Of a row with other children than
// before no more is told than that, and its selection: who listens asks again.
std::vector<RowEvent> EventsBetween(const RowSnapshot& before, const RowSnapshot& after);

} // namespace vantik
