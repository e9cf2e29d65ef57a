// Keys that mean nothing to the control are the host's, whichever way they come, and each only once.
#include <doctest/doctest.h>

#include "host/FormContainer.h"
#include "ole/window/ControlInDialog.h"

namespace vantik {

namespace {

using Keys = std::vector<std::pair<UINT, WPARAM>>;

// The row has the focus, and the site notes what it is offered.
struct OfferingControl : ControlInDialog {
    explicit OfferingControl(HRESULT answer = S_FALSE) {
        SetFocus(Row);
        Answer([answer](MSG&) { return answer; });
    }

    void Answer(std::function<HRESULT(MSG&)> answer) {
        Site->Keys = [this, answer = std::move(answer)](MSG& message) {
            Offered.emplace_back(message.message, message.wParam);
            return answer(message);
        };
    }

    // What a message loop does that knows nothing of active objects, and one that asks them first.
    void Dispatch(UINT message, WPARAM key, LPARAM data = 1) const { SendMessageW(Row, message, key, data); }
    HRESULT Ask(UINT message, WPARAM key) const {
        MSG asked = {Row, message, key, 1, 0, {0, 0}};
        return As<IOleInPlaceActiveObject>()->TranslateAccelerator(&asked);
    }
    HRESULT AskAndDispatch(UINT message, WPARAM key) const {
        const HRESULT used = Ask(message, key);
        if (used != S_OK) Dispatch(message, key);
        return used;
    }
    int Active() const { return Get(Dispatch_(), L"ActiveTab").Number(); }

    Keys Offered;

private:
    IDispatch& Dispatch_() const { return LooseControl::Dispatch(); }
};

// A frame whose table has F5.
struct FrameWithKey {
    FrameWithKey() {
        ACCEL entry = {FVIRTKEY, VK_F5, 77};
        Table = CreateAcceleratorTableW(&entry, 1);
        Frame->Command = [this](WORD command) {
            Commands.push_back(command);
            return S_OK;
        };
    }
    ~FrameWithKey() { DestroyAcceleratorTable(Table); }
    FrameWithKey(const FrameWithKey&) = delete;
    FrameWithKey& operator=(const FrameWithKey&) = delete;

    // The control meets it when it is activated.
    void Enter(OfferingControl& control, bool withTable) const {
        control.As<IOleInPlaceObject>()->InPlaceDeactivate();
        control.Site->Frame = Frame.As<IOleInPlaceFrame>();
        control.Site->Accelerators = withTable ? Table : nullptr;
        control.As<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        control.As<IOleWindow>()->GetWindow(&control.Row);
    }

