// The built control in a plain dialog, between two fields, and steered by keys as the system's dialogs handle them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/HeldKey.h"
#include "ole/LooseControl.h"
#include "ole/OddSite.h"

namespace vantik {

inline HWND MakeField(HWND parent, int left, DWORD style = WS_TABSTOP) {
    return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | style, left, 60, 50, 20, parent, nullptr,
                           nullptr, nullptr);
}

// A dialog of no class but the system's.
class PlainDialog {
public:
    PlainDialog() {
        struct {
            DLGTEMPLATE Dialog = {WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, 200, 150};
            WORD Menu = 0, Class = 0, Title = 0;
        } layout;
        window_ = CreateDialogIndirectParamW(nullptr, &layout.Dialog, nullptr, Procedure, 0);
    }
    ~PlainDialog() {
        if (IsWindow(window_)) DestroyWindow(window_);
    }
    PlainDialog(const PlainDialog&) = delete;
    PlainDialog& operator=(const PlainDialog&) = delete;

    HWND Window() const noexcept { return window_; }

    // What a message loop does with a key that comes to the window with the focus.
    bool Key(UINT message, WPARAM key) const {
        MSG typed = {GetFocus(), message, key, 1, 0, {0, 0}};
        return IsDialogMessageW(window_, &typed);
    }

private:
    static INT_PTR CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM) noexcept { return FALSE; }

    HWND window_;
};

class ControlInDialog : public LooseControl {
public:
    explicit ControlInDialog(Oddities oddities = {}) : Site(MakeCom<OddSite>(oddities)) {
        DestroyWindow(std::exchange(Site->Window, Dialog.Window()));
        Site->Keys = [](MSG&) { return S_FALSE; };
        Before = MakeField(Dialog.Window(), 0);
        As<IOleObject>()->SetClientSite(Site.Get());
        As<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        As<IOleWindow>()->GetWindow(&Row);
        After = MakeField(Dialog.Window(), 100);
        Tab->put_BarWidth(60);
        Tab->put_TabCount(3);
        Tab->put_ActiveTab(0);
        Name(Before, "before");
        Name(Row, "row");
        Name(After, "after");
    }
    ~ControlInDialog() {
        if (Tab) As<IOleObject>()->SetClientSite(nullptr);
    }

    HWND AddField(const char* name, int left, DWORD style = WS_TABSTOP) {
        return Name(MakeField(Row, left, style), name);
    }
    HWND Name(HWND window, const char* name) {
        names_.emplace_back(window, name);
        return window;
    }

    std::string Focus() const { return NameOf(GetFocus()); }

    // What has the focus after each press of the key.
    std::string Walk(int steps) {
        std::string walk;
        for (int i = 0; i < steps; ++i) {
            Dialog.Key(WM_KEYDOWN, VK_TAB);
            walk += (walk.empty() ? "" : " ") + Focus();
        }
        return walk;
    }
    std::string WalkBack(int steps) {
        const HeldKey shift(VK_SHIFT);
        return Walk(steps);
    }

    PlainDialog Dialog;
    ComPtr<OddSite> Site;
    HWND Before, Row = nullptr, After;

private:
    std::string NameOf(HWND window) const {
        for (const auto& [one, name] : names_)
            if (one == window) return name;
        return window ? "?" : "none";
    }

    std::vector<std::pair<HWND, std::string>> names_;
};

} // namespace vantik
