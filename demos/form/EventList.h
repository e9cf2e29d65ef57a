// The list of what the control reported, newest line last.
#pragma once

#include <string>

#include "host/Widgets.h"

namespace vantik {

class EventList {
public:
    EventList(HWND form, const FormFont& font)
        : list_(MakeWidget(form, L"LISTBOX", L"", LBS_NOINTEGRALHEIGHT | LBS_NOSEL | WS_VSCROLL, {0, 0, 0, 0},
                           -1, font)) {}

    void MoveTo(Box place) { MoveWidget(list_, place); }
    void Clear() { SendMessageW(list_, LB_RESETCONTENT, 0, 0); }

    void Add(const std::wstring& line) {
        constexpr LRESULT Most = 500;
        if (SendMessageW(list_, LB_GETCOUNT, 0, 0) >= Most) SendMessageW(list_, LB_DELETESTRING, 0, 0);
        const LRESULT last = SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        SendMessageW(list_, LB_SETTOPINDEX, static_cast<WPARAM>(last), 0);
    }

private:
    HWND list_;
};

} // namespace vantik
