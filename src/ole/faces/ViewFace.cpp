#include "ole/faces/ViewFace.h"

#include "gfx/Handles.h"
#include "ole/control/Control.h"

namespace vantik {

namespace {

// The control fills its rectangle, so that its opaque part is all of it.
bool ShowsContent(DWORD aspect) noexcept { return aspect == DVASPECT_CONTENT || aspect == DVASPECT_OPAQUE; }

DWORD Hit(bool inside) noexcept { return inside ? HITRESULT_HIT : HITRESULT_OUTSIDE; }

} // namespace

ViewFace::ViewFace(Control& control) noexcept : Face(control.Controlling), control_(control) {}

STDMETHODIMP ViewFace::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC draw, LPCRECTL bounds,
                            LPCRECTL, BOOL(CALLBACK*)(ULONG_PTR), ULONG_PTR) noexcept {
    if (!ShowsContent(aspect)) return DV_E_DVASPECT;
    if (!draw || !bounds) return E_INVALIDARG;
    return Guard([&] {
        const RECT area = {bounds->left, bounds->top, bounds->right, bounds->bottom};
        const SavedDC saved(draw);
        return control_.PaintedSurface().CopyTo(draw, area) ? S_OK : E_INVALIDARG;
    });
}

STDMETHODIMP ViewFace::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) noexcept {
    if (!colors) return E_POINTER;
    *colors = nullptr;
    return S_FALSE;
}

STDMETHODIMP ViewFace::Freeze(DWORD, LONG, void*, DWORD* key) noexcept {
    if (key) *key = 0;
    return E_NOTIMPL;
}
STDMETHODIMP ViewFace::Unfreeze(DWORD) noexcept { return E_NOTIMPL; }

STDMETHODIMP ViewFace::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    return Guard([&] { control_.Advise.SetView(aspects, flags, sink); });
}

STDMETHODIMP ViewFace::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
    control_.Advise.GetView(aspects, flags, sink);
    return S_OK;
}

STDMETHODIMP ViewFace::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
    if (!size) return E_POINTER;
    if (!ShowsContent(aspect)) return DV_E_DVASPECT;
    *size = control_.Size.HiMetric();
    return S_OK;
}

STDMETHODIMP ViewFace::GetRect(DWORD aspect, LPRECTL rect) noexcept {
    if (!rect) return E_POINTER;
    if (!ShowsContent(aspect)) return DV_E_DVASPECT;
    const SIZEL size = control_.Size.HiMetric();
    *rect = {0, 0, size.cx, size.cy};
    return S_OK;
}

STDMETHODIMP ViewFace::GetViewStatus(DWORD* status) noexcept {
    if (!status) return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

STDMETHODIMP ViewFace::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG,
                                     DWORD* result) noexcept {
    if (!bounds || !result) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return E_FAIL;
    *result = Hit(PtInRect(bounds, point));
    return S_OK;
}

STDMETHODIMP ViewFace::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rect, LONG,
                                    DWORD* result) noexcept {
    if (!bounds || !rect || !result) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return E_FAIL;
    RECT both = {};
    *result = Hit(IntersectRect(&both, bounds, rect));
    return S_OK;
}

// Any size suits the control.
STDMETHODIMP ViewFace::GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO* info,
                                        LPSIZEL size) noexcept {
    if (!info || !size) return E_POINTER;
    if (!ShowsContent(aspect)) return DV_E_DVASPECT;
    *size = info->dwExtentMode == DVEXTENT_INTEGRAL ? info->sizelProposed : control_.Size.HiMetric();
    return S_OK;
}

} // namespace vantik
