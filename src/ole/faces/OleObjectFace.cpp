#include "ole/faces/OleObjectFace.h"

#include "ole/com/Enumerator.h"
#include "ole/com/Identifiers.h"
#include "ole/com/TaskMemory.h"
#include "ole/control/Control.h"
#include "ole/faces/PropertyPages.h"
#include "ole/faces/Verbs.h"
#include "ole/window/Activation.h"

namespace vantik {

namespace {

struct VerbTraits {
    using Interface = IEnumOLEVERB;
    using Item = OLEVERB;
    using Kept = Verb;
    static void CopyOut(const Kept& kept, Item& item) {
        item = {kept.Number, TaskCopy(kept.Name).release(), 0, kept.Attributes};
    }
};

} // namespace

OleObjectFace::OleObjectFace(Control& control, Activation& activation) noexcept
    : Face(control.Controlling), control_(control), activation_(activation) {}

STDMETHODIMP OleObjectFace::SetClientSite(IOleClientSite* site) noexcept {
    return GuardAndTell([&] { control_.SetSite(site); });
}

STDMETHODIMP OleObjectFace::GetClientSite(IOleClientSite** site) noexcept {
    if (!site) return E_POINTER;
    *site = ComPtr<IOleClientSite>(control_.Site.Get()).Copy();
    return S_OK;
}

STDMETHODIMP OleObjectFace::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept { return S_OK; }

// A host that wants changes saved is asked to do it while the control is still whole.
STDMETHODIMP OleObjectFace::Close(DWORD saveOption) noexcept {
    return GuardAndTell([&] {
        const ComPtr<IOleClientSite> site(control_.Site.Get());
        if (saveOption != OLECLOSE_NOSAVE && site && control_.Document.IsDirty()) site->SaveObject();
        activation_.InPlaceDeactivate();
        control_.Advise.Closed();
    });
}

// The control cannot be linked to.
STDMETHODIMP OleObjectFace::SetMoniker(DWORD, IMoniker*) noexcept { return E_NOTIMPL; }
STDMETHODIMP OleObjectFace::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}
STDMETHODIMP OleObjectFace::InitFromData(IDataObject*, BOOL, DWORD) noexcept { return E_NOTIMPL; }
STDMETHODIMP OleObjectFace::GetClipboardData(DWORD, IDataObject** data) noexcept {
    if (data) *data = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObjectFace::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent,
                                   LPCRECT position) noexcept {
    return GuardAndTell([&] { return Perform(verb, parent, position); });
}

HRESULT OleObjectFace::Perform(LONG verb, HWND parent, LPCRECT position) {
    switch (verb) {
    case VerbProperties:
    case OLEIVERB_PROPERTIES: return ShowPropertyPages(control_, parent, position);
    case OLEIVERB_HIDE: return Hide();
    case OLEIVERB_DISCARDUNDOSTATE: return S_OK; // nothing is kept to be undone
    case OLEIVERB_SHOW: return Show();
    case OLEIVERB_INPLACEACTIVATE: return activation_.InPlaceActivate();
    case VerbNextTab: return ActivateNextTab(control_), S_OK;
    case VerbPreviousTab: return ActivatePreviousTab(control_), S_OK;
    case VerbAddTab: return AddTab(control_), S_OK;
    case VerbAbout: return control_.Engine.About(), S_OK;
    case VerbEdit: // the primary one: the user goes on with the control itself
    case OLEIVERB_OPEN:
    case OLEIVERB_UIACTIVATE: return activation_.UIActivate();
    default: break;
    }
    if (verb < 0) return E_NOTIMPL;
    const HRESULT result = activation_.UIActivate(); // as for the primary verb
    return result == S_OK ? OLEOBJ_S_INVALIDVERB : result;
}

// Also what an earlier verb has hidden.
HRESULT OleObjectFace::Show() {
    const HRESULT here = activation_.InPlaceActivate();
    if (here == S_OK) activation_.Show(true);
    return here;
}

HRESULT OleObjectFace::Hide() {
    activation_.UIDeactivate();
    activation_.Show(false);
    return S_OK;
}

STDMETHODIMP OleObjectFace::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    return GuardAndTell([&] {
        return Enumerator<VerbTraits>::Create({Verbs().begin(), Verbs().end()}, verbs);
    });
}

STDMETHODIMP OleObjectFace::Update() noexcept { return S_OK; }
STDMETHODIMP OleObjectFace::IsUpToDate() noexcept { return S_OK; }

STDMETHODIMP OleObjectFace::GetUserClassID(CLSID* classId) noexcept {
    if (!classId) return E_POINTER;
    *classId = CLSID_VantikFrameTab;
    return S_OK;
}

STDMETHODIMP OleObjectFace::GetUserType(DWORD form, LPOLESTR* type) noexcept {
    return GuardAndTell([&] {
        Required(type) = nullptr;
        *type = TaskCopy(form == USERCLASSTYPE_SHORT ? L"VantikFrameTab" : ControlTitle).release();
    });
}

STDMETHODIMP OleObjectFace::SetExtent(DWORD aspect, SIZEL* size) noexcept {
    if (!size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (size->cx < 0 || size->cy < 0) return E_INVALIDARG;
    return GuardAndTell([&] {
        if (activation_.Window())
            activation_.AskForSize(control_.Size.Screen().ToPixels(*size));
        else if (control_.Size.HiMetric(*size))
            control_.Resized();
    });
}

STDMETHODIMP OleObjectFace::GetExtent(DWORD aspect, SIZEL* size) noexcept {
    if (!size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = control_.Size.HiMetric();
    return S_OK;
}

STDMETHODIMP OleObjectFace::Advise(IAdviseSink* sink, DWORD* connection) noexcept {
    return GuardAndTell([&] { return control_.Advise.Object().Advise(sink, connection); });
}

STDMETHODIMP OleObjectFace::Unadvise(DWORD connection) noexcept {
    const auto holder = control_.Advise.ObjectIfAny();
    return holder ? holder->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP OleObjectFace::EnumAdvise(IEnumSTATDATA** advises) noexcept {
    if (!advises) return E_POINTER;
    return GuardAndTell([&] { return control_.Advise.Object().EnumAdvise(advises); });
}

STDMETHODIMP OleObjectFace::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    if (!status) return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? MiscStatus : 0;
    return S_OK;
}

STDMETHODIMP OleObjectFace::SetColorScheme(LOGPALETTE*) noexcept { return S_OK; }

} // namespace vantik
