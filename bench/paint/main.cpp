// paint_bench: the built control beside the platform's own tab control, in one program and in rotation. Prints a table
// in Markdown: microseconds a call, medians of several rounds.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <vector>

#include "FrameTab.h"
#include "PlatformTab.h"
#include "platform/mDeclares.h"

namespace vantik::bench {

namespace {

constexpr int PeerLimit = 1000; // it grows quadratically

double Now() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return 1e6 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

using Subjects = std::vector<std::unique_ptr<Subject>>;

// One line of the table: microseconds for each subject, all of them in turn in every round.
void Measure(const char* what, int tabs, const Subjects& subjects, int rounds, int callsPerRound,
             const std::function<void(Subject&, int)>& call) {
    std::vector<std::vector<double>> times(subjects.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t s = 0; s < subjects.size(); ++s) {
            const double start = Now();
            for (int i = 0; i < callsPerRound; ++i) call(*subjects[s], i);
            times[s].push_back((Now() - start) / callsPerRound);
        }
    std::printf("| %s | %d |", what, tabs);
    for (const auto& values : times) std::printf(" %.1f |", Median(values));
    const bool hasPeer = subjects.size() == 3;
    if (hasPeer)
        std::printf(" %.2f |\n", Median(times[0]) / Median(times[2]));
    else
        std::printf(" | |\n");
    std::fflush(stdout);
}

Subjects MakeSubjects(int tabs) {
    Subjects subjects;
    subjects.push_back(MakeFrameTab(Side::Top));
    subjects.push_back(MakeFrameTab(Side::Left));
    if (tabs <= PeerLimit) subjects.push_back(MakePlatformTab());
    return subjects;
}

void MeasureAt(int tabs) {
    const Subjects subjects = MakeSubjects(tabs);
    Measure("insert all", tabs, subjects, 1, 1, [&](Subject& s, int) {
        s.Insert(tabs - 1);
        s.Show();
    });
    Measure("full repaint", tabs, subjects, 9, 10, [](Subject& s, int) { s.RepaintFully(); });
    Measure("bars only", tabs, subjects, 9, 10, [](Subject& s, int) { s.RepaintBars(); });
    Measure("pointer onto another bar", tabs, subjects, 9, 20,
            [](Subject& s, int i) { s.MovePointer(30 + i % 4 * BarWidth, 11); });
    Measure("pointer within a bar", tabs, subjects, 9, 200,
            [](Subject& s, int i) { s.MovePointer(30 + i % 5, 11); });
    Measure("remove all", tabs, subjects, 1, 1, [&](Subject& s, int) {
        s.Remove(tabs - 1);
        s.Show();
    });
}

} // namespace

} // namespace vantik::bench

int main() {
    try {
        std::printf("| microseconds | tabs | top | left | SysTabControl32 | top / platform |\n");
        std::printf("|---|---|---|---|---|---|\n");
        for (const int tabs : {10, 100, 1000, 10000}) vantik::bench::MeasureAt(tabs);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "paint_bench: %s\n", error.what());
        return 1;
    }
}
