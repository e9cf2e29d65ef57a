// Hosts that let the control go, or deactivate it, on another thread than its window's: the window goes on its own thread,
// and the module is in use until then.
#include <doctest/doctest.h>

#include "host/BuiltControl.h"
#include "host/ControlModule.h"
#include "hostile/Worker.h"
#include "ole/OddSite.h"

namespace vantik {

namespace {

// A control in place, of which the test holds the only reference.
struct ActiveControl {
    ActiveControl() {
        const auto object = Object.As<IOleObject>();
        object->SetClientSite(Site.Get());
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        Window = ::GetWindow(Site->Window, GW_CHILD);
        REQUIRE(Window);
    }

    OleApartment Apartment;
    ControlModule Module{FindBuiltControl()};
    ComPtr<OddSite> Site = MakeCom<OddSite>();
    ComPtr<IUnknown> Object = Module.Create();
    HWND Window = nullptr;
};

// While nobody looks after the window's messages it lives on.
void ReleaseElsewhere(ActiveControl& control) {
    Worker().Do([&] { control.Object.Reset(); });
    CHECK(IsWindow(control.Window));
    CHECK(!control.Module.CanUnload());
}

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void CheckThatAllIsGone(const ActiveControl& control) {
    CHECK(!IsWindow(control.Window));
    CHECK(control.Module.CanUnload());
}

// Has an identity of its own, and knows what the control inside it knows.
class Outer final : public IUnknown {
public:
    explicit Outer(const ControlModule& module) : inner_(module.Create(this)) {}
    virtual ~Outer() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (iid != IID_IUnknown) return inner_->QueryInterface(iid, object);
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left) return left;
        references_ = 1;
        delete this;
        return 0;
    }

private:
    ULONG references_ = 1;
    ComPtr<IUnknown> inner_;
};

} // namespace

TEST_CASE("a control released elsewhere ends with the next message of its window") {
    ActiveControl control;
    ReleaseElsewhere(control);
    Pump();
    CheckThatAllIsGone(control);
    CHECK(control.Site->Calls.back() == "OnInPlaceDeactivate");
}

TEST_CASE("or with its window, where no message comes any more") {
    ActiveControl control;
    ReleaseElsewhere(control);
    DestroyWindow(control.Site->Window);
    CheckThatAllIsGone(control);
}

TEST_CASE("a control released elsewhere inside a message of its window ends behind that message") {
    ActiveControl control;
    control.Site->During = [&](const std::string& call) {
        if (call == "OnFocusLost") ReleaseElsewhere(control);
    };
    SetFocus(nullptr);
    Pump();
    CheckThatAllIsGone(control);
}

TEST_CASE("a control deactivated elsewhere loses its window when the window's thread comes by") {
    ActiveControl control;
    Worker().Do([&] { control.Object.As<IOleInPlaceObject>()->InPlaceDeactivate(); });
    control.Object.Reset();
    CHECK(IsWindow(control.Window));
    CHECK(!control.Module.CanUnload());
    Pump();
    CheckThatAllIsGone(control);
}

TEST_CASE(
    "a control inside an outer object ends with that, and its window when the window's thread comes by") {
    const OleApartment apartment;
    const ControlModule module(FindBuiltControl());
    const auto site = MakeCom<OddSite>();
    auto outer = ComPtr<Outer>::Adopt(new Outer(module));
    outer.As<IOleObject>()->SetClientSite(site.Get());
    outer.As<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr);
    const HWND window = ::GetWindow(site->Window, GW_CHILD);
    REQUIRE(window);
    Worker().Do([&] { outer.Reset(); });
    CHECK(IsWindow(window));
    CHECK(!module.CanUnload());
    Pump();
    CHECK(!IsWindow(window));
    CHECK(module.CanUnload());
}

TEST_CASE("two threads that let a control go at once, while its window has messages, end it once") {
    for (int round = 0; round < 200; ++round) {
        ActiveControl control;
        IUnknown* const first = control.Object.Copy();
        IUnknown* const second = control.Object.Copy();
        control.Object.Reset();
        {
            Worker a, b;
            a.Begin([=] { first->Release(); });
            b.Begin([=] { second->Release(); });
            for (int i = 0; i < 20; ++i) SendMessageW(control.Window, WM_SETCURSOR, 0, 0);
            a.Finish();
            b.Finish();
        }
        Pump();
        CheckThatAllIsGone(control);
    }
}

} // namespace vantik
