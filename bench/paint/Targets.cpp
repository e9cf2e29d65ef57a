#include "Targets.h"

#include <cstdio>

namespace vantik::bench {

namespace {

struct Cell {
    std::string_view What;
    int Tabs;
    std::size_t Who;
};

// The quotient of two figures, perhaps each less a third one, or one figure by itself, and the most that it may be.
struct Target {
    const char* Text;
    Cell Figure;
    Cell Base; // without a name: none
    double Most;
    Cell Less = {"", 0, Top};
};

constexpr Cell Alone = {"", 0, Top};
constexpr double Noise = 1.25; // what counts as the same, from one moment of a busy machine to the next

constexpr Target Targets[] = {
    {"insert 1,000 tabs / the platform's", {rows::Insert, 1000, Top}, {rows::Insert, 1000, Platform}, 0.1},
    {"the same in a host that lists no controls",
     {rows::Insert, 1000, PlainHost},
     {rows::Insert, 1000, Platform},
     0.1},
    {"insert 10,000 / insert 1,000", {rows::Insert, 10000, Top}, {rows::Insert, 1000, Top}, 10 * Noise},
    {"remove 10,000 / remove 1,000", {rows::Remove, 10000, Top}, {rows::Remove, 1000, Top}, 10 * Noise},
    {"full repaint / the platform's, 10 tabs",
     {rows::FullRepaint, 10, Top},
     {rows::FullRepaint, 10, Platform},
     1},
    {"full repaint / the platform's, 1,000 tabs",
     {rows::FullRepaint, 1000, Top},
     {rows::FullRepaint, 1000, Platform},
     1},
    {"bars only / full repaint, top", {rows::Bars, 1000, Top}, {rows::FullRepaint, 1000, Top}, 0.5},
    {"bars only / full repaint, left", {rows::Bars, 1000, Left}, {rows::FullRepaint, 1000, Left}, 0.5},
    {"the same on top, each less the window alone",
     {rows::Bars, 1000, Top},
     {rows::FullRepaint, 1000, Top},
     0.5,
     {rows::WindowAlone, 1000, Top}},
    {"the same on the left, each less the window alone",
     {rows::Bars, 1000, Left},
     {rows::FullRepaint, 1000, Left},
     0.5,
     {rows::WindowAlone, 1000, Left}},
    {"pointer within a bar, microseconds", {rows::PointerWithinBar, 1000, Top}, Alone, 5},
    {"pointer within a bar on the left, microseconds", {rows::PointerWithinBar, 1000, Left}, Alone, 5},
    {"pointer over the page, microseconds", {rows::PointerOverPage, 1000, Top}, Alone, 5},
    {"full repaint, left / top", {rows::FullRepaint, 1000, Left}, {rows::FullRepaint, 1000, Top}, 2},
    {"bars only, left / top", {rows::Bars, 1000, Left}, {rows::Bars, 1000, Top}, 2},
    {"full repaint, 10,000 tabs / 100",
     {rows::FullRepaintOfOne, FewTabsCount, ManyTabs},
     {rows::FullRepaintOfOne, FewTabsCount, FewTabs},
     Noise},
    {"bars only, 10,000 tabs / 100",
     {rows::BarsOfOne, FewTabsCount, ManyTabs},
     {rows::BarsOfOne, FewTabsCount, FewTabs},
     Noise},
};

// Each row is in one of the tables only.
struct Tables {
    const Table &First, &Second;

    const double* Find(const Cell& cell) const {
        const double* found = First.Find(cell.What, cell.Tabs, cell.Who);
        return found ? found : Second.Find(cell.What, cell.Tabs, cell.Who);
    }
};

void Print(const Tables& tables, const Target& target) {
    const double* figure = tables.Find(target.Figure);
    const double* base = tables.Find(target.Base);
    if (!figure || (!target.Base.What.empty() && !base)) return;
    const double* found = tables.Find(target.Less);
    const double less = found ? *found : 0;
    const double value = base ? (*figure - less) / (*base - less) : *figure;
    std::printf("| %s | %g | %.2f | %s |\n", target.Text, target.Most, value,
                value <= target.Most ? "yes" : "**no**");
}

} // namespace

void PrintTargets(const Table& table, const Table& hidden) {
    std::printf("| target | at most | measured | reached |\n|---|---|---|---|\n");
    for (const Target& target : Targets) Print({table, hidden}, target);
}

} // namespace vantik::bench
