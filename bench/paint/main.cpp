// paint_bench [TABS... | form]: the built control beside the platform's own tab control, in one program and in rotation.
// Prints tables in Markdown: microseconds a call, medians of several rounds, and what they are to reach.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>

#include "FormOfFifty.h"
#include "FrameTab.h"
#include "Measure.h"
#include "PlatformTab.h"
#include "Targets.h"
#include "WithTabs.h"

namespace vantik::bench {

namespace {

constexpr int PeerLimit = 1000; // it grows quadratically

// In the order of the columns.
Subjects MakeSubjects(int tabs) {
    Subjects subjects;
    subjects.push_back(MakeFrameTab(Side::Top, Host::ListsControls));
    subjects.push_back(MakeFrameTab(Side::Left, Host::ListsControls));
    subjects.push_back(MakeFrameTab(Side::Top, Host::Plain));
    if (tabs <= PeerLimit) subjects.push_back(MakePlatformTab());
    return subjects;
}

void MeasureAt(int tabs, Table& table) {
    const Subjects subjects = MakeSubjects(tabs);
    const auto insert = [&](Subject& s, int) {
        s.Insert(tabs - 1);
        s.Show();
    };
    const auto remove = [&](Subject& s, int) {
        s.Remove(tabs - 1);
        s.Show();
    };
    table.MeasureThereAndBack(rows::Insert, rows::Remove, tabs, subjects, 5, insert, remove);
    for (const auto& subject : subjects) insert(*subject, 0);
    table.Measure(rows::FullRepaint, tabs, subjects, 61, 5, [](Subject& s, int) { s.RepaintFully(); });
    table.Measure(rows::Bars, tabs, subjects, 61, 5, [](Subject& s, int) { s.RepaintBars(); });
    table.Measure(rows::WindowAlone, tabs, subjects, 61, 5, [](Subject& s, int) { s.PaintWindow(); });
    table.Measure(rows::PointerOntoBar, tabs, subjects, 15, 20,
                  [](Subject& s, int i) { s.MovePointer(30 + i % 4 * BarWidth, 11); });
    table.Measure(rows::PointerWithinBar, tabs, subjects, 15, 200,
                  [](Subject& s, int i) { s.MovePointer(30 + i % 5, 11); });
    table.Measure(rows::PointerOverPage, tabs, subjects, 15, 200,
                  [](Subject& s, int i) { s.MovePointer(200 + i % 5, 200); });
}

void MeasureHiddenTabs(Table& table) {
    const auto shared =
        std::make_shared<SharedSubject>(SharedSubject{MakeFrameTab(Side::Top, Host::ListsControls), 1});
    Subjects subjects;
    subjects.push_back(std::make_unique<WithTabs>(shared, FewTabsCount));
    subjects.push_back(std::make_unique<WithTabs>(shared, ManyTabsCount));
    table.Measure(rows::FullRepaintOfOne, FewTabsCount, subjects, 31, 10,
                  [](Subject& s, int) { s.RepaintFully(); });
    table.Measure(rows::BarsOfOne, FewTabsCount, subjects, 31, 10, [](Subject& s, int) { s.RepaintBars(); });
}

std::vector<int> Sizes(int count, char** arguments) {
    std::vector<int> sizes;
    for (int i = 1; i < count; ++i) sizes.push_back(std::atoi(arguments[i]));
    return sizes.empty() ? std::vector<int>{10, 100, 1000, 10000} : sizes;
}

} // namespace

} // namespace vantik::bench

int main(int count, char** arguments) {
    using namespace vantik::bench;
    try {
        if (count > 1 && std::string_view(arguments[1]) == "form") {
            MeasureFormOfFifty();
            return 0;
        }
        Table table({"top", "left", "top, plain host", "SysTabControl32"});
        for (const int tabs : Sizes(count, arguments)) MeasureAt(tabs, table);
        std::printf("\n");
        Table hidden({"top", "top, 10,000 tabs"});
        MeasureHiddenTabs(hidden);
        std::printf("\n");
        PrintTargets(table, hidden);
        std::printf("\n");
        MeasureFormOfFifty();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "paint_bench: %s\n", error.what());
        return 1;
    }
}
