// An ordinary window that stands on a form as a control: an object with a site and an extender around it.
#pragma once

#include "host/Extender.h"

namespace vantik {

class HostedWindow final : public FormItem {
public:
    // The container is the extender of the control that the window stands on; null for the form itself. The window
    // stays its parent's and stands where it stands.
    HostedWindow(std::wstring name, HWND window, ComPtr<IDispatch> container, bool hasExtender);
    ~HostedWindow();
    HostedWindow(const HostedWindow&) = delete;
    HostedWindow& operator=(const HostedWindow&) = delete;

    HWND Window() const noexcept { return window_; }
    Extender& OwnExtender() noexcept { return *extender_.Get(); }

    const std::wstring& Name() const noexcept override { return name_; }
    const Placement& Place() const noexcept override { return place_; }
    void Place(const Placement& place) override;
    bool Visible() const noexcept override { return visible_; }
    void Visible(bool visible) override;
    ComPtr<IDispatch> Container() override { return container_; }
    ComPtr<IUnknown> Object() override { return object_; }

private:
    std::wstring name_;
    HWND window_;
    Placement place_;
    bool visible_;
    ComPtr<IDispatch> container_;
    ComPtr<Extender> extender_;
    ComPtr<IUnknown> object_;
};

} // namespace vantik
