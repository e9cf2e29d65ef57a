#include "hostile/random/RandomSite.h"

#include "hostile/random/RandomFrame.h"
#include "hostile/random/RandomObject.h"

namespace vantik {

namespace {

constexpr const IID* Interfaces[] = {&__uuidof(IOleInPlaceSite), &__uuidof(IOleControlSite),
                                     &__uuidof(IDispatch), &__uuidof(ISimpleFrameSite),
                                     &__uuidof(IVBGetControl)};

} // namespace

RandomSite::RandomSite(World& world, int place)
    : world_(world), place_(place), lacking_(0), filtersMessages_(world.Draw.OneIn(3)) {
    for (unsigned bit = 0; bit < std::size(Interfaces); ++bit)
        if (world.Draw.OneIn(bit == 4 ? 2 : 8)) lacking_ |= 1U << bit;
}

bool RandomSite::Offers(REFIID id) const noexcept {
    for (unsigned bit = 0; bit < std::size(Interfaces); ++bit)
        if (id == *Interfaces[bit]) return !(lacking_ >> bit & 1);
    return true;
}

HRESULT RandomSite::Asked(const char* call) noexcept {
    const ComPtr<IOleClientSite> alive(this);
    return gone_ ? RPC_E_DISCONNECTED : world_.Called(call);
}

RECT RandomRect(World& world) noexcept {
    Random& draw = world.Draw;
    static constexpr LONG Odd[] = {0, -1, -100, 1, 2, 32767, 40000, -2147483647 - 1, 2147483647};
    if (world.IsRough(6)) return {draw.Of(Odd), draw.Of(Odd), draw.Of(Odd), draw.Between(0, 300)};
    if (draw.OneIn(20)) return {0, 0, draw.Between(1000, 3000), draw.Between(500, 1500)};
    const LONG left = draw.Between(-20, 100), top = draw.Between(-20, 100);
    return {left, top, left + draw.Between(0, 500), top + draw.Between(0, 300)};
}

HRESULT RandomSite::GetContainer(IOleContainer** container) noexcept {
    *container = nullptr;
    const HRESULT result = Asked("GetContainer");
    if (SUCCEEDED(result) && !world_.IsRough(8)) *container = MakeCom<RandomContainer>(world_, place_).Copy();
    return result;
}

HRESULT RandomSite::GetWindow(HWND* window) noexcept {
    *window = nullptr;
    const HRESULT result = Asked("site: GetWindow");
    if (SUCCEEDED(result) && !world_.IsRough(12))
        *window = world_.FormOf(world_.Places()[static_cast<std::size_t>(place_)]);
    return result;
}

HRESULT RandomSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                     RECT* clip, OLEINPLACEFRAMEINFO*) noexcept {
    *frame = nullptr;
    *document = nullptr;
    const HRESULT result = Asked("GetWindowContext");
    if (FAILED(result)) return result;
    if (!world_.Draw.OneIn(4)) *frame = MakeCom<RandomFrame>(world_).Copy();
    if (world_.Draw.OneIn(2)) *document = MakeCom<RandomFrame>(world_).Copy();
    *place = RandomRect(world_);
    *clip = world_.Draw.OneIn(2) ? *place : RandomRect(world_);
    return result;
}

// As hosts do, it gives the control the place that it asks for, or another one.
HRESULT RandomSite::OnPosRectChange(LPCRECT place) noexcept {
    const RECT given = world_.Draw.OneIn(4) ? RandomRect(world_) : *place;
    const HRESULT result = Asked("OnPosRectChange");
    const auto object = world_.Places()[static_cast<std::size_t>(place_)].Control.As<IOleInPlaceObject>();
    if (SUCCEEDED(result) && object && world_.Draw.OneIn(2)) object->SetObjectRects(&given, &given);
    return result;
}

HRESULT RandomSite::GetExtendedControl(IDispatch** extender) noexcept {
    *extender = nullptr;
    const HRESULT result = Asked("GetExtendedControl");
    if (SUCCEEDED(result) && !world_.IsRough(8))
        *extender = MakeCom<RandomChild>(world_, place_).As<IDispatch>().Copy();
    return result;
}

HRESULT RandomSite::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                           UINT*) noexcept {
    const HRESULT result = Asked("ambient property");
    if (FAILED(result) || !value) return result;
    if (world_.IsRough(3)) {
        *value = OwnedValue(world_);
        return result;
    }
    if (id != DISPID_AMBIENT_USERMODE && id != DISPID_AMBIENT_UIDEAD && id != DISPID_AMBIENT_FONT)
        return DISP_E_MEMBERNOTFOUND;
    Variant answer = id == DISPID_AMBIENT_USERMODE;
    if (id == DISPID_AMBIENT_UIDEAD) answer = world_.Draw.OneIn(20);
    if (id == DISPID_AMBIENT_FONT) answer = RandomObject(world_).Get();
    answer.MoveTo(value);
    return result;
}

HRESULT RandomSite::PreMessageFilter(HWND, UINT, WPARAM, LPARAM, LRESULT* result, DWORD* cookie) noexcept {
    if (!filtersMessages_ || gone_) return S_OK;
    *cookie = 4711;
    if (world_.Draw.OneIn(20)) world_.Visit("PreMessageFilter");
    if (!world_.IsRough(30)) return S_OK;
    *result = world_.Draw.Number();
    return S_FALSE;
}

// The answer to WM_GETOBJECT stands for an object, which is lost to everybody when the answer is.
HRESULT RandomSite::PostMessageFilter(HWND, UINT message, WPARAM, LPARAM, LRESULT* result, DWORD) noexcept {
    if (!filtersMessages_ || gone_) return S_OK;
    if (world_.Draw.OneIn(20)) world_.Visit("PostMessageFilter");
    if (world_.IsRough(30) && message != WM_GETOBJECT) *result = world_.Draw.Number();
    return S_OK;
}

HRESULT RandomSite::EnumControls(DWORD, DWORD, IEnumUnknown** controls) noexcept {
    *controls = nullptr;
    const HRESULT result = Asked("EnumControls");
    if (SUCCEEDED(result) && !world_.IsRough(8)) *controls = RandomList(world_, place_).Copy();
    return result;
}

} // namespace vantik
