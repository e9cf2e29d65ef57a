#include "ole/accessible/Announcements.h"

#include <algorithm>
#include <utility>

namespace vantik {

namespace {

constexpr DWORD Announced[] = {
    EVENT_OBJECT_FOCUS,      EVENT_OBJECT_SELECTION,   EVENT_OBJECT_SELECTIONREMOVE,
    EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_REORDER,
    EVENT_OBJECT_SHOW,       EVENT_OBJECT_HIDE,        EVENT_OBJECT_LOCATIONCHANGE};

bool IsAnybodyListening() noexcept { return std::ranges::any_of(Announced, IsWinEventHookInstalled); }

void Notify(HWND window, RowEvent event) noexcept {
    NotifyWinEvent(event.Event, window, OBJID_CLIENT, event.Child);
}

} // namespace

RowSnapshot Announcements::Look() const noexcept {
    const ControlState& state = control_.Engine.State();
    RowSnapshot now = {RowNumbers(state), std::nullopt};
    if (!IsAnybodyListening()) return now;
    try {
        now.Details.emplace(state, now.Numbers);
    } catch (...) { // no memory, or a geometry that cannot be painted either
    }
    return now;
}

// Who is told may run code of the host at once, which changes more and tells it by itself: nothing here is touched any
// more then.
void Announcements::RowChanged() noexcept {
    const HWND window = control_.Place.Window();
    if (!window) return;
    try {
        RowSnapshot now = Look();
        const bool isNew = std::exchange(window_, window) != window;
        std::vector<RowEvent> events;
        if (told_ && !isNew) events = EventsBetween(*told_, now);
        if (!hasFocus_)
            std::erase_if(events, [](RowEvent event) { return event.Event == EVENT_OBJECT_FOCUS; });
        told_ = std::move(now);
        for (const RowEvent& event : events) Notify(window, event);
    } catch (...) { // no memory: it is told with the next change
    }
}

void Announcements::TabChanged(std::int16_t tab, TabAspect aspect) noexcept {
    const HWND window = control_.Place.Window();
    const DWORD event = aspect == TabAspect::Name ? EVENT_OBJECT_NAMECHANGE : EVENT_OBJECT_STATECHANGE;
    if (window) Notify(window, {event, tab + 1});
}

void Announcements::TabsReplaced() noexcept {
    if (told_) told_->Numbers.Count = -1; // as there never are
}

void Announcements::FocusChanged(bool gained) noexcept {
    hasFocus_ = gained;
    const RowNumbers row(control_.Engine.State());
    if (gained && row.HasActive()) Notify(control_.Place.Window(), {EVENT_OBJECT_FOCUS, row.Active + 1});
}

} // namespace vantik
