// Connection points, and events that reach their sinks.
#include <doctest/doctest.h>

#include <functional>

#include "host/ComObject.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

// A sink whose answers the test decides.
class Sink final : public ComObject<IDispatch> {
public:
    explicit Sink(bool knowsEvents = true) : knowsEvents_(knowsEvents) {}
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (iid == DIID___VantikFrameTab && knowsEvents_)
            return ComObject::QueryInterface(IID_IDispatch, object);
        return ComObject::QueryInterface(iid, object);
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO* exception,
                        UINT*) noexcept override {
        Seen.push_back(id);
        if (During) During(*parameters);
        if (Answer == DISP_E_EXCEPTION) {
            exception->scode = HRESULT(0x800A0009);
            exception->bstrDescription = SysAllocString(L"my own words");
        }
        return Answer;
    }

    std::vector<DISPID> Seen;
    std::function<void(DISPPARAMS&)> During;
    HRESULT Answer = S_OK;

private:
    bool knowsEvents_;
};

ComPtr<IConnectionPoint> EventsOf(LooseControl& control) {
    ComPtr<IConnectionPoint> point;
    REQUIRE(control.As<IConnectionPointContainer>()->FindConnectionPoint(DIID___VantikFrameTab,
                                                                         point.Put()) == S_OK);
    return point;
}

// Raises TabDown for the tab behind the active one, as the wheel does.
HRESULT TurnWheel(LooseControl& control) {
    VARIANT_BOOL handled = VARIANT_FALSE;
    long result = 0, window = 0, message = WM_MOUSEWHEEL, wParam = 120 << 16, lParam = 0;
    return control.Tab->zSubclass_Proc(VARIANT_TRUE, &handled, &result, &window, &message, &wParam, &lParam);
}

struct ControlWithTabs : LooseControl {
    ControlWithTabs() {
        Tab->put_TabCount(4);
        Tab->put_ActiveTab(0);
    }
    int Active() { return Get(Dispatch(), L"ActiveTab").Number(); }
};

constexpr DISPID TabDown = 5;

} // namespace

TEST_CASE("The control has two connection points and lists them") {
    LooseControl control;
    const auto container = control.As<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> points;
    REQUIRE(container->EnumConnectionPoints(points.Put()) == S_OK);
    IConnectionPoint* found[3] = {};
    ULONG fetched = 0;
    CHECK(points->Next(3, found, &fetched) == S_FALSE);
    REQUIRE(fetched == 2);
    IID iid = {};
    found[0]->GetConnectionInterface(&iid);
    CHECK(iid == DIID___VantikFrameTab);
    found[1]->GetConnectionInterface(&iid);
    CHECK(iid == IID_IPropertyNotifySink);
    ComPtr<IConnectionPointContainer> back;
    CHECK(found[1]->GetConnectionPointContainer(back.Put()) == S_OK);
    CHECK(back.Get() == container.Get());
    for (ULONG i = 0; i < fetched; ++i) found[i]->Release();

    CHECK(points->Reset() == S_OK);
    CHECK(points->Skip(1) == S_OK);
    ComPtr<IEnumConnectionPoints> copy;
    REQUIRE(points->Clone(copy.Put()) == S_OK);
    ComPtr<IConnectionPoint> second;
    CHECK(copy->Next(1, second.Put(), nullptr) == S_OK);
    CHECK(copy->Next(1, second.Put(), nullptr) == S_FALSE);
    CHECK(points->Skip(2) == S_FALSE);
    ComPtr<IConnectionPoint> none;
    CHECK(container->FindConnectionPoint(IID_IUnknown, none.Put()) == CONNECT_E_NOCONNECTION);
    CHECK(!none);
}

TEST_CASE("Sinks come, are listed, and go") {
    ControlWithTabs control;
    const auto point = EventsOf(control);
    const auto sink = MakeCom<Sink>();
    DWORD cookie = 0;
    REQUIRE(point->Advise(sink.Get(), &cookie) == S_OK);
    ComPtr<IEnumConnections> connections;
    REQUIRE(point->EnumConnections(connections.Put()) == S_OK);
    CONNECTDATA data = {};
    CHECK(connections->Next(1, &data, nullptr) == S_OK);
    CHECK(data.dwCookie == cookie);
    if (data.pUnk) data.pUnk->Release();
    CHECK(point->Unadvise(cookie) == S_OK);
    CHECK(point->Unadvise(cookie) == CONNECT_E_NOCONNECTION);
    TurnWheel(control);
    CHECK(sink->Seen.empty());
    CHECK(point->Advise(nullptr, &cookie) == E_POINTER);
    CHECK(point->Advise(sink.Get(), nullptr) == E_POINTER);
}

