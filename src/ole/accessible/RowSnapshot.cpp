#include "ole/accessible/RowSnapshot.h"

#include <algorithm>

#include "ole/accessible/PartTexts.h"

namespace vantik {

namespace {

constexpr LONG IdOf(std::int32_t tab) noexcept { return tab + 1; }

class Comparison {
public:
    Comparison(const RowSnapshot& before, const RowSnapshot& after) noexcept
        : before_(before), after_(after) {}

    std::vector<RowEvent> Events() {
        const bool isAnotherTree = HasOtherChildren();
        if (isAnotherTree)
            Add(EVENT_OBJECT_REORDER, CHILDID_SELF);
        else
            TellOfChildren();
        if (old_.Active != new_.Active || (isAnotherTree && HasOtherActiveCaption())) TellOfSelection();
        if (!isAnotherTree && HasOtherActiveCaption()) Add(EVENT_OBJECT_NAMECHANGE, PageId());
        return std::move(events_);
    }

private:
    void Add(DWORD event, LONG child) { events_.push_back({event, child}); }

    bool HasDetails() const noexcept { return before_.Details && after_.Details; }
    bool HasOtherActiveCaption() const noexcept {
        return HasDetails() && before_.Details->ActiveCaption != after_.Details->ActiveCaption;
    }

    // In particular after an insertion or removal all tabs behind it have other numbers.
    bool HasOtherChildren() const noexcept {
        return old_.Count != new_.Count || old_.HasActive() != new_.HasActive() ||
               old_.HasCloseButtons != new_.HasCloseButtons || old_.MarksLetters != new_.MarksLetters ||
               (HasDetails() && !AreAlikeThere(before_.Details->Behind, after_.Details->Behind));
    }
    template <class Areas>
    static bool AreAlikeThere(const Areas& before, const Areas& after) noexcept {
        return std::ranges::equal(
            before, after, [](const auto& a, const auto& b) { return a.has_value() == b.has_value(); });
    }

    void TellOfChildren() {
        for (std::int32_t tab = old_.First; tab < old_.End(); ++tab)
            if (!new_.Shows(tab)) Add(EVENT_OBJECT_HIDE, IdOf(tab));
        for (std::int32_t tab = new_.First; tab < new_.End(); ++tab)
            if (!old_.Shows(tab)) Add(EVENT_OBJECT_SHOW, IdOf(tab));
        if (HasDetails()) TellOfPlaces();
        if (old_.HasTabsBefore != new_.HasTabsBefore) TellOfUsability(PartKind::PreviousButton);
        if (old_.HasTabsBehind != new_.HasTabsBehind) TellOfUsability(PartKind::NextButton);
    }

    void TellOfPlaces() {
        for (std::int32_t tab = new_.First; tab < new_.End(); ++tab)
            if (old_.Shows(tab) && BarOf(tab, before_) != BarOf(tab, after_))
                Add(EVENT_OBJECT_LOCATIONCHANGE, IdOf(tab));
        for (std::size_t i = 0; i < BehindTabs.size(); ++i)
            if (before_.Details->Behind[i] != after_.Details->Behind[i])
                Add(EVENT_OBJECT_LOCATIONCHANGE, IdBehindTabs(i));
    }
    static const LayoutRect& BarOf(std::int32_t tab, const RowSnapshot& snapshot) noexcept {
        return snapshot.Details->Bars[static_cast<std::size_t>(tab - snapshot.Numbers.First)];
    }

    void TellOfUsability(PartKind button) {
        const std::size_t place = PlaceOf(button);
        if (after_.Details && after_.Details->Behind[place])
            Add(EVENT_OBJECT_STATECHANGE, IdBehindTabs(place));
    }

    void TellOfSelection() {
        if (new_.HasActive())
            Add(EVENT_OBJECT_SELECTION, IdOf(new_.Active));
        else if (old_.Active < new_.Count)
            Add(EVENT_OBJECT_SELECTIONREMOVE, IdOf(old_.Active));
        Add(EVENT_OBJECT_FOCUS, new_.HasActive() ? IdOf(new_.Active) : CHILDID_SELF);
    }

    static std::size_t PlaceOf(PartKind kind) noexcept {
        return static_cast<std::size_t>(std::ranges::find(BehindTabs, kind) - BehindTabs.begin());
    }
    LONG IdBehindTabs(std::size_t place) const noexcept {
        const auto& behind = after_.Details->Behind;
        const auto isThere = [](const auto& area) { return area.has_value(); };
        const auto end = behind.begin() + static_cast<std::ptrdiff_t>(place);
        return IdOf(new_.Count) + static_cast<LONG>(std::count_if(behind.begin(), end, isThere));
    }
    LONG PageId() const noexcept { return IdBehindTabs(PlaceOf(PartKind::Page)); }

    const RowSnapshot &before_, &after_;
    const RowNumbers &old_ = before_.Numbers, &new_ = after_.Numbers;
    std::vector<RowEvent> events_;
};

} // namespace

RowNumbers::RowNumbers(const ControlState& control) noexcept
    : Count(control.Properties.TabCount),
      Active(control.Properties.ActiveTab),
      First(control.Layout.FirstVisibleTab),
      Shown(std::clamp<std::int32_t>(Count - First, 0,
                                     std::max<std::int32_t>(control.Layout.VisibleBarCount, 0))),
      HasCloseButtons(control.Properties.DelButton != False),
      HasTabsBefore(control.HasTabsBefore()),
      HasTabsBehind(control.HasTabsBehind()),
      MarksLetters(vantik::MarksLetters(control)) {}

RowDetails::RowDetails(const ControlState& control, const RowNumbers& numbers)
    : Behind(AreasBehindTabs(control)) {
    Bars.reserve(static_cast<std::size_t>(numbers.Shown));
    for (std::int32_t tab = numbers.First; tab < numbers.End(); ++tab)
        Bars.push_back(AreaOf(control, {PartKind::Tab, static_cast<std::int16_t>(tab)}));
    if (numbers.HasActive()) ActiveCaption = control.Tabs(numbers.Active).Caption;
}

std::vector<RowEvent> EventsBetween(const RowSnapshot& before, const RowSnapshot& after) {
    return Comparison(before, after).Events();
}

} // namespace vantik
