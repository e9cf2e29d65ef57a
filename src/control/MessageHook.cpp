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

// A number of which the callback sees 32 bits. It stays whole unless the callback puts others in their place; those count
// with their sign, as handles do and -1.
template <class Whole>
class SeenNumber {
public:
    explicit SeenNumber(Whole whole) noexcept : Seen(static_cast<std::int32_t>(whole)), whole_(whole) {}

    std::int32_t Seen;
    Whole Value() const noexcept {
        return static_cast<std::int32_t>(whole_) == Seen ? whole_ : static_cast<Whole>(Seen);
    }

private:
    Whole whole_;
};

// One message on its way through the hook, as the callback leaves it.
class Delivery {
public:
    Delivery(MessageCallback& callback, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
        : callback_(callback),
          window_(reinterpret_cast<std::intptr_t>(window)),
          message_(message),
          wParam_(wParam),
          lParam_(lParam) {}

    // What the callback raises ends here: a window procedure must not throw.
    void Call(Boolean before) noexcept {
        try {
            callback_.zSubclass_Proc(before, handled_, result_.Seen, window_.Seen, message_.Seen,
                                     wParam_.Seen, lParam_.Seen);
        } catch (...) {
            TellDebugger(u"in its message hook"); // the message goes on as if it had done nothing more
        }
    }

    bool Handled() const noexcept { return handled_ != False; }

    HWND Window() const noexcept { return reinterpret_cast<HWND>(window_.Value()); }
    UINT Message() const noexcept { return message_.Value(); }
    WPARAM WParam() const noexcept { return wParam_.Value(); }
    LPARAM LParam() const noexcept { return lParam_.Value(); }

    void Answer(LRESULT result) noexcept { result_ = SeenNumber(result); }
    LRESULT Answer() const noexcept { return result_.Value(); }

private:
    MessageCallback& callback_;
    Boolean handled_ = False;
    SeenNumber<LRESULT> result_{0};
    SeenNumber<std::intptr_t> window_;
    SeenNumber<UINT> message_;
    SeenNumber<WPARAM> wParam_;
    SeenNumber<LPARAM> lParam_;
};

} // namespace

void MessageList::Add(std::int32_t message) {
    if (message == AllMessages) {
        all_ = true;
        return;
    }
    const auto place =
        std::ranges::find_if(messages_, [&](std::int32_t held) { return held == 0 || held == message; });
    if (place == messages_.end())
        messages_.push_back(message);
    else
        *place = message;
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

    LRESULT PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
        const auto call = IsUnicode ? CallWindowProcW : CallWindowProcA;
        return call(Previous, window, message, wParam, lParam);
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
        answer = entry->PassOn(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) Forget(*entry);
    return answer;
}

LRESULT MessageHook::Deliver(Entry& entry, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const ComPtr<IUnknown> alive = entry.Owner->callback_.KeepAlive();
    Delivery delivery(entry.Owner->callback_, entry.Window, message, wParam, lParam);
    const auto delivers = [&](const MessageList& list) {
        return entry.Owner && list.Contains(static_cast<std::int32_t>(delivery.Message()));
    };
    if (delivers(entry.Before)) delivery.Call(True);
    if (!delivery.Handled()) {
        delivery.Answer(
            entry.PassOn(delivery.Window(), delivery.Message(), delivery.WParam(), delivery.LParam()));
        if (delivers(entry.After)) delivery.Call(False);
    }
    return delivery.Answer();
}

void MessageHook::Forget(const Entry& entry) noexcept {
    if (entry.Owner) entry.Owner->entries_.erase(entry.Window);
    if (entry.HasMark()) RemovePropW(entry.Window, Mark);
    allHooked_.Remove(entry);
}

} // namespace vantik
