#include "TextList.h"

#include <algorithm>

namespace vantik {

namespace {

// Tab stops are told in quarters of an average character of the dialog font.
int UnitWidth(HWND list) {
    const HDC dc = GetDC(list);
    const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    SIZE size = {};
    constexpr wchar_t Letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    GetTextExtentPoint32W(dc, Letters, 52, &size);
    SelectObject(dc, old);
    ReleaseDC(list, dc);
    return std::max((static_cast<int>(size.cx) / 26 + 1) / 2, 1);
}

int WidthOf(HWND list, const std::wstring& text) {
    const HDC dc = GetDC(list);
    const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    SIZE size = {};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
    SelectObject(dc, old);
    ReleaseDC(list, dc);
    return static_cast<int>(size.cx);
}

constexpr DWORD Style =
    LBS_NOTIFY | LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;

} // namespace

TextList::TextList(HWND parent, int id, const FormFont& font)
    : list_(MakeWidget(parent, L"LISTBOX", L"", Style, {0, 0, 0, 0}, id, font)) {}

void TextList::SetFont(const FormFont& font) {
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
}

void TextList::SetColumns(const std::vector<int>& pixels) {
    const int unit = UnitWidth(list_);
    std::vector<int> stops;
    for (const int pixel : pixels) stops.push_back(MulDiv(pixel, 4, unit));
    SendMessageW(list_, LB_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data()));
    lastColumn_ = pixels.empty() ? 0 : pixels.back();
}

void TextList::WidenFor(const std::vector<std::wstring>& lines) {
    constexpr int Gap = 12;
    int width = 0;
    for (const std::wstring& line : lines)
        width = std::max(width, WidthOf(list_, line.substr(line.rfind(L'\t') + 1)));
    SendMessageW(list_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(lastColumn_ + width + Gap), 0);
}

void TextList::Show(const std::vector<std::wstring>& lines) {
    if (lines == lines_) return; // no flicker
    const int chosen = Chosen();
    const LRESULT top = SendMessageW(list_, LB_GETTOPINDEX, 0, 0);
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    for (const std::wstring& line : lines)
        SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    WidenFor(lines);
    Choose(chosen);
    SendMessageW(list_, LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
    lines_ = lines;
}

int TextList::Chosen() const { return static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0)); }

void TextList::Choose(int line) {
    if (line != Chosen()) SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(line), 0);
}

} // namespace vantik
