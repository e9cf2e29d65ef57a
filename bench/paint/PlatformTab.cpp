#include "PlatformTab.h"

#include <stdexcept>

#include "gfx/Handles.h"
#include "platform/ComPtr.h"

#include <commctrl.h>
#include <wincodec.h>

namespace vantik::bench {

namespace {

constexpr int IconExtent = 16;

// By the system's own decoder, the faster one of the two that it has.
OwnedBitmap ReadIcon(const std::wstring& path) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, IconExtent, -IconExtent, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    OwnedBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const WICRect place = {0, 0, IconExtent, IconExtent};
    const bool isRead =
        SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_IWICImagingFactory, factory.PutVoid())) &&
        SUCCEEDED(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                     WICDecodeMetadataCacheOnDemand, decoder.Put())) &&
        SUCCEEDED(decoder->GetFrame(0, frame.Put())) &&
        SUCCEEDED(factory->CreateFormatConverter(converter.Put())) &&
        SUCCEEDED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                        nullptr, 0, WICBitmapPaletteTypeCustom)) &&
        SUCCEEDED(converter->CopyPixels(&place, 4 * IconExtent, 4 * IconExtent * IconExtent,
                                        static_cast<BYTE*>(bits)));
    if (!isRead) throw std::runtime_error("the system cannot read the icon");
    return bitmap;
}

class PlatformTab final : public Subject {
public:
    explicit PlatformTab(const std::wstring& icon) {
        INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};
        InitCommonControlsEx(&classes);
        form_ = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, Width, Height, nullptr, nullptr,
                              nullptr, nullptr);
        tab_ = CreateWindowW(WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_FIXEDWIDTH, 0,
                             0, Width, Height, form_, nullptr, nullptr, nullptr);
        images_ = ImageList_Create(IconExtent, IconExtent, ILC_COLOR32 | ILC_MASK, 1, 0);
        if (icon.empty())
            ImageList_AddIcon(images_, LoadIconW(nullptr, IDI_INFORMATION));
        else
            ImageList_Add(images_, ReadIcon(icon).Get(), nullptr);
        TabCtrl_SetImageList(tab_, images_);
        TabCtrl_SetItemSize(tab_, BarWidth, 22);
    }
    ~PlatformTab() override {
        DestroyWindow(form_);
        ImageList_Destroy(images_);
    }
    PlatformTab(const PlatformTab&) = delete;
    PlatformTab& operator=(const PlatformTab&) = delete;

    void Insert(int tabs) override {
        wchar_t caption[] = L"Caption";
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_IMAGE;
        item.pszText = caption;
        int count = TabCtrl_GetItemCount(tab_);
        for (int i = 0; i < tabs; ++i, ++count)
            SendMessageW(tab_, TCM_INSERTITEMW, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(&item));
    }

    void Remove(int tabs) override {
        for (int i = 0; i < tabs; ++i) TabCtrl_DeleteItem(tab_, 0);
    }

    void Show() override { UpdateWindow(tab_); }

    void GetReady() override { ReleaseCapture(); }

    void RepaintFully() override {
        InvalidateRect(tab_, nullptr, TRUE);
        Show();
    }

    void PaintWindow() override { RepaintBars(); } // it keeps no picture of itself

    void RepaintBars() override {
        RECT bars = {0, 0, Width, 26};
        InvalidateRect(tab_, &bars, TRUE);
        Show();
    }

    void MovePointer(int x, int y) override { SendMessageW(tab_, WM_MOUSEMOVE, 0, MAKELPARAM(x, y)); }

private:
    HWND form_ = nullptr;
    HWND tab_ = nullptr;
    HIMAGELIST images_ = nullptr;
};

} // namespace

std::unique_ptr<Subject> MakePlatformTab(const std::wstring& icon) {
    return std::make_unique<PlatformTab>(icon);
}

} // namespace vantik::bench
