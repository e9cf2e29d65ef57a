#include "FormOfFifty.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Clock.h"
#include "PlatformTab.h"
#include "VantikFrameTabProject.h"
#include "gfx/GdiObjects.h"
#include "host/BuiltControl.h"
#include "host/HostForm.h"
#include "host/OleApartment.h"

#include <psapi.h>

namespace vantik::bench {

namespace {

namespace fs = std::filesystem;

constexpr int Rounds = 9;
constexpr double SurfaceKiB = Width * Height * 4 / 1024.0;

fs::path Beside(const char* name) { return fs::path(ProgramFolder()) / name; }

// Of one control, in microseconds: from its making to its place in the window, and on to the end of its first painting.
struct Opening {
    double Load = 0, Painting = 0;
};

class OpenForm {
public:
    virtual ~OpenForm() = default;
    virtual Opening OpenOne() = 0;
};

// Copies of the built-in skin beside the program, which is where controls look for theirs; all written an hour ago.
class Skins {
public:
    Skins() {
        for (int i = 0; i < ControlsOfForm; ++i) Copy(NameOfOwn(i));
        Copy("FormSame");
    }
    ~Skins() {
        std::error_code ignored;
        for (const auto& folder : folders_) fs::remove_all(folder, ignored);
    }
    Skins(const Skins&) = delete;
    Skins& operator=(const Skins&) = delete;

    static std::vector<std::string> Own() {
        std::vector<std::string> names;
        for (int i = 0; i < ControlsOfForm; ++i) names.push_back(NameOfOwn(i));
        return names;
    }
    static std::vector<std::string> Same() { return std::vector<std::string>(ControlsOfForm, "FormSame"); }

private:
    static std::string NameOfOwn(int number) { return "FormOwn" + std::to_string(number); }

    void Copy(const std::string& name) {
        const fs::path& to = folders_.emplace_back(Beside(name.c_str()));
        fs::remove_all(to);
        fs::copy(Beside("Temp"), to);
        for (const auto& file : fs::directory_iterator(to))
            fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
    }

    std::vector<fs::path> folders_;
};

class Ours final : public OpenForm {
public:
    // With each control's skin.
    explicit Ours(const std::vector<std::string>& skins) : module_(FindBuiltControl()) {
        FormLayout layout;
        layout.ClientSize = {Width, Height};
        layout.ControlPlace = {0, 0, Width, Height};
        for (const std::string& skin : skins) {
            forms_.push_back(std::make_unique<HostForm>(module_, layout));
            forms_.back()->Window().Show();
            bags_.push_back(MakeCom<TextPropertyBag>());
            bags_.back()->Parse("TabCount = " + std::to_string(TabsOfEach) + "\nActiveTab = 0\nBarWidth = " +
                                std::to_string(BarWidth) + "\nSkinPath = \"" + skin + "\"\n");
        }
    }
    ~Ours() override { SysFreeString(icon_); }

    Opening OpenOne() override {
        HostForm& form = *forms_[next_];
        TextPropertyBag& bag = *bags_[next_++].Get();
        const double load = TimeOf([&] { form.OpenFrom(bag); });
        const auto tab = QueryFor<_VantikFrameTab>(form.ControlObject());
        return {load, TimeOf([&] {
                    for (short index = 0; index < TabsOfEach; ++index) tab->SetBarIco(&index, &icon_);
                    UpdateWindow(form.ControlWindow());
                })};
    }

private:
    OleApartment apartment_;
    ControlModule module_;
    std::vector<std::unique_ptr<HostForm>> forms_;
    std::vector<ComPtr<TextPropertyBag>> bags_;
    BSTR icon_ = SysAllocString(L"sun");
    std::size_t next_ = 0;
};

class Platforms final : public OpenForm {
public:
    Opening OpenOne() override {
        const double load = TimeOf([&] {
            tabs_.push_back(MakePlatformTab(icon_));
            tabs_.back()->Insert(TabsOfEach);
        });
        return {load, TimeOf([&] { tabs_.back()->Show(); })};
    }

private:
    OleApartment apartment_;
    std::wstring icon_ = (Beside("FormSame") / L"sun.png").wstring();
    std::vector<std::unique_ptr<Subject>> tabs_;
};

double CommittedKiB() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage) / 1024;
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

// Of the second to the last control of a form: the first one pays for all.
class Cost {
public:
    std::vector<double> Load, Painting, All;
    double GdiObjects = 0, Memory = 0; // a control, of the form that was opened first

    void Add(OpenForm& form) {
        form.OpenOne();
        const double memory = CommittedKiB();
        const int objects = test::GdiObjectCount();
        for (int i = 1; i < ControlsOfForm; ++i) {
            const Opening opening = form.OpenOne();
            Load.push_back(opening.Load);
            Painting.push_back(opening.Painting);
            All.push_back(opening.Load + opening.Painting);
        }
        if (Load.size() >= ControlsOfForm) return; // what earlier forms have given back is used again
        GdiObjects = static_cast<double>(test::GdiObjectCount() - objects) / (ControlsOfForm - 1);
        Memory = (CommittedKiB() - memory) / (ControlsOfForm - 1) - SurfaceKiB;
    }
};

enum Who : std::size_t { SameSkin, MissingSkin, OwnCopies, Platform };
using Costs = std::array<Cost, 4>;

void AddRound(Costs& costs) {
    const auto add = [&](Who who, auto&& form) { costs[who].Add(form); };
    add(SameSkin, Ours(Skins::Same()));
    add(MissingSkin, Ours(std::vector<std::string>(ControlsOfForm, "none")));
    add(OwnCopies, Ours(Skins::Own()));
    add(Platform, Platforms());
}

void PrintRow(const char* what, const Costs& costs, std::vector<double> Cost::*times) {
    std::printf("| %s |", what);
    for (const Cost& cost : costs) std::printf(" %.0f |", Median(cost.*times));
    std::printf("\n");
}

void PrintTarget(const char* what, double most, double value) {
    std::printf("| %s | %g | %.2f | %s |\n", what, most, value, value <= most ? "yes" : "**no**");
}

void Print(const Costs& costs) {
    std::printf(
        "| open a form of %d, microseconds a further control | same skin | skin missing | a copy of the "
        "skin each | SysTabControl32 |\n|---|---|---|---|---|\n",
        ControlsOfForm);
    PrintRow("load", costs, &Cost::Load);
    PrintRow("first painting", costs, &Cost::Painting);
    PrintRow("both", costs, &Cost::All);
    const auto all = [&](Who who) { return Median(costs[who].All); };
    std::printf("\n| target | at most | measured | reached |\n|---|---|---|---|\n");
    PrintTarget("a further control of the same skin / one with a copy of its own", 0.35,
                all(SameSkin) / all(OwnCopies));
    PrintTarget("the same / the platform's", 0.5, all(SameSkin) / all(Platform));
    PrintTarget("GDI objects a control, one of them the host's font", 12, costs[SameSkin].GdiObjects);
    PrintTarget("KiB a control beside its surface", 192, costs[SameSkin].Memory);
}

} // namespace

void MeasureFormOfFifty() {
    Ours({"none"}).OpenOne(); // writes the built-in skin
    const Skins skins;
    Costs costs;
    for (int round = 0; round < Rounds; ++round) AddRound(costs);
    Print(costs);
}

} // namespace vantik::bench
