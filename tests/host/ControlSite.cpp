#include "host/ControlSite.h"

#include <cmath>

#include "host/HostError.h"
#include "host/UnknownEnumerator.h"

namespace vantik {

namespace {

constexpr double HimetricPerInch = 2540;
constexpr double TwipsPerInch = 1440;

// Gives a counted reference away; without one the answer is the given failure.
template <class Interface>
HRESULT Hand(const ComPtr<Interface>& object, Interface** target, HRESULT missing) noexcept {
    *target = object.Copy();
    return object ? S_OK : missing;
}

} // namespace

bool ControlSite::Offers(REFIID id) const noexcept {
    if (id == __uuidof(ISimpleFrameSite)) return switches_.SimpleFrameSite;
    if (id == __uuidof(IVBGetControl)) return switches_.VbGetControl;
    if (id == __uuidof(IDispatch)) return switches_.Ambients;
    return true;
}

template <class Piece>
HRESULT ControlSite::Ask(Piece piece) noexcept {
    if (!owner_) return E_UNEXPECTED;
    return Guarded([&]() -> HRESULT {
        const ComPtr<ControlSite> alive(this); // the form may end meanwhile
        return piece(*owner_);
    });
}

HRESULT ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (!moniker) return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlSite::GetContainer(IOleContainer** container) noexcept {
    if (!container) return E_POINTER;
    *container = nullptr;
    if (!switches_.Container) return E_NOINTERFACE;
    return Ask([&](SiteOwner& owner) { return Hand(owner.FormContainer(), container, E_NOINTERFACE); });
}

HRESULT ControlSite::GetWindow(HWND* window) noexcept {
    if (!window) return E_POINTER;
    return Ask([&](SiteOwner& owner) {
        *window = owner.FormHandle();
        return *window ? S_OK : E_FAIL;
    });
}

HRESULT ControlSite::OnInPlaceActivate() noexcept {
    return Ask([](SiteOwner& owner) {
        owner.ControlActivated(true);
        return S_OK;
    });
}

HRESULT ControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) noexcept {
    if (noRedraw) *noRedraw = FALSE;
    return OnInPlaceActivate();
}

HRESULT ControlSite::OnUIActivate() noexcept {
    return Ask([](SiteOwner& owner) {
        owner.ControlUIActivated(true);
        return S_OK;
    });
}

HRESULT ControlSite::OnUIDeactivate(BOOL) noexcept {
    return Ask([](SiteOwner& owner) {
        owner.ControlUIActivated(false);
        return S_OK;
    });
}

HRESULT ControlSite::OnInPlaceDeactivate() noexcept {
    return Ask([](SiteOwner& owner) {
        owner.ControlActivated(false);
        return S_OK;
    });
}

HRESULT ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                      RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept {
    if (!frame || !document || !place || !clip || !info) return E_POINTER;
    *frame = nullptr;
    *document = nullptr; // the form is a document of its own
    return Ask([&](SiteOwner& owner) {
        if (switches_.Frame) *frame = owner.FormFrame().Copy();
        *place = ToPixels(owner.ControlItem().Place());
        GetClientRect(owner.FormHandle(), clip);
        info->fMDIApp = FALSE;
        info->hwndFrame = owner.FormHandle();
        info->haccel = nullptr;
        info->cAccelEntries = 0;
        return S_OK;
    });
}

HRESULT ControlSite::OnPosRectChange(LPCRECT place) noexcept {
    if (!place) return E_POINTER;
    return Ask([&](SiteOwner& owner) {
        owner.ControlAsksForPlace(*place);
        return S_OK;
    });
}

HRESULT ControlSite::GetExtendedControl(IDispatch** extender) noexcept {
    if (!extender) return E_POINTER;
    *extender = nullptr;
    if (!switches_.Extenders) return E_NOTIMPL;
    return Ask([&](SiteOwner& owner) { return Hand(owner.ControlExtender(), extender, E_NOTIMPL); });
}

// The form's unit is the twip.
HRESULT ControlSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept {
    if (!himetric || !container) return E_POINTER;
    if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
        container->x = static_cast<float>(himetric->x * TwipsPerInch / HimetricPerInch);
        container->y = static_cast<float>(himetric->y * TwipsPerInch / HimetricPerInch);
    } else {
        himetric->x = static_cast<LONG>(std::lround(container->x * HimetricPerInch / TwipsPerInch));
        himetric->y = static_cast<LONG>(std::lround(container->y * HimetricPerInch / TwipsPerInch));
    }
    return S_OK;
}

HRESULT ControlSite::TranslateAccelerator(MSG* message, DWORD) noexcept {
    if (!message) return E_POINTER;
    return Ask([&](SiteOwner& owner) { return owner.ControlOffersKey(*message) ? S_OK : S_FALSE; });
}

HRESULT ControlSite::ShowPropertyFrame() noexcept {
    return Ask([](SiteOwner& owner) { return owner.ShowControlProperties() ? S_OK : E_NOTIMPL; });
}

HRESULT ControlSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                            UINT*) noexcept {
    if ((flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
    if (!result) return E_POINTER;
    return Ask([&](SiteOwner& owner) {
        std::optional<Variant> value = AmbientProperty(id, ambients_, switches_, owner.ControlItem().Name());
        if (!value) return DISP_E_MEMBERNOTFOUND;
        value->MoveTo(result);
        return S_OK;
    });
}

HRESULT ControlSite::PreMessageFilter(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      LRESULT* result, DWORD* cookie) noexcept {
    if (!result || !cookie) return E_POINTER;
    ++preFilters_;
    *cookie = 0;
    return Ask([&](SiteOwner& owner) {
        const std::optional<LRESULT> answer = owner.ControlMessage(window, message, wParam, lParam);
        if (!answer) return S_OK;
        *result = *answer;
        return S_FALSE; // the control is to leave the message alone
    });
}

HRESULT ControlSite::PostMessageFilter(HWND, UINT, WPARAM, LPARAM, LRESULT*, DWORD) noexcept {
    ++postFilters_;
    return S_FALSE; // nothing to add
}

HRESULT ControlSite::OnChanged(DISPID id) noexcept {
    return Ask([&](SiteOwner& owner) {
        owner.PropertyChanged(id);
        return S_OK;
    });
}

HRESULT ControlSite::EnumControls(DWORD, DWORD which, IEnumUnknown** controls) noexcept {
    if (!controls) return E_POINTER;
    *controls = nullptr;
    return Ask([&](SiteOwner& owner) {
        std::vector<ComPtr<IUnknown>> objects;
        const auto wanted = static_cast<VbControls>(which & VbControlsMask);
        if (wanted == VbControls::Contained) objects = owner.ContainedObjects();
        if (wanted == VbControls::All) objects = owner.AllObjects();
        *controls = MakeCom<UnknownEnumerator>(std::move(objects)).Copy();
        return S_OK;
    });
}

} // namespace vantik
