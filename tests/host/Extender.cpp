#include "host/Extender.h"

#include <array>
#include <cmath>
#include <string_view>

#include "host/HostError.h"

namespace vantik {

namespace {

constexpr double TwipsPerInch = 1440;

enum Member : DISPID { Name = 1, Left, Top, Width, Height, Visible, Container, Object };
constexpr std::array<const wchar_t*, 8> MemberNames = {L"Name",   L"Left",    L"Top",       L"Width",
                                                       L"Height", L"Visible", L"Container", L"Object"};

bool SameName(const wchar_t* a, const wchar_t* b) noexcept { return lstrcmpiW(a, b) == 0; }

double* FieldOf(Placement& place, DISPID id) noexcept {
    switch (id) {
    case Left: return &place.Left;
    case Top: return &place.Top;
    case Width: return &place.Width;
    case Height: return &place.Height;
    default: return nullptr;
    }
}

} // namespace

double TwipsPerPixel() {
    static const double factor = [] { // the screen's resolution stays while a process runs
        const HDC screen = GetDC(nullptr);
        const int pixelsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
        ReleaseDC(nullptr, screen);
        return TwipsPerInch / pixelsPerInch;
    }();
    return factor;
}

double ToTwips(int pixels) { return pixels * TwipsPerPixel(); }
int ToPixels(double twips) { return static_cast<int>(std::lround(twips / TwipsPerPixel())); }

Placement ToPlacement(const RECT& pixels) {
    return {ToTwips(pixels.left), ToTwips(pixels.top), ToTwips(pixels.right - pixels.left),
            ToTwips(pixels.bottom - pixels.top)};
}

RECT ToPixels(const Placement& place) {
    const int left = ToPixels(place.Left);
    const int top = ToPixels(place.Top);
    return {left, top, left + ToPixels(place.Width), top + ToPixels(place.Height)};
}

HRESULT Extender::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Extender::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    for (std::size_t i = 0; i < MemberNames.size(); ++i) {
        if (SameName(names[0], MemberNames[i]) && !SameName(names[0], forgotten_.c_str())) {
            ids[0] = static_cast<DISPID>(i + 1);
            return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
        }
    }
    return DISP_E_UNKNOWNNAME;
}

HRESULT Extender::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                         EXCEPINFO*, UINT*) noexcept {
    if (!item_) return E_UNEXPECTED;
    if (id < Name || id > Object) return DISP_E_MEMBERNOTFOUND;
    return Guarded([&] {
        if ((flags & DISPATCH_PROPERTYPUT) != 0) {
            if (!parameters || parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
            if (id == Name || id >= Container) return DISP_E_MEMBERNOTFOUND; // read only
            Write(id, Variant(parameters->rgvarg[0]));
        } else if (result) {
            Read(id).MoveTo(result);
        }
        return S_OK;
    });
}

// Positions are single precision, as forms keep them.
Variant Extender::Read(DISPID id) const {
    Placement place = item_->Place();
    switch (id) {
    case Name: return Variant(item_->Name());
    case Visible: return Variant(item_->Visible());
    case Container: return Variant(item_->Container().Get());
    case Object: return Variant(item_->Object().Get());
    default: return Variant(*FieldOf(place, id)).As(VT_R4);
    }
}

void Extender::Write(DISPID id, const Variant& value) {
    if (id == Visible) {
        item_->Visible(value.Flag());
    } else {
        Placement place = item_->Place();
        *FieldOf(place, id) = value.Real();
        item_->Place(place);
    }
}

} // namespace vantik
