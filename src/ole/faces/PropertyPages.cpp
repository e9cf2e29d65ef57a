#include "ole/faces/PropertyPages.h"

#include <iterator>

#include "ole/com/Identifiers.h"
#include "ole/control/Control.h"
#include "ole/host/ModelessOff.h"

namespace vantik {

namespace {

const CLSID Pages[] = {CLSID_CColorPropPage, CLSID_CFontPropPage, CLSID_CPicturePropPage};

} // namespace

STDMETHODIMP PropertyPagesFace::GetPages(CAUUID* pages) noexcept {
    if (!pages) return E_POINTER;
    *pages = {};
    pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof Pages));
    if (!pages->pElems) return E_OUTOFMEMORY;
    std::copy(std::begin(Pages), std::end(Pages), pages->pElems);
    pages->cElems = static_cast<ULONG>(std::size(Pages));
    return S_OK;
}

HRESULT ShowPropertyPages(Control& control, HWND parent, LPCRECT position) {
    const auto site = control.Site.As<IOleControlSite>();
    if (site && site->ShowPropertyFrame() == S_OK) return S_OK;
    const auto object = QueryFor<IUnknown>(&control.Controlling);
    IUnknown* objects[] = {object.Get()};
    CLSID pages[std::size(Pages)];
    std::copy(std::begin(Pages), std::end(Pages), pages);
    const ModelessOff off(control.Place.Frame());
    return OleCreatePropertyFrame(parent, position ? static_cast<UINT>(position->left) : 0,
                                  position ? static_cast<UINT>(position->top) : 0, ControlTitle, 1, objects,
                                  static_cast<ULONG>(std::size(pages)), pages, LOCALE_USER_DEFAULT, 0,
                                  nullptr);
}

} // namespace vantik
