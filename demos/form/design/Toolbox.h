// The column beside the form: what can be placed, and the text of what was chosen.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "demos/form/design/model/Child.h"
#include "host/Widgets.h"

namespace vantik {

class Toolbox {
public:
    struct Handlers {
        std::function<void(std::optional<ChildKind>)> ToolTaken;
        std::function<void(const std::wstring&)> TextTyped;
    };

    Toolbox(HWND parent, const FormFont& font, Handlers handlers);

    static int Width();
    static int Height();

    void ShowTool(std::optional<ChildKind> tool);
    void ShowChosen(const std::wstring& name, const std::wstring& text); // without a name: nothing is chosen
    void EditText();
    bool IsEditing() const { return GetFocus() == text_; }

    bool Command(WPARAM wParam); // WM_COMMAND of the parent; true: it was the toolbox'

private:
    HWND parent_;
    Handlers handlers_;
    std::vector<HWND> tools_; // the pointer, then the kinds in their order
    HWND name_ = nullptr, text_ = nullptr;
    bool showing_ = false; // what is shown is not typed
};

} // namespace vantik
