#include "control/MessageHook.h"

#include <doctest/doctest.h>

#include <functional>
#include <string>

using namespace vantik;

namespace {

// A plain window that writes down what reaches its own procedure.
class TestWindow {
public:
    TestWindow() {
        WNDCLASSW description = {};
        description.lpfnWndProc = Procedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"MessageHookTest";
        RegisterClassW(&description);
        handle = CreateWindowW(description.lpszClassName, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                               description.hInstance, nullptr);
        SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&log));
    }
    ~TestWindow() { Destroy(); }

    void Destroy() {
        if (handle) DestroyWindow(handle);
        handle = nullptr;
    }

    HWND handle;
    std::string log;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* log = reinterpret_cast<std::string*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message < WM_USER || !log) return DefWindowProcW(window, message, wParam, lParam);
        *log += "window " + std::to_string(message - WM_USER) + ";";
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
};

class Recorder final : public MessageCallback {
public:
    explicit Recorder(std::string& log) : log_(log) {}

    void zSubclass_Proc(Boolean before, Boolean& handled, std::int32_t& result, std::int32_t& window,
                        std::int32_t& message, std::int32_t& wParam, std::int32_t& lParam) override {
        if (message < WM_USER) return;
        log_ += (before ? "before " : "after ") + std::to_string(message - WM_USER) + ";";
        if (onMessage) onMessage(handled, result);
        if (before && onArguments) onArguments(window, message, wParam, lParam);
    }
    ComPtr<IUnknown> KeepAlive() override { return nullptr; }

    std::function<void(Boolean&, std::int32_t&)> onMessage;
    // What may be changed before the window sees the message.
    std::function<void(std::int32_t&, std::int32_t&, std::int32_t&, std::int32_t&)> onArguments;

private:
    std::string& log_;
};

struct Hooked {
    TestWindow window;
    Recorder recorder{window.log};
    MessageHook hook{recorder};

    Hooked() { hook.SubclassStart(window.handle); }
    LRESULT Send(UINT number, WPARAM wParam = 7, LPARAM lParam = 0) {
        return SendMessageW(window.handle, WM_USER + number, wParam, lParam);
    }
};

} // namespace

TEST_CASE("a hooked window's listed messages are delivered before and after its own procedure") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 2, HookTime::After);
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 3, HookTime::Both);
    CHECK(h.Send(1) == 70);
    CHECK(h.Send(2) == 70);
    CHECK(h.Send(3) == 70);
    CHECK(h.Send(4) == 70);
    CHECK(h.window.log == "before 1;window 1;window 2;after 2;before 3;window 3;after 3;window 4;");
}

TEST_CASE("a callback that marks the message handled keeps it from the window and answers it") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Both);
    h.recorder.onMessage = [](Boolean& handled, std::int32_t& result) {
        handled = True;
        result = -5;
    };
    CHECK(h.Send(1) == -5);
    CHECK(h.window.log == "before 1;");
}

TEST_CASE("each message comes to the callback before the window as not handled and answered 0") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    for (int message = 0; message < 2; ++message) {
        Boolean handledAtFirst = True;
        std::int32_t resultAtFirst = 1;
        h.recorder.onMessage = [&](Boolean& handled, std::int32_t& result) {
            handledAtFirst = handled;
            resultAtFirst = result;
            handled = True;
            result = 5;
        };
        CHECK(h.Send(1) == 5);
        CHECK(handledAtFirst == False);
        CHECK(resultAtFirst == 0);
    }
}

TEST_CASE("a callback after the window may change the answer") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::After);
    h.recorder.onMessage = [](Boolean&, std::int32_t& result) { result += 1; };
    CHECK(h.Send(1) == 71);
}

namespace {

// Wider than 32 bits where the platform has such numbers.
constexpr auto Wide = static_cast<WPARAM>(0x0A345678) << (sizeof(WPARAM) > 4 ? 8 : 0);

} // namespace

TEST_CASE("an answer wider than 32 bits passes whole when nobody changes it") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Both);
    CHECK(h.Send(1, Wide) == static_cast<LRESULT>(Wide) * 10);
}

TEST_CASE("what a callback changes of the message is what the window gets, and the callback after it") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Both);
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 2, HookTime::After);
    h.recorder.onArguments = [](std::int32_t&, std::int32_t& message, std::int32_t& wParam,
                                std::int32_t& lParam) {
        message = WM_USER + 2;
        wParam = -1;
        lParam -= 8;
    };
    CHECK(h.Send(1, 7, 5) == -13);
    CHECK(h.window.log == "before 1;window 2;after 2;");
}

