// Raises the control's events at the sinks that the host connected.
#pragma once

#include <optional>

#include "ole/host/ConnectionPoint.h"
#include "platform/UserControl.h"

namespace vantik {

class EventSource final : public TabEvents {
public:
    EventSource(IUnknown& controlling, const ConnectionPoint& sinks) noexcept
        : controlling_(controlling), sinks_(sinks) {}

    void DownBarDown() override;
    void PreTabDown(std::int16_t& firstPos) override;
    void NextTabDown(std::int16_t& firstPos) override;
    void TabMove(std::int16_t& index) override;
    void TabDown(std::int16_t& index, std::int16_t& button) override;
    void TabClose(std::int16_t& index) override;

    // While one lives, TabMove of that tab raises nothing: the host was asked and answered so.
    class MoveWasTold {
    public:
        MoveWasTold(EventSource& events, std::int16_t tab, std::int16_t answer) noexcept : events_(events) {
            events_.told_ = {tab, answer};
        }
        ~MoveWasTold() { events_.told_.reset(); }
        MoveWasTold(const MoveWasTold&) = delete;
        MoveWasTold& operator=(const MoveWasTold&) = delete;

    private:
        EventSource& events_;
    };

    // Freezing nests. An event that falls into a freeze is dropped: its answer would come too late to count.
    void Freeze(bool freeze) noexcept;

private:
    // The arguments in reverse order, as IDispatch wants them.
    void Fire(DISPID event, VARIANTARG* arguments, UINT count);
    void FireIndex(DISPID event, std::int16_t& index);

    struct Told {
        std::int16_t Tab, Answer;
    };

    IUnknown& controlling_;
    const ConnectionPoint& sinks_;
    std::optional<Told> told_;
    unsigned freezes_ = 0;
};

} // namespace vantik
