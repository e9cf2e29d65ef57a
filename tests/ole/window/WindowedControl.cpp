#include "ole/window/WindowedControl.h"

#include <array>
#include <utility>

namespace vantik {

namespace {

constexpr std::array<const char*, 7> EventNames = {"",        "DownBarDown", "PreTabDown", "NextTabDown",
                                                   "TabMove", "TabDown",     "TabClose"};

} // namespace

std::string EventLog::Take() { return std::exchange(log_, {}); }

STDMETHODIMP EventLog::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                              UINT*) noexcept {
    const std::string name = EventNames.at(static_cast<std::size_t>(id));
    if (!log_.empty()) log_ += "; ";
    log_ += name;
    std::int16_t* first = nullptr;
    for (UINT i = parameters->cArgs; i-- > 0;) { // they come in reverse order
        std::int16_t* argument = parameters->rgvarg[i].piVal;
        if (!first) first = argument;
        log_ += " " + std::to_string(*argument);
    }
    if (During) During(name, first);
    return Result;
}

WindowedControl::WindowedControl(const ComPtr<IUnknown>& control, const RECT& place)
    : object_(control.As<IOleObject>()), tab_(control.As<::_VantikFrameTab>()) {
    site_->Place = place;
    SetWindowPos(site_->Window, nullptr, 0, 0, place.right, place.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
    control.As<IPersistStreamInit>()->InitNew();
    object_->SetClientSite(site_.Get());
    ConnectEvents();
    object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, nullptr, nullptr);
    object_.As<IOleWindow>()->GetWindow(&window_);
}

WindowedControl::~WindowedControl() {
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
}

void WindowedControl::ConnectEvents() {
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    object_.As<IConnectionPointContainer>()->FindConnectionPoint(DIID___VantikFrameTab, point.Put());
    point->Advise(events_.Get(), &cookie);
}

test::Pixels WindowedControl::Picture() const {
    RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW);
    RECT client = {};
    GetClientRect(window_, &client);
    const test::TestSurface surface(client.right, client.bottom);
    const HDC shown = GetDC(window_);
    BitBlt(surface.DC(), 0, 0, client.right, client.bottom, shown, 0, 0, SRCCOPY);
    ReleaseDC(window_, shown);
    return surface.Read();
}

void WindowedControl::Press(POINT at) const {
    Move(at);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, at);
}

void WindowedControl::Send(UINT message, WPARAM keys, POINT at) const {
    SendMessageW(window_, message, keys, MAKELPARAM(at.x, at.y));
}

} // namespace vantik
