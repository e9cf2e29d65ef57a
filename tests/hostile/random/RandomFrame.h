// The frame, the document window and the container around the sites.
#pragma once

#include "hostile/random/RandomChild.h"

namespace vantik {

class RandomFrame final : public ComObject<IOleInPlaceFrame> {
public:
    explicit RandomFrame(World& world) : world_(world) {}
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        *window = nullptr;
        return world_.Called("frame: GetWindow");
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT border) noexcept override {
        *border = {};
        return world_.Called("GetBorder");
    }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) noexcept override {
        return world_.Called("RequestBorderSpace");
    }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) noexcept override { return world_.Called("SetBorderSpace"); }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) noexcept override {
        return world_.Called("SetActiveObject");
    }
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return world_.Called("SetMenu"); }
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return S_OK; }
    STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return world_.Called("SetStatusText"); }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return world_.Called("EnableModeless"); }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) noexcept override { return S_FALSE; }

private:
    World& world_;
};

class RandomContainer final : public ComObject<IOleContainer> {
public:
    RandomContainer(World& world, int place) : world_(world), place_(place) {}
    STDMETHODIMP ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP LockContainer(BOOL) noexcept override { return world_.Called("LockContainer"); }
    STDMETHODIMP EnumObjects(DWORD, IEnumUnknown** objects) noexcept override {
        *objects = nullptr;
        const ComPtr<RandomContainer> alive(this);
        const HRESULT result = world_.Called("EnumObjects");
        if (SUCCEEDED(result) && !world_.IsRough(8)) *objects = RandomList(world_, place_).Copy();
        return result;
    }

private:
    World& world_;
    int place_;
};

} // namespace vantik
