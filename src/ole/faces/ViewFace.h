// The control as a picture.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class ViewFace final : public Face<IViewObjectEx> {
public:
    explicit ViewFace(Control& control) noexcept;

    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target,
                      HDC draw, LPCRECTL bounds, LPCRECTL window, BOOL(CALLBACK* goOn)(ULONG_PTR),
                      ULONG_PTR context) noexcept override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target,
                             LOGPALETTE** colors) noexcept override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* key) noexcept override;
    STDMETHODIMP Unfreeze(DWORD key) noexcept override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL size) noexcept override;
    STDMETHODIMP GetRect(DWORD aspect, LPRECTL rect) noexcept override;
    STDMETHODIMP GetViewStatus(DWORD* status) noexcept override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeHint,
                               DWORD* result) noexcept override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rect, LONG closeHint,
                              DWORD* result) noexcept override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC target,
                                  DVEXTENTINFO* info, LPSIZEL size) noexcept override;

private:
    Control& control_;
};

} // namespace vantik
