// The control as data to be copied: its picture as a metafile.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class DataFace final : public Face<IDataObject> {
public:
    explicit DataFace(Control& control) noexcept;

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    STDMETHODIMP GetDataHere(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    STDMETHODIMP QueryGetData(FORMATETC* format) noexcept override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) noexcept override;
    STDMETHODIMP SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) noexcept override;
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept override;
    STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                         DWORD* connection) noexcept override;
    STDMETHODIMP DUnadvise(DWORD connection) noexcept override;
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** advises) noexcept override;

private:
    Control& control_;
};

} // namespace vantik