TEST_CASE("A sink that only knows IDispatch will do, one that knows neither will not") {
    ControlWithTabs control;
    const auto plain = MakeCom<Sink>(false);
    DWORD cookie = 0;
    CHECK(EventsOf(control)->Advise(plain.Get(), &cookie) == S_OK);
    TurnWheel(control);
    CHECK(plain->Seen == std::vector<DISPID>{TabDown});
    ComPtr<IConnectionPoint> properties;
    control.As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, properties.Put());
    CHECK(properties->Advise(plain.Get(), &cookie) == CONNECT_E_CANNOTCONNECT);
    CHECK(cookie == 0);
}

TEST_CASE("Arguments come in reverse order, by reference, and what a sink leaves in them counts") {
    ControlWithTabs control;
    const auto sink = MakeCom<Sink>();
    DWORD cookie = 0;
    EventsOf(control)->Advise(sink.Get(), &cookie);
    sink->During = [](DISPPARAMS& parameters) {
        REQUIRE(parameters.cArgs == 2);
        CHECK(parameters.rgvarg[0].vt == (VT_BYREF | VT_I2));
        CHECK(*parameters.rgvarg[0].piVal == 0); // the button
        CHECK(*parameters.rgvarg[1].piVal == 1); // the tab
        *parameters.rgvarg[1].piVal = 3;
    };
    CHECK(TurnWheel(control) == S_OK);
    CHECK(control.Active() == 3);
}

TEST_CASE("All sinks hear an event; one that is let go by another in the event is not called any more") {
    ControlWithTabs control;
    const auto point = EventsOf(control);
    const auto first = MakeCom<Sink>(), second = MakeCom<Sink>(), third = MakeCom<Sink>();
    DWORD cookies[3] = {};
    point->Advise(first.Get(), &cookies[0]);
    point->Advise(second.Get(), &cookies[1]);
    point->Advise(third.Get(), &cookies[2]);
    first->During = [&](DISPPARAMS&) { point->Unadvise(cookies[1]); };
    third->During = [&](DISPPARAMS&) {
        DWORD cookie = 0;
        point->Advise(second.Get(), &cookie); // newcomers wait for the next event
    };
    TurnWheel(control);
    CHECK(first->Seen.size() == 1);
    CHECK(second->Seen.empty());
    CHECK(third->Seen.size() == 1);
}

TEST_CASE("A handler's error stops the operation and goes to the caller with its own words") {
    ControlWithTabs control;
    const auto sink = MakeCom<Sink>();
    DWORD cookie = 0;
    EventsOf(control)->Advise(sink.Get(), &cookie);
    sink->Answer = DISP_E_EXCEPTION;
    CHECK(TurnWheel(control) == HRESULT(0x800A0009));
    ComPtr<IErrorInfo> error;
    REQUIRE(GetErrorInfo(0, error.Put()) == S_OK);
    Bstr description(L"");
    error->GetDescription(description.Put());
    CHECK(description.Text() == L"my own words");
    CHECK(control.Active() == 0);
}

TEST_CASE("A sink that does not handle the event, or is gone, is no error") {
    ControlWithTabs control;
    const auto sink = MakeCom<Sink>();
    DWORD cookie = 0;
    EventsOf(control)->Advise(sink.Get(), &cookie);
    for (const HRESULT answer : {E_NOTIMPL, DISP_E_MEMBERNOTFOUND, RPC_E_DISCONNECTED}) {
        sink->Answer = answer;
        control.Tab->put_ActiveTab(0);
        CHECK(TurnWheel(control) == S_OK);
        CHECK(control.Active() == 1);
    }
}

TEST_CASE("Frozen events are dropped; freezing nests") {
    ControlWithTabs control;
    const auto sink = MakeCom<Sink>();
    DWORD cookie = 0;
    EventsOf(control)->Advise(sink.Get(), &cookie);
    const auto frozen = control.As<IOleControl>();
    frozen->FreezeEvents(TRUE);
    frozen->FreezeEvents(TRUE);
    TurnWheel(control);
    frozen->FreezeEvents(FALSE);
    TurnWheel(control);
    CHECK(sink->Seen.empty());
    CHECK(control.Active() == 2); // the switches themselves went on
    frozen->FreezeEvents(FALSE);
    frozen->FreezeEvents(FALSE); // once too often
    TurnWheel(control);
    CHECK(sink->Seen == std::vector<DISPID>{TabDown});
}

TEST_CASE("The last reference may go inside an event") {
    auto control = std::make_unique<ControlWithTabs>();
    const auto sink = MakeCom<Sink>();
    DWORD cookie = 0;
    EventsOf(*control)->Advise(sink.Get(), &cookie);
    ::_VantikFrameTab* raw = control->Tab.Get();
    sink->During = [&](DISPPARAMS&) { control->Release(); };
    VARIANT_BOOL handled = VARIANT_FALSE;
    long result = 0, window = 0, message = WM_MOUSEWHEEL, wParam = 120 << 16, lParam = 0;
    CHECK(raw->zSubclass_Proc(VARIANT_TRUE, &handled, &result, &window, &message, &wParam, &lParam) == S_OK);
    CHECK(sink->Seen.size() == 1);
    CHECK(control->Module().CanUnload());
}

} // namespace vantik
