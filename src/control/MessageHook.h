// Hands selected messages of a window to a callback, before or after the window's own procedure.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "model/Enumerations.h"
#include "platform/ComPtr.h"

namespace vantik {

class MessageCallback {
public:
    // Numbers are 32 bits wide whatever the platform; the callback may change what the references show: with handled
    // True the window never sees the message and result is the answer, otherwise the message is passed on as it is then.
    virtual void zSubclass_Proc(Boolean before, Boolean& handled, std::int32_t& result, std::int32_t& window,
                                std::int32_t& message, std::int32_t& wParam, std::int32_t& lParam) = 0;

    // Held while a message is under way, so that the callback survives what it sets off.
    virtual ComPtr<IUnknown> KeepAlive() = 0;

protected:
    ~MessageCallback() = default;
};

// When a message is delivered; both bits may be set.
enum class HookTime : std::uint8_t { Before = 1, After = 2, Both = 3 };

// The numbers of the messages to deliver; AllMessages delivers every one.
class MessageList {
public:
    static constexpr std::int32_t AllMessages = -1;

    // Once, however often it is added, and in the place of a 0 where there is one.
    void Add(std::int32_t message);
    void Remove(std::int32_t message);
    bool Contains(std::int32_t message) const noexcept;
    std::int32_t Count() const noexcept {
        return all_ ? AllMessages : static_cast<std::int32_t>(messages_.size());
    }

private:
    bool all_ = false;
    std::vector<std::int32_t> messages_;
};

// Any number of windows, each with lists of its own and hooked by one object at a time. A window that is destroyed leaves
// by itself, even where somebody keeps its last message from the hook; what is still hooked when this object ends is let go, so that no message reaches a callback that is gone.
//
// One procedure stands in the place of every hooked window's own and finds the window in a map of the process. Window
// properties, on which the system's own way of hooking rests, would cost a pointer move more than all the rest of it.
class MessageHook {
public:
    explicit MessageHook(MessageCallback& callback) : callback_(callback) {}
    ~MessageHook() { StopAll(); }
    MessageHook(const MessageHook&) = delete;
    MessageHook& operator=(const MessageHook&) = delete;

    void SubclassStart(HWND window); // does nothing for a window that is hooked already
    void SubclassAddMsg(HWND window, std::int32_t message, HookTime when);
    void SubclassDelMsg(HWND window, std::int32_t message, HookTime when);
    void SubclassStop(HWND window) noexcept;
    void StopAll() noexcept;

    bool IsHooked(HWND window) const noexcept;

private:
    struct Entry;
    class HookedWindows;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT Deliver(Entry& entry, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static void Forget(const Entry& entry) noexcept;
    static bool IsOn(const Entry& entry) noexcept;
    std::shared_ptr<Entry> Find(HWND window) const noexcept;

    static HookedWindows allHooked_;

    MessageCallback& callback_;
    std::map<HWND, std::shared_ptr<Entry>> entries_;
};

} // namespace vantik
