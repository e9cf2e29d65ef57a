// The form: what stands on its pages, and what it makes of the control's events.
#pragma once

#include "AtlHost.h"
#include "Events.h"
#include "Tabs.h"

#include <optional>

class Form {
public:
    Form();

    int Run();

private:
    HWND Add(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place) const;
    void BeginPage(long tab, const std::wstring& caption, const wchar_t* icon) const;
    void AddPages() const;
    void AddStatus();
    void Open();
    void Arrange();
    void Select(long tab) const;
    void ShowActive() const;

    void OnTabDown(short& tab) const;
    void OnTabClose(short& tab);
    void OnMenu() const;
    void OnClose();
    LRESULT BackOfLabel(HDC dc);
    void Tell(const std::wstring& text) const { SetWindowTextW(status_, text.c_str()); }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr, status_ = nullptr;
    std::optional<AtlHost> host_;
    std::optional<Events> events_;
    std::optional<Tabs> tabs_;
    COLORREF page_ = CLR_INVALID; // what the control paints behind the windows on it
};
