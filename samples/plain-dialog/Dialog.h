// The dialog: its pages are dialogs of templates of their own, on the control that its template names.
#pragma once

#include "Events.h"
#include "Tabs.h"

#include <oleidl.h>

#include <optional>

class Dialog {
public:
    Dialog();

    int Run();

private:
    HWND AddPage(short tab, const std::wstring& caption, const wchar_t* icon, int resource);
    void AddPages();
    void Open();
    void Select(short tab) const;
    void ShowActive() const;

    void OnTabDown(short& tab) const;
    void OnTabClose(short& tab) const;
    void OnMenu() const;
    void OnClose();
    void Tell(const std::wstring& text) const;
    bool UsesKey(MSG& message) const;

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static INT_PTR CALLBACK PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr, page_ = nullptr; // the dialog, and the control's window, which its pages stand on
    Com<IOleInPlaceActiveObject> keys_;
    Com<_VantikFrameTab> control_;
    std::optional<Tabs> tabs_;
    std::optional<Events> events_;
};
