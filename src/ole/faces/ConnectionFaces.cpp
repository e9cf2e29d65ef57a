#include "ole/faces/ConnectionFaces.h"

#include <algorithm>

#include "ole/com/Enumerator.h"
#include "ole/com/Identifiers.h"
#include "ole/com/TypeInfo.h"
#include "ole/control/Control.h"

namespace vantik {

namespace {

struct ConnectionPointTraits {
    using Interface = IEnumConnectionPoints;
    using Item = IConnectionPoint*;
    using Kept = ComPtr<IConnectionPoint>;
    static void CopyOut(const Kept& kept, Item& item) noexcept { item = kept.Copy(); }
};

} // namespace

ConnectionContainerFace::ConnectionContainerFace(Control& control) noexcept
    : Face(control.Controlling), control_(control) {}

STDMETHODIMP ConnectionContainerFace::EnumConnectionPoints(IEnumConnectionPoints** enumerator) noexcept {
    return Guard([&] {
        return Enumerator<ConnectionPointTraits>::Create({ComPtr<IConnectionPoint>(&control_.EventSinks),
                                                          ComPtr<IConnectionPoint>(&control_.PropertySinks)},
                                                         enumerator);
    });
}

STDMETHODIMP ConnectionContainerFace::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
    if (!point) return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* known : {&control_.EventSinks, &control_.PropertySinks})
        if (known->Outgoing() == iid) *point = known;
    if (!*point) return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

STDMETHODIMP ClassInfoFace::GetClassInfo(ITypeInfo** info) noexcept {
    return Guard([&] { Required(info) = OwnTypeInfo(CLSID_VantikFrameTab).Copy(); });
}

STDMETHODIMP ClassInfoFace::GetGUID(DWORD kind, GUID* guid) noexcept {
    if (!guid) return E_POINTER;
    *guid = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? DIID___VantikFrameTab : GUID_NULL;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

STDMETHODIMP ErrorSupportFace::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
    const IID* const telling[] = {&IID__VantikFrameTab, &IID_IPersistPropertyBag, &IID_IPersistStreamInit,
                                  &IID_IPersistStorage, &IID_IOleObject,          &IID_IOleInPlaceObject};
    return std::ranges::any_of(telling, [&](const IID* one) { return *one == iid; }) ? S_OK : S_FALSE;
}

} // namespace vantik
