// The window of a property page, made from a dialog of the module's resources.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

class PageDialog {
public:
    class Owner {
    public:
        virtual void Opened() = 0;                         // all that stands on it is there
        virtual void Command(WORD control, WORD what) = 0; // of what stands on it
        virtual void Refresh() = 0;                        // was asked for
        virtual void Draw(WORD control, const DRAWITEMSTRUCT& item) = 0;
        virtual IUnknown& Object() noexcept = 0; // stays alive while a message is handled

    protected:
        ~Owner() = default;
    };

    explicit PageDialog(Owner& owner) noexcept : owner_(owner) {}
    ~PageDialog() { Destroy(); }
    PageDialog(const PageDialog&) = delete;
    PageDialog& operator=(const PageDialog&) = delete;

    // Hidden; false where the system has no window for it.
    bool Create(WORD dialog, HWND parent) noexcept;
    void Destroy() noexcept;

    HWND Handle() const noexcept { return window_; }
    HWND Item(WORD control) const noexcept { return GetDlgItem(window_, control); }

    // By a message of its own, so that it comes outside of whatever asks, and once for many who ask.
    void RefreshSoon() noexcept;

    // In pixels of this screen; nothing where the system has no window for it.
    static SIZE SizeOf(WORD dialog) noexcept;

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    bool Handles(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    bool Answer(UINT message, WPARAM wParam, LPARAM lParam);

    Owner& owner_;
    HWND window_ = nullptr;
    bool refreshIsDue_ = false;
};

} // namespace vantik
