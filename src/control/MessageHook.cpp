#include "control/MessageHook.h"

#include <commctrl.h>

#include <algorithm>

namespace vantik {

namespace {

bool Includes(HookTime when, HookTime part) {
    return static_cast<unsigned>(when) & static_cast<unsigned>(part);
}

// One message on its way through the hook, in the 32-bit numbers that the callback knows.
class Delivery {
public:
    Delivery(MessageCallback& callback, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
        : callback_(callback),
          window_(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window))),
          message_(static_cast<std::int32_t>(message)),
          wParam_(static_cast<std::int32_t>(wParam)),
          lParam_(static_cast<std::int32_t>(lParam)) {}

    // What the callback raises ends here: a window procedure must not throw.
    void Call(Boolean before) noexcept {
        try {
            callback_.zSubclass_Proc(before, handled_, result_, window_, message_, wParam_, lParam_);
        } catch (...) {
            // The operation ended; the message goes on as if it had done nothing more.
        }
    }

    bool Handled() const noexcept { return handled_ != False; }

    // The window's answer stays whole unless the callback puts one of its 32 bits in its place.
    void Answer(LRESULT result) noexcept {
        whole_ = result;
        result_ = static_cast<std::int32_t>(result);
    }
    LRESULT Answer() const noexcept {
        return static_cast<std::int32_t>(whole_) == result_ ? whole_ : result_;
    }

private:
    MessageCallback& callback_;
    Boolean handled_ = False;
    std::int32_t result_ = 0;
    LRESULT whole_ = 0;
    std::int32_t window_;
    std::int32_t message_;
    std::int32_t wParam_;
    std::int32_t lParam_;
};

} // namespace

void MessageList::Add(std::int32_t message) {
    if (message == AllMessages)
        all_ = true;
    else if (std::ranges::find(messages_, message) == messages_.end())
        messages_.push_back(message);
}

void MessageList::Remove(std::int32_t message) {
    if (message == AllMessages)
        all_ = false;
    else
        std::erase(messages_, message);
}

bool MessageList::Contains(std::int32_t message) const noexcept {
    return all_ || std::ranges::find(messages_, message) != messages_.end();
}

std::shared_ptr<MessageHook::Entry> MessageHook::Find(HWND window) const noexcept {
    const auto found = std::ranges::find(entries_, window, [](const auto& entry) { return entry->Window; });
    return found == entries_.end() ? nullptr : *found;
}

void MessageHook::SubclassStart(HWND window) {
    if (Find(window)) return;
    entries_.push_back(std::make_shared<Entry>(Entry{this, window, {}, {}}));
    const auto data = reinterpret_cast<DWORD_PTR>(entries_.back().get());
    if (!SetWindowSubclass(window, Procedure, reinterpret_cast<UINT_PTR>(this), data)) entries_.pop_back();
}

void MessageHook::SubclassAddMsg(HWND window, std::int32_t message, HookTime when) {
    const auto entry = Find(window);
    if (!entry) return;
    if (Includes(when, HookTime::After)) entry->After.Add(message);
    if (Includes(when, HookTime::Before)) entry->Before.Add(message);
}

void MessageHook::SubclassDelMsg(HWND window, std::int32_t message, HookTime when) {
    const auto entry = Find(window);
    if (!entry) return;
    if (Includes(when, HookTime::After)) entry->After.Remove(message);
    if (Includes(when, HookTime::Before)) entry->Before.Remove(message);
}

void MessageHook::SubclassStop(HWND window) noexcept {
    if (const auto entry = Find(window)) entry->Owner = nullptr; // a message under way stops delivering
    RemoveWindowSubclass(window, Procedure, reinterpret_cast<UINT_PTR>(this));
    std::erase_if(entries_, [window](const auto& entry) { return entry->Window == window; });
}

void MessageHook::StopAll() noexcept {
    while (!entries_.empty()) SubclassStop(entries_.back()->Window);
}

LRESULT CALLBACK MessageHook::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                        UINT_PTR /*id*/, DWORD_PTR data) {
    MessageHook* hook = reinterpret_cast<Entry*>(data)->Owner;
    const ComPtr<IUnknown> alive = hook->callback_.KeepAlive();
    const std::shared_ptr<Entry> entry = hook->Find(window); // outlives an unhooking from inside the message
    const auto number = static_cast<std::int32_t>(message);

    Delivery delivery(hook->callback_, window, message, wParam, lParam);
    if (entry->Before.Contains(number)) delivery.Call(True);
    if (!delivery.Handled()) {
        delivery.Answer(DefSubclassProc(window, message, wParam, lParam));
        if (entry->Owner && entry->After.Contains(number)) delivery.Call(False);
    }
    if (entry->Owner && message == WM_NCDESTROY) entry->Owner->SubclassStop(window);
    return delivery.Answer();
}

} // namespace vantik