TEST_CASE("a message that a callback changes into one that is not listed is not delivered afterwards") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Both);
    h.recorder.onArguments = [](std::int32_t&, std::int32_t& message, std::int32_t&, std::int32_t&) {
        message = WM_USER + 3;
    };
    h.Send(1);
    CHECK(h.window.log == "before 1;window 3;");
}

TEST_CASE("a window that a callback puts in the place of its own is the one that the procedure gets") {
    Hooked h;
    TestWindow other;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    h.recorder.onArguments = [&](std::int32_t& window, std::int32_t&, std::int32_t&, std::int32_t&) {
        CHECK(window == HandleToLong(h.window.handle));
        window = HandleToLong(other.handle);
    };
    CHECK(h.Send(1) == 70);
    CHECK(h.window.log == "before 1;");
    CHECK(other.log == "window 1;");
}

TEST_CASE("of a message's wide numbers those stay whole that the callback leaves alone") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    const auto wide = static_cast<LPARAM>(Wide);
    h.recorder.onArguments = [](std::int32_t&, std::int32_t&, std::int32_t& wParam, std::int32_t&) {
        wParam = 3;
    };
    CHECK(h.Send(1, Wide, wide) == 30 + wide);
    h.recorder.onArguments = [](std::int32_t&, std::int32_t&, std::int32_t&, std::int32_t& lParam) {
        lParam = -4;
    };
    CHECK(h.Send(1, Wide, wide) == wide * 10 - 4);
}

TEST_CASE("adding a message twice keeps one entry and adding -1 makes the list deliver every message") {
    MessageList list;
    list.Add(522);
    list.Add(522);
    CHECK(list.Count() == 1);
    CHECK(list.Contains(522));
    CHECK_FALSE(list.Contains(523));
    list.Add(-1);
    CHECK(list.Count() == -1);
    CHECK(list.Contains(523));
}

TEST_CASE("the first 0 in a list gives its place to the next message that is added") {
    MessageList list;
    list.Add(0);
    CHECK(list.Contains(0));
    list.Add(522);
    CHECK(list.Count() == 1);
    CHECK_FALSE(list.Contains(0));
    CHECK(list.Contains(522));
    list.Add(0);
    list.Add(522); // stands before the 0
    CHECK(list.Count() == 2);
    CHECK(list.Contains(0));
    list.Add(523);
    CHECK(list.Count() == 2);
    CHECK_FALSE(list.Contains(0));
}

TEST_CASE("a removed message is delivered no more") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Both);
    h.hook.SubclassDelMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    h.Send(1);
    CHECK(h.window.log == "window 1;after 1;");
}

TEST_CASE("unhooking gives the window its own procedure back") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, -1, HookTime::Both);
    h.hook.SubclassStop(h.window.handle);
    h.Send(1);
    CHECK(h.window.log == "window 1;");
}

TEST_CASE("a window that is destroyed leaves the hook by itself") {
    Hooked h;
    const HWND handle = h.window.handle;
    h.hook.SubclassAddMsg(handle, -1, HookTime::Both);
    h.window.Destroy();
    CHECK_FALSE(h.hook.IsHooked(handle));
}

TEST_CASE("a hook that ends inside its own callback lets the message pass") {
    TestWindow window;
    Recorder recorder(window.log);
    auto hook = std::make_unique<MessageHook>(recorder);
    hook->SubclassStart(window.handle);
    hook->SubclassAddMsg(window.handle, WM_USER + 1, HookTime::Both);
    recorder.onMessage = [&](Boolean&, std::int32_t&) { hook.reset(); };
    SendMessageW(window.handle, WM_USER + 1, 0, 0);
    CHECK(window.log == "before 1;window 1;");
}

TEST_CASE("a message sent after the hook's end reaches only the window") {
    TestWindow window;
    Recorder recorder(window.log);
    {
        MessageHook hook(recorder);
        hook.SubclassStart(window.handle);
        hook.SubclassAddMsg(window.handle, -1, HookTime::Both);
    }
    SendMessageW(window.handle, WM_USER + 1, 0, 0);
    CHECK(window.log == "window 1;");
}

TEST_CASE("an error in the callback stops at the window procedure") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    h.recorder.onMessage = [](Boolean&, std::int32_t&) { throw 1; };
    CHECK(h.Send(1) == 70);
}

TEST_CASE("each window has lists of its own") {
    Hooked h;
    TestWindow other;
    h.hook.SubclassStart(other.handle);
    h.hook.SubclassAddMsg(other.handle, WM_USER + 1, HookTime::Before);
    h.Send(1);
    CHECK(h.window.log == "window 1;");
    SendMessageW(other.handle, WM_USER + 1, 0, 0);
    CHECK(h.window.log == "window 1;before 1;");
    CHECK(other.log == "window 1;");
}

