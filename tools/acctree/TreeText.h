// A tree of accessible objects as text: a line for each, indented below its parent.
#pragma once

#include <string>

#include "acctree/Node.h"

namespace vantik {

struct TreeOptions {
    POINT Origin = {}; // places are given relative to it
    int Deepest = 12;  // where a tree without end is cut
};

// page tab "General" (1 of 3) [selected, focusable, selectable] 12,0 60x22 -> Switch
std::string LineOf(const Node& node, POINT origin);
std::string TreeText(const Node& root, const TreeOptions& options);

// Whether a line has the text. The first that has ends the reading.
bool HasLine(const Node& root, const TreeOptions& options, const std::string& text);

std::string RoleName(LONG role);
std::string StateNames(LONG state);

} // namespace vantik
