#include "PlatformTab.h"

#include "platform/mDeclares.h"

#include <commctrl.h>

namespace vantik::bench {

namespace {

class PlatformTab final : public Subject {
public:
    PlatformTab() {
        INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};
        InitCommonControlsEx(&classes);
        form_ = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, Width, Height, nullptr, nullptr,
                              nullptr, nullptr);
        tab_ = CreateWindowW(WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_FIXEDWIDTH, 0,
                             0, Width, Height, form_, nullptr, nullptr, nullptr);
        images_ = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 0);
        ImageList_AddIcon(images_, LoadIconW(nullptr, IDI_INFORMATION));
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

std::unique_ptr<Subject> MakePlatformTab() { return std::make_unique<PlatformTab>(); }

} // namespace vantik::bench
