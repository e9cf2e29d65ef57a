#include "acctree/TreeCheck.h"

#include <algorithm>

#include "acctree/TreeText.h"

namespace vantik {

namespace {

constexpr std::size_t LongestName = 512;
constexpr int DeepestTree = 12;

// Two objects are one when they say the same of themselves: each question may be answered by a new one.
bool AreSame(const Node& a, const Node& b) { return LineOf(a, {}) == LineOf(b, {}); }
bool AreSame(const std::optional<Node>& a, const Node& b) { return a && AreSame(*a, b); }

class Inspection {
public:
    Inspection(std::vector<std::string>& faults, HWND window) : faults_(faults), window_(window) {}

    void Visit(const Node& node, int depth) {
        if (depth > DeepestTree) return Fault(node, "the tree has no end");
        if (IsForeign(node)) return;
        CheckName(node);
        CheckAnswersAgain(node);
        const auto children = node.Children();
        CheckCount(node, children);
        CheckNavigation(node, children);
        CheckSelection(node);
        for (const Node& child : children) {
            CheckPlace(node, child);
            CheckParent(node, child);
            Visit(child, depth + 1);
        }
    }

private:
    bool IsForeign(const Node& node) const { return node.Window() != window_; }

    void Fault(const Node& node, const std::string& what) {
        faults_.push_back(what + ": " + LineOf(node, {}));
    }

    void CheckName(const Node& node) {
        const std::wstring name = node.Name();
        const bool isBlank = name.find_first_not_of(L' ') == std::wstring::npos;
        const bool hasControls = std::any_of(name.begin(), name.end(), [](wchar_t c) { return c < L' '; });
        if (isBlank) Fault(node, "no name");
        if (name.size() > LongestName) Fault(node, "a name that nobody listens to the end");
        if (hasControls) Fault(node, "control characters in the name");
    }

    void CheckAnswersAgain(const Node& node) {
        const std::string first = LineOf(node, {});
        if (LineOf(node, {}) != first) Fault(node, "another answer at the second reading");
    }

    void CheckCount(const Node& node, const std::vector<Node>& children) {
        LONG count = 0;
        if (FAILED(node->get_accChildCount(&count)) || static_cast<std::size_t>(count) != children.size())
            Fault(node, "as many children as are counted are not there");
    }

    // Forwards and backwards along the children.
    void CheckNavigation(const Node& node, const std::vector<Node>& children) {
        if (children.empty()) return;
        if (!AreSame(node.Navigate(NAVDIR_FIRSTCHILD), children.front())) Fault(node, "no first child");
        if (!AreSame(node.Navigate(NAVDIR_LASTCHILD), children.back())) Fault(node, "no last child");
        for (std::size_t i = 0; i + 1 < children.size(); ++i) {
            if (IsForeign(children[i])) continue;
            if (!AreSame(children[i].Navigate(NAVDIR_NEXT), children[i + 1]))
                Fault(children[i], "the next one is another");
            if (!AreSame(children[i + 1].Navigate(NAVDIR_PREVIOUS), children[i]))
                Fault(children[i + 1], "the previous one is another");
        }
    }

    void CheckParent(const Node& node, const Node& child) {
        if (!IsForeign(child) && !AreSame(child.Parent(), node))
            Fault(child, "another parent than whose child it is");
    }

    void CheckSelection(const Node& node) {
        const auto selected = node.Role() == ROLE_SYSTEM_PAGETABLIST ? node.Selection() : std::nullopt;
        if (selected && !(selected->State() & STATE_SYSTEM_SELECTED))
            Fault(*selected, "named as the selection, but not selected");
    }

    // What shows can be pointed at: in its middle, or beside what lies on it there.
    void CheckPlace(const Node& parent, const Node& child) {
        if (IsForeign(child)) return;
        const RECT place = child.Place();
        const bool isAway = child.State() & (STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE);
        if (IsRectEmpty(&place)) {
            if (!isAway) Fault(child, "shown, but nowhere");
            return;
        }
        const POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        if (!isAway && !AreSame(parent.HitTest(middle), child)) Fault(child, "another one in its middle");
    }

    std::vector<std::string>& faults_;
    HWND window_;
};

} // namespace

std::vector<std::string> FaultsOf(const Node& root) {
    std::vector<std::string> faults;
    Inspection(faults, root.Window()).Visit(root, 0);
    return faults;
}

} // namespace vantik
