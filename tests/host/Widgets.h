// The ordinary windows that a program of the container is made of.
#pragma once

#include <string>

#include "host/Box.h"
#include "platform/mDeclares.h"

namespace vantik {

int ScreenResolution(); // dots per inch

// The font of all windows of a program.
class FormFont {
public:
    FormFont(); // for the screen's resolution
    explicit FormFont(int dotsPerInch);
    ~FormFont() { DeleteObject(font_); }
    FormFont(const FormFont&) = delete;
    FormFont& operator=(const FormFont&) = delete;

    HFONT Get() const noexcept { return font_; }
    const std::wstring& Name() const noexcept { return name_; }
    static constexpr double Points = 9;

private:
    std::wstring name_;
    HFONT font_;
};

// A child window; the style is added to WS_CHILD | WS_VISIBLE.
HWND MakeWidget(HWND parent, const wchar_t* windowClass, const std::wstring& text, DWORD style, Box place,
                int id, const FormFont& font);

void MoveWidget(HWND widget, Box place);
std::wstring TextOf(HWND window);

} // namespace vantik
