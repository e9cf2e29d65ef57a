// A list of lines with columns, one of which can be chosen.
#pragma once

#include <string>
#include <vector>

#include "host/Widgets.h"

namespace vantik {

class TextList {
public:
    TextList(HWND parent, int id, const FormFont& font);

    HWND Window() const noexcept { return list_; }
    void SetColumns(const std::vector<int>& pixels); // where the second one and the others begin
    void SetFont(const FormFont& font);

    // Columns stand behind tabs. The chosen line stays chosen where it is.
    void Show(const std::vector<std::wstring>& lines);
    int Chosen() const; // -1 without one
    void Choose(int line);

private:
    void WidenFor(const std::vector<std::wstring>& lines);

    HWND list_;
    std::vector<std::wstring> lines_;
    int lastColumn_ = 0;
};

} // namespace vantik
