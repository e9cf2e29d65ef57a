// Times calls on several subjects in rotation, and keeps the figures.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "Subject.h"

namespace vantik::bench {

using Subjects = std::vector<std::unique_ptr<Subject>>;
using Call = std::function<void(Subject&, int)>;

// Microseconds a call, the median of several rounds, one for each subject.
struct Row {
    std::string_view What;
    int Tabs;
    std::vector<double> Microseconds;
};

class Table {
public:
    // Prints the head. Rows with fewer subjects leave the last columns empty.
    explicit Table(std::vector<std::string_view> columns);

    // In every round each subject takes all of its calls in turn; before them, untimed, it gets ready.
    void Measure(std::string_view what, int tabs, const Subjects& subjects, int rounds, int callsPerRound,
                 const Call& call);

    // The first call is timed on its own and so is the second, which undoes it; both must leave nothing to paint.
    void MeasureThereAndBack(std::string_view there, std::string_view back, int tabs,
                             const Subjects& subjects, int rounds, const Call& go, const Call& comeBack);

    // Null for what was not measured.
    const double* Find(std::string_view what, int tabs, std::size_t subject) const;

private:
    void Add(std::string_view what, int tabs, std::vector<std::vector<double>> times);

    std::size_t columns_;
    std::vector<Row> rows_;
};

} // namespace vantik::bench
