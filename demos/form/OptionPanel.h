// A column of options: each is a row, and tells what was chosen.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/Widgets.h"

namespace vantik {

class OptionPanel {
public:
    OptionPanel(HWND form, const FormFont& font, int width) : form_(form), font_(font), width_(width) {}

    // What choosing does, and what there is chosen now.
    template <class Value>
    struct Setting {
        std::function<void(Value)> Choose;
        std::function<Value()> Chosen;
    };
    using Push = std::function<void()>;

    void AddChoice(const std::wstring& label, const std::vector<std::wstring>& choices, Setting<int> setting);
    void AddNumber(const std::wstring& label, int least, int most, Setting<int> setting);
    void AddText(const std::wstring& label, Setting<std::wstring> setting);
    void AddSwitch(const std::wstring& label, Setting<bool> setting);
    void AddButtons(const std::vector<std::pair<std::wstring, Push>>& buttons); // side by side
    void AddHeading(const std::wstring& text);
    void AddGap(int pixels) { height_ += pixels; }

    // Shows what is chosen now.
    void Refresh();

    int Height() const noexcept { return height_; }
    void MoveTo(int left, int top);

    // The form's WM_COMMAND; false for a widget of somebody else.
    bool Command(WPARAM wParam);

private:
    struct Widget {
        HWND Window;
        Box Place; // relative to the panel
    };

    int NextId(std::function<void(HWND, WORD)> command);
    HWND Add(const wchar_t* windowClass, const std::wstring& text, DWORD style, Box place, int id);
    void AddLabel(const std::wstring& text);
    Box FieldBox(int width, int height) const noexcept;

    HWND form_;
    const FormFont& font_;
    int width_;
    int height_ = 0;
    std::vector<Widget> widgets_;
    std::map<int, std::function<void(HWND, WORD)>> commands_;
    std::vector<std::function<void()>> refreshers_;
    bool refreshing_ = false; // what a widget reports meanwhile is nobody's choice
};

} // namespace vantik
