// A window around the property pages of a control, as designers have one: a button for each page, one that applies.
#pragma once

#include <functional>
#include <vector>

#include "host/ComObject.h"
#include "host/FormWindow.h"
#include "host/Widgets.h"

namespace vantik {

// Page and frame keep each other until it is told to end, at the latest when the control goes.
class PropertyFrame final : public ComObject<IPropertyPageSite> {
public:
    // Closed is called when the user closes the window; it may not end the frame at once.
    PropertyFrame(IUnknown* control, std::function<void()> closed);
    void End() noexcept;
    void ComeToFront();
    FormWindow& Window() noexcept { return window_; }

    // What a message loop does with a message before it is dispatched.
    bool TranslateMessage(MSG& message);

    STDMETHODIMP OnStatusChange(DWORD flags) noexcept override;
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override;
    STDMETHODIMP GetPageContainer(IUnknown**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }

private:
    HWND AddButton(const wchar_t* text, int id);
    void Add(IPropertyPage& page, IUnknown* control, int id);
    void FitInto(IPropertyPage& page);
    void Turn(std::size_t page);
    void FocusPage();
    void Apply();
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam);

    FormFont font_;
    FormWindow window_;
    std::function<void()> closed_;
    std::vector<ComPtr<IPropertyPage>> pages_;
    std::size_t shown_ = 0;
    HWND apply_ = nullptr;
    int left_;
    SIZE size_ = {};
};

} // namespace vantik
