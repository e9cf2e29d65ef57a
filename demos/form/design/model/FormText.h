// A designed form as a text of lines, which can be read, compared and edited:
//
//     VantikFrameTab form 1
//     Form
//         Width = 10800
//         Height = 7200
//     End
//     VantikFrameTab VantikFrameTab1
//         Left = 180
//         ...
//         Properties
//             TabCount = 3
//             ...
//         End
//     End
//     TextBox Text1
//         Container = "VantikFrameTab1"
//         Left = 840
//         Top = 960
//         Width = 1800
//         Height = 360
//         Text = "Ada"
//     End
//
// Places are twips. The properties are the control's own business: what it saves stands there line by line.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "demos/form/design/model/Child.h"

namespace vantik {

struct DesignedForm {
    int Width = 0, Height = 0;
    std::wstring ControlName;
    Box ControlPlace;
    std::wstring Properties; // lines, each with its end
    int PropertiesLine = 1;  // the number of the first one in the text that was read
    std::vector<Child> Children;
};

// What is wrong with a text, with the number of the line.
class FormTextError : public std::runtime_error {
public:
    FormTextError(int line, const std::string& why)
        : std::runtime_error("line " + std::to_string(line) + ": " + why) {}
};

std::wstring WriteForm(const DesignedForm& form);
DesignedForm ReadForm(std::wstring_view text); // throws FormTextError

} // namespace vantik
