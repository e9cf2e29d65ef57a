#include "Measure.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "Clock.h"

namespace vantik::bench {

namespace {

double Median(std::vector<double>& values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void Print(const Row& row, std::size_t columns) {
    std::printf("| %s | %d |", std::string(row.What).c_str(), row.Tabs);
    for (const double time : row.Microseconds) std::printf(" %.1f |", time);
    for (std::size_t i = row.Microseconds.size(); i < columns; ++i) std::printf(" |");
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace

Table::Table(std::vector<std::string_view> columns) : columns_(columns.size()) {
    std::printf("| microseconds | tabs |");
    for (const auto column : columns) std::printf(" %s |", std::string(column).c_str());
    std::printf("\n|---|---|");
    for (std::size_t i = 0; i < columns_; ++i) std::printf("---|");
    std::printf("\n");
}

void Table::Measure(std::string_view what, int tabs, const Subjects& subjects, int rounds, int callsPerRound,
                    const Call& call) {
    std::vector<std::vector<double>> times(subjects.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t s = 0; s < subjects.size(); ++s) {
            subjects[s]->GetReady();
            const double time = TimeOf([&] {
                for (int i = 0; i < callsPerRound; ++i) call(*subjects[s], i);
            });
            times[s].push_back(time / callsPerRound);
        }
    Add(what, tabs, std::move(times));
}

void Table::MeasureThereAndBack(std::string_view there, std::string_view back, int tabs,
                                const Subjects& subjects, int rounds, const Call& go, const Call& comeBack) {
    std::vector<std::vector<double>> going(subjects.size()), coming(subjects.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t s = 0; s < subjects.size(); ++s) {
            going[s].push_back(TimeOf([&] { go(*subjects[s], round); }));
            coming[s].push_back(TimeOf([&] { comeBack(*subjects[s], round); }));
        }
    Add(there, tabs, std::move(going));
    Add(back, tabs, std::move(coming));
}

void Table::Add(std::string_view what, int tabs, std::vector<std::vector<double>> times) {
    Row row{what, tabs, {}};
    for (auto& values : times) row.Microseconds.push_back(Median(values));
    Print(row, columns_);
    rows_.push_back(std::move(row));
}

const double* Table::Find(std::string_view what, int tabs, std::size_t subject) const {
    for (const Row& row : rows_)
        if (row.What == what && row.Tabs == tabs && subject < row.Microseconds.size())
            return &row.Microseconds[subject];
    return nullptr;
}

} // namespace vantik::bench
