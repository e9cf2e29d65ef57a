#include "TabSite.h"

namespace {

constexpr DISPID FirstEvent = 1, DownBarDownEvent = 1, TabDownEvent = 5, TabCloseEvent = 6, LastEvent = 6;

Com<IUnknown> Create() {
    IUnknown* object = nullptr;
    Check(CoCreateInstance(CLSID_VantikFrameTab, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                           reinterpret_cast<void**>(&object)));
    return Com<IUnknown>(object);
}

Com<IConnectionPoint> EventsOf(IUnknown& control) {
    const auto points = Query<IConnectionPointContainer>(control);
    IConnectionPoint* events = nullptr;
    Check(points->FindConnectionPoint(DIID___VantikFrameTab, &events));
    return Com<IConnectionPoint>(events);
}

} // namespace

// First the values, then the site, then the events; in place it has a window.
TabSite::TabSite(HWND form, const RECT& place) : form_(form), place_(place) {
    const auto control = Create();
    object_ = Query<IOleObject>(*control);
    tab_ = Query<_VantikFrameTab>(*control);
    events_ = EventsOf(*control);
    Check(Query<IPersistStreamInit>(*control)->InitNew());
    Check(object_->SetClientSite(this));
    Check(events_->Advise(static_cast<IOleClientSite*>(this), &advised_));
    Check(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, form, &place_));
}

TabSite::~TabSite() {
    if (events_ && advised_) events_->Unadvise(advised_);
    if (!object_) return;
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
}

HWND TabSite::Window() const noexcept {
    HWND window = nullptr;
    Query<IOleWindow>(*object_)->GetWindow(&window);
    return window;
}

void TabSite::Move(const RECT& place) {
    place_ = place;
    Query<IOleInPlaceObject>(*object_)->SetObjectRects(&place_, &place_);
}

bool TabSite::UsesKey(MSG& message) const noexcept {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    return isKey && active_ && active_->TranslateAccelerator(&message) == S_OK;
}

STDMETHODIMP TabSite::QueryInterface(REFIID id, void** object) noexcept {
    if (id == IID_IUnknown || id == IID_IOleClientSite)
        *object = static_cast<IOleClientSite*>(this);
    else if (id == IID_IOleInPlaceSite || id == IID_IOleWindow)
        *object = static_cast<IOleInPlaceSite*>(this);
    else if (id == IID_IOleInPlaceFrame || id == IID_IOleInPlaceUIWindow)
        *object = static_cast<IOleInPlaceFrame*>(this);
    else if (id == IID_IDispatch || id == DIID___VantikFrameTab)
        *object = static_cast<IDispatch*>(this);
    else
        *object = nullptr;
    return *object ? S_OK : E_NOINTERFACE;
}

// Without a container the control takes the windows on it for its children.
STDMETHODIMP TabSite::GetContainer(IOleContainer** container) noexcept {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP TabSite::GetWindow(HWND* window) noexcept {
    *window = form_;
    return S_OK;
}

STDMETHODIMP TabSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                       RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept {
    *frame = this;
    *document = nullptr;
    *place = *clip = place_;
    *info = {sizeof *info, FALSE, form_, nullptr, 0};
    return S_OK;
}

STDMETHODIMP TabSite::SetActiveObject(IOleInPlaceActiveObject* object, const wchar_t*) noexcept {
    if (object) object->AddRef();
    active_.reset(object);
    return S_OK;
}

STDMETHODIMP TabSite::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

// Arguments come last first, each by reference.
void TabSite::Hear(DISPID event, const DISPPARAMS& arguments) {
    if (event == DownBarDownEvent && MenuDown) MenuDown();
    if (event == TabDownEvent && TabDown) TabDown(*arguments.rgvarg[1].piVal, *arguments.rgvarg[0].piVal);
    if (event == TabCloseEvent && TabClose) TabClose(*arguments.rgvarg[0].piVal);
}

// No exception leaves by the control, whatever compiler that was made with.
STDMETHODIMP TabSite::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                             UINT*) noexcept {
    if (event < FirstEvent || event > LastEvent) return DISP_E_MEMBERNOTFOUND; // it has no ambient properties
    try {
        Hear(event, *arguments);
        return S_OK;
    } catch (const ComError& error) {
        return error.Result;
    }
}
