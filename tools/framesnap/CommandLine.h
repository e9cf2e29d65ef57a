// What the command line asks for.
#pragma once

#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

struct SizeStep {
    SIZE Size;
};
struct LoadStep {
    std::wstring Path;
};
struct SaveStep {
    std::wstring Path;
};
struct SetStep {
    std::wstring Property;
    std::wstring Value;
};
struct DoStep {
    std::wstring Member;
    std::vector<std::wstring> Arguments;
};
struct PointerStep {
    POINT Point;
};
struct PressStep {
    POINT Point;
};
struct KeyStep {
    WORD Key;
};
struct WheelStep {
    int Notches;
};
struct OutStep {
    std::wstring Path;
};

using Step = std::variant<SizeStep, LoadStep, SaveStep, SetStep, DoStep, PointerStep, PressStep, KeyStep,
                          WheelStep, OutStep>;

struct CommandLine {
    std::wstring ControlPath; // empty: where the build puts it
    bool DesignTime = false;
    bool Help = false;
    std::vector<Step> Steps;
};

// A command line that cannot be carried out, whatever the control does.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

extern const char* const UsageText;

CommandLine ParseCommandLine(const std::vector<std::wstring>& arguments);

// Puts the lines of a UTF-8 file in place of each argument "@FILE", one argument a line: for what does not fit on a
// command line or into its code page.
std::vector<std::wstring> ExpandFiles(const std::vector<std::wstring>& arguments);

// Words of "--do": separated by spaces; quotation marks of either kind keep spaces, and empty words, together.
std::vector<std::wstring> SplitWords(const std::wstring& text);

} // namespace vantik
