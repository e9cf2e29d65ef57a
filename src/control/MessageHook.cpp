#include "control/MessageHook.h"

#include <algorithm>

#include "platform/DebugLine.h"
#include "platform/Lock.h"
#include "platform/Module.h"

namespace vantik {

namespace {

// On a hooked window, the entry that it has. A window takes its properties with it, whoever keeps its last message from the
// hook: so a new one of the same number can be told from it.
constexpr wchar_t Mark[] = L"VantikFrameTab.MessageHook";

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
            TellDebugger(u"in its message hook"); // the message goes on as if it had done nothing more
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

// Lists for one window, and the procedure that the hook stands in front of.
struct MessageHook::Entry {
    MessageHook* Owner; // null: the messages only pass through
    HWND Window;
    bool IsUnicode;
    WNDPROC Previous;
    MessageList Before, After;

    LRESULT PassOn(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
        const auto call = IsUnicode ? CallWindowProcW : CallWindowProcA;
        return call(Previous, Window, message, wParam, lParam);
    }
    WNDPROC Exchange(WNDPROC procedure) const noexcept {
        const auto set = IsUnicode ? SetWindowLongPtrW : SetWindowLongPtrA;
        return reinterpret_cast<WNDPROC>(set(Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
    }
    bool StandsInFront() const noexcept {
        const auto get = IsUnicode ? GetWindowLongPtrW : GetWindowLongPtrA;
        return get(Window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(Procedure);
    }
    bool SetMark() noexcept { return SetPropW(Window, Mark, this) != FALSE; }
    bool HasMark() const noexcept { return GetPropW(Window, Mark) == this; }
};

// Each window belongs to one thread, the map to all of them.
class MessageHook::HookedWindows {
public:
    std::shared_ptr<Entry> Find(HWND window) const noexcept {
        const Lock lock(lock_);
        const auto found = entries_.find(window);
        return found == entries_.end() ? nullptr : found->second;
    }
    void Add(const std::shared_ptr<Entry>& entry) {
        const Lock lock(lock_);
        entries_[entry->Window] = entry;
    }
    void Remove(const Entry& entry) noexcept {
        const Lock lock(lock_);
        const auto found = entries_.find(entry.Window);
        if (found != entries_.end() && found->second.get() == &entry) entries_.erase(found);
    }

private:
    mutable SRWLOCK lock_ = SRWLOCK_INIT;
    std::map<HWND, std::shared_ptr<Entry>> entries_;
};

MessageHook::HookedWindows MessageHook::allHooked_;

// Whether the entry's window is still the one that was hooked.
bool MessageHook::IsOn(const Entry& entry) noexcept {
    return entry.HasMark() || (entry.StandsInFront() && allHooked_.Find(entry.Window).get() == &entry);
}

std::shared_ptr<MessageHook::Entry> MessageHook::Find(HWND window) const noexcept {
    const auto found = entries_.find(window);
    return found == entries_.end() ? nullptr : found->second;
}

bool MessageHook::IsHooked(HWND window) const noexcept {
    const auto entry = Find(window);
    return entry && IsOn(*entry);
}

void MessageHook::SubclassStart(HWND window) {
    const auto known = allHooked_.Find(window);
    if (known && IsOn(*known)) {
        if (known->Owner) return;
        entries_[window] = known; // somebody hooked the window later, and so it could not be unhooked
        known->Owner = this;
        return;
    }
    const auto entry =
        std::make_shared<Entry>(Entry{this, window, IsWindowUnicode(window) != FALSE, {}, {}, {}});
    entries_[window] = entry;
    allHooked_.Add(entry);
    if (entry->SetMark()) entry->Previous = entry->Exchange(Procedure);
    if (!entry->Previous) SubclassStop(window);
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

// Where somebody else stands in front of the hook by now, it must stay in its place, and lets everything through.
void MessageHook::SubclassStop(HWND window) noexcept {
    const auto entry = Find(window);
    if (!entry) return;
    entries_.erase(window);
    entry->Owner = nullptr; // a message under way stops delivering
    entry->Before = entry->After = {};
    const bool isInPlace = entry->Previous && IsOn(*entry);
    if (isInPlace && !entry->StandsInFront()) return KeepThisModuleLoaded();
    if (isInPlace) entry->Exchange(entry->Previous);
    if (entry->HasMark()) RemovePropW(window, Mark);
    allHooked_.Remove(*entry);
}

void MessageHook::StopAll() noexcept {
    while (!entries_.empty()) SubclassStop(entries_.begin()->first);
}

LRESULT CALLBACK MessageHook::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const std::shared_ptr<Entry> entry = allHooked_.Find(window); // outlives an unhooking inside the message
    if (!entry) return DefWindowProcW(window, message, wParam, lParam);
    const auto number = static_cast<std::int32_t>(message);
    LRESULT answer = 0;
    if (entry->Before.Contains(number) || entry->After.Contains(number))
        answer = Deliver(*entry, message, wParam, lParam);
    else
        answer = entry->PassOn(message, wParam, lParam);
    if (message == WM_NCDESTROY) Forget(*entry);
    return answer;
}

LRESULT MessageHook::Deliver(Entry& entry, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const auto number = static_cast<std::int32_t>(message);
    const ComPtr<IUnknown> alive = entry.Owner->callback_.KeepAlive();
    Delivery delivery(entry.Owner->callback_, entry.Window, message, wParam, lParam);
    if (entry.Before.Contains(number)) delivery.Call(True);
    if (!delivery.Handled()) {
        delivery.Answer(entry.PassOn(message, wParam, lParam));
        if (entry.Owner && entry.After.Contains(number)) delivery.Call(False);
    }
    return delivery.Answer();
}

void MessageHook::Forget(const Entry& entry) noexcept {
    if (entry.Owner) entry.Owner->entries_.erase(entry.Window);
    if (entry.HasMark()) RemovePropW(entry.Window, Mark);
    allHooked_.Remove(entry);
}

} // namespace vantik
