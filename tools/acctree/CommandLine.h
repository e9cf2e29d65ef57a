// The command line of acctree.
#pragma once

#include <optional>
#include <string>

#include "platform/mDeclares.h"

namespace vantik {

inline constexpr char Usage[] =
    "usage: acctree [--check | --until-gone] [--wait SECONDS] WINDOW\n"
    "Prints the tree of accessible objects of a window: role, name, states, place and default action of "
    "each.\n"
    "  WINDOW          its number as 0x1A2B, or its title; of a title the first control in it is taken that "
    "has tabs\n"
    "  --check         prints what is wrong with the tree instead; the exit code is 1 when something is\n"
    "  --until-gone    reads the tree again and again until the window has gone, and says how often that "
    "was\n"
    "  --wait SECONDS  waits so long for the window to come\n";

struct CommandLine {
    bool Help = false, Check = false, UntilGone = false;
    int WaitSeconds = 0;
    std::wstring Window;
};

// Nothing where it cannot be understood.
std::optional<CommandLine> Parse(int count, wchar_t** arguments);

} // namespace vantik
