// load_bench MODULE...: how long the system takes to load each module and to let it go, in one program and in rotation.
// Prints a table in Markdown: name and bytes of the file, microseconds as medians of many rounds.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include <windows.h>

namespace {

constexpr int Rounds = 300;

double Microseconds() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return 1e6 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

struct Module {
    std::filesystem::path File;
    std::vector<double> Load;
    std::vector<double> Free;

    bool Measure() {
        const double start = Microseconds();
        const HMODULE module = LoadLibraryW(File.c_str());
        const double loaded = Microseconds();
        if (module == nullptr) return false;
        FreeLibrary(module);
        const double freed = Microseconds();
        Load.push_back(loaded - start);
        Free.push_back(freed - loaded);
        return true;
    }
};

double Median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void Print(const std::vector<Module>& modules) {
    std::puts("| module | bytes | load, microseconds | free, microseconds |\n|---|---|---|---|");
    for (const Module& module : modules) {
        std::printf("| %s | %llu | %.0f | %.0f |\n", module.File.filename().string().c_str(),
                    static_cast<unsigned long long>(file_size(module.File)), Median(module.Load),
                    Median(module.Free));
    }
}

} // namespace

int main(int count, char** arguments) {
    std::vector<Module> modules;
    for (int i = 1; i < count; ++i) modules.push_back({std::filesystem::absolute(arguments[i]), {}, {}});
    if (modules.empty()) {
        std::fputs("usage: load_bench MODULE...\n", stderr);
        return 2;
    }
    for (int round = 0; round < Rounds; ++round) {
        for (Module& module : modules) {
            if (module.Measure()) continue;
            std::fprintf(stderr, "load_bench: %s cannot be loaded, system error %lu\n",
                         module.File.string().c_str(), GetLastError());
            return 1;
        }
    }
    Print(modules);
}
