// png_bench [FOLDER]: our decoder beside the libraries people would pick, over the PNG files of a folder or over a set
// of its own. Prints a table in Markdown.
//
// Decoders and files take turns: timing one file in a loop trains the branch predictor and flatters everyone.
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/png/Decoders.h"
#include "bench/png/PictureSet.h"

namespace vantik::bench {

namespace {

// The processor's time: whatever else the machine does stays out of it.
double Now() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// What asking for the time costs by itself; for an icon that is no little.
double CostOfClock() {
    std::vector<double> costs;
    for (int i = 0; i < 2001; ++i) {
        const double start = Now();
        costs.push_back(Now() - start);
    }
    return Median(costs);
}

// times[decoder][file]: medians over the rounds.
using Times = std::vector<std::vector<double>>;

struct Sample {
    std::size_t Decoder;
    std::size_t File;
    double Seconds;
};

double TimeOf(const Decoder& decoder, const Bytes& file) {
    static const double costOfClock = CostOfClock();
    const double start = Now();
    const std::size_t decoded = decoder.Decode(file);
    const double seconds = Now() - start - costOfClock;
    if (decoded == 0) std::fprintf(stderr, "png_bench: %s cannot decode a file\n", decoder.Name);
    return seconds;
}

Times Measure(const PictureSet& set, int rounds) {
    const auto& decoders = AllDecoders();
    std::vector<std::vector<std::vector<double>>> samples(decoders.size(),
                                                          std::vector<std::vector<double>>(set.Files.size()));
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t file = 0; file < set.Files.size(); ++file) {
            for (std::size_t turn = 0; turn < decoders.size(); ++turn) {
                const std::size_t decoder = (turn + file + static_cast<std::size_t>(round)) % decoders.size();
                samples[decoder][file].push_back(TimeOf(decoders[decoder], set.Files[file]));
            }
        }
    }
    Times times;
    for (const auto& ofDecoder : samples) {
        times.emplace_back();
        for (const auto& ofFile : ofDecoder) times.back().push_back(Median(ofFile));
    }
    return times;
}

// About so many files per decoder are decoded in all.
int RoundsFor(const PictureSet& set) {
    std::size_t bytes = 0;
    for (const Bytes& file : set.Files) bytes += file.size();
    return static_cast<int>(std::clamp<std::size_t>(60'000'000 / (bytes + 1), 5, 60));
}

double Sum(const std::vector<double>& values) {
    double sum = 0;
    for (const double value : values) sum += value;
    return sum;
}

void Report(const PictureSet& set, const Times& times) {
    std::printf("%s: %zu files, %.1f µs each with ours\n\n", set.Name.c_str(), set.Files.size(),
                Sum(times[0]) / static_cast<double>(set.Files.size()) * 1e6);
    std::printf("| peer | time of ours / peer's, median | worst |\n|---|---|---|\n");
    for (std::size_t peer = 1; peer < times.size(); ++peer) {
        std::vector<double> ratios;
        for (std::size_t file = 0; file < set.Files.size(); ++file) {
            ratios.push_back(times[0][file] / times[peer][file]);
        }
        std::printf("| %s | %.2f | %.2f |\n", AllDecoders()[peer].Name, Median(ratios),
                    *std::max_element(ratios.begin(), ratios.end()));
    }
    std::printf("\n");
}

} // namespace

} // namespace vantik::bench

int main(int count, char** arguments) {
    using namespace vantik::bench;
    if (count > 2 || (count == 2 && !std::filesystem::is_directory(arguments[1]))) {
        std::fputs("usage: png_bench [FOLDER]\n", stderr);
        return 2;
    }
    const auto sets = count > 1 ? SetsFromFolder(arguments[1]) : GeneratedSets();
    for (const PictureSet& set : sets) Report(set, Measure(set, RoundsFor(set)));
}
