#include "FrameTab.h"

#include <stdexcept>
#include <string>

#include "VantikFrameTabProject.h"
#include "host/BuiltControl.h"
#include "host/HostForm.h"
#include "host/OleApartment.h"

namespace vantik::bench {

namespace {

void Must(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error("the control refused a call");
}

class Text {
public:
    explicit Text(const std::wstring& text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    ~Text() { SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    BSTR* Put() noexcept { return &text_; }

private:
    BSTR text_;
};

class FrameTab final : public Subject {
public:
    FrameTab(Side side, Host host)
        : side_(side), module_(FindBuiltControl()), form_(module_, Layout(), SwitchesOf(host)) {
        form_.OpenNew();
        form_.Window().Show();
        tabs_ = QueryFor<_VantikFrameTab>(form_.ControlObject());
        if (!tabs_) throw std::runtime_error("the control has no dual interface");
        Must(tabs_->put_BarWidth(BarWidth));
        Must(tabs_->put_TabPos(side == Side::Left ? WindowLeft : Windowtop));
        Must(tabs_->put_TabCount(1));
        Show();
    }

    void Insert(int tabs) override {
        Text caption(L"Caption"), icon(L"sun");
        short count = 0;
        Must(tabs_->get_TabCount(&count));
        for (int i = 0; i < tabs; ++i, ++count) {
            Must(tabs_->InsertTab(static_cast<short>(count - 1), caption.Put()));
            Must(tabs_->SetBarIco(&count, icon.Put()));
        }
    }

    void Remove(int tabs) override {
        for (int i = 0; i < tabs; ++i) Must(tabs_->RemoveTab(1));
    }

    void Show() override { UpdateWindow(form_.ControlWindow()); }

    void GetReady() override { ReleaseCapture(); }

    void PaintWindow() override {
        const RECT strip =
            side_ == Side::Left ? RECT{0, 0, StripThickness, Height} : RECT{0, 0, Width, StripThickness};
        InvalidateRect(form_.ControlWindow(), &strip, TRUE);
        Show();
    }

    void RepaintFully() override {
        Must(tabs_->put_TabBarPosXJust(0)); // every assignment repaints, also of the same value
        Show();
    }

    void RepaintBars() override {
        Must(tabs_->put_CaptionXjust(0));
        Show();
    }

    void MovePointer(int x, int y) override {
        if (side_ == Side::Left) std::swap(x, y);
        SendMessageW(form_.ControlWindow(), WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
    }

private:
    static FormLayout Layout() {
        FormLayout layout;
        layout.ClientSize = {Width, Height};
        layout.ControlPlace = {0, 0, Width, Height};
        return layout;
    }

    static HostSwitches SwitchesOf(Host host) {
        HostSwitches switches;
        switches.VbGetControl = host == Host::ListsControls;
        return switches;
    }

    Side side_;
    OleApartment apartment_;
    ControlModule module_;
    HostForm form_;
    ComPtr<_VantikFrameTab> tabs_;
};

} // namespace

std::unique_ptr<Subject> MakeFrameTab(Side side, Host host) { return std::make_unique<FrameTab>(side, host); }

} // namespace vantik::bench
