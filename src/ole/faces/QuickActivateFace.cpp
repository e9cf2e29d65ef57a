#include "ole/faces/QuickActivateFace.h"

#include "ole/com/Identifiers.h"
#include "ole/control/Control.h"

namespace vantik {

QuickActivateFace::QuickActivateFace(Control& control) noexcept
    : Face(control.Controlling), control_(control) {}

STDMETHODIMP QuickActivateFace::QuickActivate(QACONTAINER* container, QACONTROL* result) noexcept {
    return Guard([&] {
        const QACONTAINER& host = Required(container);
        QACONTROL& answer = Required(result);
        const ULONG size = answer.cbSize;
        answer = {};
        answer.cbSize = size;
        control_.SetSite(host.pClientSite);
        Connect(host, answer);
        answer.dwMiscStatus = MiscStatus;
        answer.dwViewStatus = VIEWSTATUS_OPAQUE;
    });
}

// A sink that does not fit is left out; the host sees it by the missing cookie.
void QuickActivateFace::Connect(const QACONTAINER& container, QACONTROL& result) {
    if (container.pAdviseSink) control_.Advise.SetView(DVASPECT_CONTENT, 0, container.pAdviseSink);
    if (container.pPropertyNotifySink)
        control_.PropertySinks.Advise(container.pPropertyNotifySink, &result.dwPropNotifyCookie);
    if (container.pUnkEventSink) control_.EventSinks.Advise(container.pUnkEventSink, &result.dwEventCookie);
}

STDMETHODIMP QuickActivateFace::SetContentExtent(LPSIZEL size) noexcept {
    return Guard([&] {
        const auto object = QueryFor<IOleObject>(&control_.Controlling);
        return object ? object->SetExtent(DVASPECT_CONTENT, size) : E_UNEXPECTED;
    });
}

STDMETHODIMP QuickActivateFace::GetContentExtent(LPSIZEL size) noexcept {
    if (!size) return E_POINTER;
    *size = control_.Size.HiMetric();
    return S_OK;
}

} // namespace vantik