TEST_CASE("a window has one hook at a time and can be hooked anew afterwards") {
    Hooked h;
    Recorder other(h.window.log);
    MessageHook second(other);
    second.SubclassStart(h.window.handle);
    CHECK_FALSE(second.IsHooked(h.window.handle));
    h.hook.StopAll();
    second.SubclassStart(h.window.handle);
    CHECK(second.IsHooked(h.window.handle));
    second.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    h.Send(1);
    CHECK(h.window.log == "before 1;window 1;");
}

namespace {

WNDPROC procedureBehind;

LRESULT CALLBACK StandInFront(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(procedureBehind, window, message, wParam, lParam);
}

} // namespace

TEST_CASE(
    "a hook that somebody stands in front of lets messages through after its end, and can begin again") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, -1, HookTime::Both);
    procedureBehind = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(h.window.handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(StandInFront)));
    h.hook.SubclassStop(h.window.handle);
    CHECK_FALSE(h.hook.IsHooked(h.window.handle));
    CHECK(h.Send(1) == 70);
    CHECK(h.window.log == "window 1;");
    h.hook.SubclassStart(h.window.handle);
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 2, HookTime::After);
    h.Send(2);
    CHECK(h.window.log == "window 1;window 2;after 2;");
}

TEST_CASE("hooking leaves a window its kind of text") {
    const HWND ansi = CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    REQUIRE_FALSE(IsWindowUnicode(ansi));
    std::string log;
    Recorder recorder(log);
    MessageHook hook(recorder);
    hook.SubclassStart(ansi);
    CHECK_FALSE(IsWindowUnicode(ansi));
    SetWindowTextA(ansi, "text");
    char text[8] = {};
    GetWindowTextA(ansi, text, sizeof text);
    CHECK(text == std::string("text"));
    DestroyWindow(ansi);
    CHECK_FALSE(hook.IsHooked(ansi));
}

namespace {

LRESULT CALLBACK SwallowTheLast(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) return DefWindowProcW(window, message, wParam, lParam);
    return StandInFront(window, message, wParam, lParam);
}

// A hooked window that is destroyed without the hook's being told.
struct Unnoticed : Hooked {
    const HWND gone = window.handle;

    Unnoticed() {
        procedureBehind = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(gone, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SwallowTheLast)));
        window.Destroy();
    }
};

BOOL CALLBACK RemoveProperty(HWND window, LPCWSTR name, HANDLE) {
    RemovePropW(window, name);
    return TRUE;
}

// Leaves a window as a new one is that has got the number of one that was destroyed: with the procedure of its class,
// and without any property.
void BecomeNew(HWND window) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, static_cast<LONG_PTR>(GetClassLongPtrW(window, GCLP_WNDPROC)));
    EnumPropsW(window, RemoveProperty);
}

} // namespace

TEST_CASE("a window that somebody kept the last message of is hooked no more") {
    Unnoticed u;
    CHECK_FALSE(u.hook.IsHooked(u.gone));
    u.hook.SubclassStop(u.gone);
    CHECK_FALSE(u.hook.IsHooked(u.gone));
}

TEST_CASE("a new window under the number of one that went unnoticed is hooked anew") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    BecomeNew(h.window.handle);
    CHECK_FALSE(h.hook.IsHooked(h.window.handle));
    h.hook.SubclassStart(h.window.handle);
    CHECK(h.hook.IsHooked(h.window.handle));
    h.Send(1);
    CHECK(h.window.log == "window 1;"); // the old one's lists went with it
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 2, HookTime::Before);
    h.Send(2);
    CHECK(h.window.log == "window 1;before 2;window 2;");
}

TEST_CASE("so it is for another object, and the first one's end leaves it alone") {
    TestWindow window;
    Recorder recorder(window.log), other(window.log);
    auto first = std::make_unique<MessageHook>(recorder);
    first->SubclassStart(window.handle);
    BecomeNew(window.handle);
    MessageHook second(other);
    second.SubclassStart(window.handle);
    second.SubclassAddMsg(window.handle, WM_USER + 1, HookTime::Before);
    CHECK(second.IsHooked(window.handle));
    CHECK_FALSE(first->IsHooked(window.handle));
    first.reset();
    SendMessageW(window.handle, WM_USER + 1, 0, 0);
    CHECK(window.log == "before 1;window 1;");
}

TEST_CASE("a window that lost what the hook left on it stays hooked as it was") {
    Hooked h;
    h.hook.SubclassAddMsg(h.window.handle, WM_USER + 1, HookTime::Before);
    EnumPropsW(h.window.handle, RemoveProperty);
    h.hook.SubclassStart(h.window.handle);
    h.Send(1);
    CHECK(h.window.log == "before 1;window 1;");
    h.hook.SubclassStop(h.window.handle);
    h.Send(1);
    CHECK(h.window.log == "before 1;window 1;window 1;");
}