    HACCEL Table;
    ComPtr<FormFrame> Frame = MakeCom<FormFrame>(nullptr);
    std::vector<WORD> Commands;
};

} // namespace

TEST_CASE(
    "A loop that knows nothing of active objects brings the site every key but those that switch tabs") {
    OfferingControl control;
    control.Dispatch(WM_KEYDOWN, VK_RIGHT);
    CHECK(control.Active() == 1);
    CHECK(control.Offered.empty());
    const Keys keys = {{WM_KEYDOWN, VK_RETURN}, {WM_KEYDOWN, VK_ESCAPE}, {WM_KEYDOWN, VK_TAB},
                       {WM_SYSKEYDOWN, 'N'},    {WM_CHAR, 'n'},          {WM_SYSCHAR, 'n'}};
    for (const auto& [message, key] : keys) control.Dispatch(message, key);
    CHECK(control.Offered == keys);
}

TEST_CASE("A key that the site uses does nothing else, and neither does its letter") {
    OfferingControl control(S_OK);
    control.AddField("field", 20);
    control.Dispatch(WM_KEYDOWN, VK_TAB, 0xF0001);
    CHECK(control.Focus() == "row");
    control.Dispatch(WM_CHAR, VK_TAB, 0xF0001);
    CHECK(control.Offered == Keys{{WM_KEYDOWN, VK_TAB}});
    control.Dispatch(WM_CHAR, 'n', 0x310001); // of no key that came before
    CHECK(control.Offered.size() == 2);
}

TEST_CASE("A key that nobody uses goes on to the page if it is Tab") {
    OfferingControl control;
    control.AddField("field", 20);
    control.Dispatch(WM_KEYDOWN, VK_TAB);
    CHECK(control.Focus() == "field");
    CHECK(control.Offered.size() == 1);
}

TEST_CASE("A loop that asks the active object first brings each key once") {
    OfferingControl control;
    for (int press = 1; press <= 3; ++press) {
        CHECK(control.AskAndDispatch(WM_KEYDOWN, VK_F2) == S_FALSE);
        CHECK(control.Offered.size() == static_cast<std::size_t>(press));
    }
    CHECK(control.AskAndDispatch(WM_KEYDOWN, VK_RIGHT) == S_OK);
    CHECK(control.Active() == 1);
    CHECK(control.Offered.size() == 3);
}

TEST_CASE("The next key is another one, also where the loop never dispatched the one before") {
    OfferingControl control;
    CHECK(control.Ask(WM_KEYDOWN, VK_F2) == S_FALSE);
    control.Dispatch(WM_KEYDOWN, VK_F3);
    control.Dispatch(WM_KEYDOWN, VK_F2);
    CHECK(control.Offered == Keys{{WM_KEYDOWN, VK_F2}, {WM_KEYDOWN, VK_F3}, {WM_KEYDOWN, VK_F2}});
}

TEST_CASE(
    "A site may send the key back, ask the active object in its turn, or hand it to the dialog manager") {
    OfferingControl control;
    control.AddField("field", 20);
    control.Answer([&](MSG& message) {
        CHECK(control.Ask(message.message, message.wParam) == S_FALSE);
        control.Dispatch(message.message, message.wParam);
        return IsDialogMessageW(control.Dialog.Window(), &message) ? S_OK : S_FALSE;
    });
    control.Dispatch(WM_KEYDOWN, VK_F2);
    control.Dispatch(WM_KEYDOWN, VK_DOWN);
    CHECK(control.Offered.size() == 2);
    CHECK(control.Ask(WM_KEYDOWN, VK_F2) ==
          S_OK); // the dialog manager says so of every key that it dispatches
    CHECK(control.Offered.size() == 3);
    CHECK(control.Focus() == "row");
}

TEST_CASE("A site that hands Tab to the dialog manager lets it walk") {
    OfferingControl control;
    control.AddField("field", 20);
    control.Answer(
        [&](MSG& message) { return IsDialogMessageW(control.Dialog.Window(), &message) ? S_OK : S_FALSE; });
    control.Dispatch(WM_KEYDOWN, VK_TAB);
    CHECK(control.Focus() == "field");
    SetFocus(control.Row);
    const HeldKey shift(VK_SHIFT);
    control.Dispatch(WM_KEYDOWN, VK_TAB);
    CHECK(control.Focus() == "before");
}

TEST_CASE("A dialog keeps Enter, Esc and the letters that stand for its fields") {
    OfferingControl control;
    MSG enter = {control.Row, WM_KEYDOWN, VK_RETURN, 1, 0, {0, 0}};
    const auto wanted = SendMessageW(control.Row, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter));
    CHECK(wanted == DLGC_WANTARROWS);
    const HWND label = CreateWindowExW(0, L"STATIC", L"&Name", WS_CHILD | WS_VISIBLE, 0, 0, 9, 9,
                                       control.Dialog.Window(), nullptr, nullptr, nullptr);
    SetWindowPos(control.After, label, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    control.Dialog.Key(WM_SYSCHAR, 'n');
    CHECK(control.Focus() == "after");
}

TEST_CASE("A key of the frame's table reaches the frame where the site has no use for it") {
    const FrameWithKey frame;
    OfferingControl control;
    frame.Enter(control, true);
    control.Dispatch(WM_KEYDOWN, VK_F5);
    CHECK(frame.Commands == std::vector<WORD>{77});
    CHECK(control.Ask(WM_KEYDOWN, VK_F5) == S_OK);
    CHECK(frame.Commands.size() == 2);
    control.Dispatch(WM_KEYDOWN, VK_F6); // not in the table
    control.Answer([](MSG&) { return S_OK; });
    control.Dispatch(WM_KEYDOWN, VK_F5);
    CHECK(frame.Commands.size() == 2);
    OfferingControl other;
    frame.Enter(other, false);
    other.Dispatch(WM_KEYDOWN, VK_F5);
    CHECK(frame.Commands.size() == 2);
}

TEST_CASE("The control may be closed, robbed of its site or released while it offers a key") {
    for (const int deed : {0, 1, 2, 3}) {
        CAPTURE(deed);
        OfferingControl control;
        control.AddField("field", 20);
        control.Answer([&](MSG&) {
            if (deed == 0) control.As<IOleObject>()->Close(OLECLOSE_NOSAVE);
            if (deed == 1) control.As<IOleInPlaceObject>()->InPlaceDeactivate();
            if (deed == 2) control.As<IOleObject>()->SetClientSite(nullptr);
            if (deed == 3) {
                control.As<IOleObject>()->SetClientSite(nullptr);
                control.Release();
            }
            return S_FALSE;
        });
        control.Dispatch(WM_KEYDOWN, VK_TAB);
        CHECK(control.Offered.size() == 1);
        CHECK(!IsWindow(control.Row));
    }
}

} // namespace vantik
