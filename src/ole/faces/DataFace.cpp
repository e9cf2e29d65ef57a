#include "ole/faces/DataFace.h"

#include "ole/com/Enumerator.h"
#include "ole/control/Control.h"

namespace vantik {

namespace {

struct FormatTraits {
    using Interface = IEnumFORMATETC;
    using Item = FORMATETC;
    using Kept = FORMATETC;
    static void CopyOut(const Kept& kept, Item& item) noexcept { item = kept; }
};

constexpr FORMATETC MetafileFormat = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};

// As large as the control; the player scales it to any place.
HMETAFILE MakeMetafile(Surface& surface, SIZE size) {
    const HDC dc = CreateMetaFileW(nullptr);
    if (!dc) Raise(RunTimeErrorNumber::OutOfMemory);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetWindowExtEx(dc, size.cx, size.cy, nullptr);
    surface.CopyTo(dc, {0, 0, size.cx, size.cy});
    return CloseMetaFile(dc);
}

HGLOBAL MakeMetafilePicture(HMETAFILE metafile, SIZEL himetric) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
    if (!memory) DeleteMetaFile(metafile);
    if (!memory) Raise(RunTimeErrorNumber::OutOfMemory);
    auto* picture = static_cast<METAFILEPICT*>(GlobalLock(memory));
    *picture = {MM_ANISOTROPIC, himetric.cx, himetric.cy, metafile};
    GlobalUnlock(memory);
    return memory;
}

} // namespace

DataFace::DataFace(Control& control) noexcept : Face(control.Controlling), control_(control) {}

STDMETHODIMP DataFace::QueryGetData(FORMATETC* format) noexcept {
    if (!format) return E_POINTER;
    if (format->cfFormat != CF_METAFILEPICT) return DV_E_FORMATETC;
    if (!(format->tymed & TYMED_MFPICT)) return DV_E_TYMED;
    if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return format->lindex == -1 ? S_OK : DV_E_LINDEX;
}

STDMETHODIMP DataFace::GetData(FORMATETC* format, STGMEDIUM* medium) noexcept {
    if (!medium) return E_POINTER;
    *medium = {};
    const HRESULT known = QueryGetData(format);
    if (known != S_OK) return known;
    return Guard([&] {
        Surface& surface = control_.PaintedSurface();
        const HMETAFILE metafile = MakeMetafile(surface, control_.Size.Pixels());
        medium->hMetaFilePict = MakeMetafilePicture(metafile, control_.Size.HiMetric());
        medium->tymed = TYMED_MFPICT;
    });
}

// A metafile cannot be filled into one of the caller's.
STDMETHODIMP DataFace::GetDataHere(FORMATETC*, STGMEDIUM*) noexcept { return DV_E_FORMATETC; }

STDMETHODIMP DataFace::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) noexcept {
    if (!format || !canonical) return E_POINTER;
    *canonical = *format;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP DataFace::SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept { return DV_E_FORMATETC; }

STDMETHODIMP DataFace::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept {
    if (!formats) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return Guard([&] { return Enumerator<FormatTraits>::Create({MetafileFormat}, formats); });
}

STDMETHODIMP DataFace::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                               DWORD* connection) noexcept {
    return Guard([&] { return control_.Advise.Data().Advise(this, format, flags, sink, connection); });
}

STDMETHODIMP DataFace::DUnadvise(DWORD connection) noexcept {
    const auto holder = control_.Advise.DataIfAny();
    return holder ? holder->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP DataFace::EnumDAdvise(IEnumSTATDATA** advises) noexcept {
    if (!advises) return E_POINTER;
    return Guard([&] { return control_.Advise.Data().EnumAdvise(advises); });
}

} // namespace vantik
