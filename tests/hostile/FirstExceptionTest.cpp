// Errors raised where there is no memory at all, on threads that raised none before.
#include <doctest/doctest.h>

#include <vector>

#include "hostile/ModuleMemory.h"
#include "hostile/Worker.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

constexpr HRESULT OutOfMemory = static_cast<HRESULT>(0x800A0007),
                  DivisionByZero = static_cast<HRESULT>(0x800A000B);

HMODULE Loaded() { return GetModuleHandleW(L"VantikFrameTab.ocx"); }

} // namespace

TEST_CASE("the first error of a thread needs no memory") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    ModuleMemory memory(Loaded());
    for (int thread = 0; thread < 10; ++thread) {
        HRESULT result = S_OK;
        Worker fresh;
        memory.FailAll();
        fresh.Do([&] { result = control.Tab->put_BarWidth(0); });
        memory.FailNone();
        CHECK(result == DivisionByZero);
    }
    CHECK(control.Tab->put_BarWidth(60) == S_OK);
}

TEST_CASE("nor does the first error of a process, whichever function raises it") {
    LooseControl control;
    BSTR caption = nullptr;
    short first = 0;
    ModuleMemory memory(Loaded());
    memory.FailAll();
    CHECK(control.Tab->put_TabCount(1000) == OutOfMemory);
    CHECK(control.Tab->GetTabCaption(&first, &caption) == OutOfMemory);
    memory.FailNone();
    CHECK(caption == nullptr);
}

TEST_CASE("many threads raise their first errors at once while there is no memory") {
    std::vector<LooseControl> controls(20);
    std::vector<Worker> workers(controls.size());
    std::vector<int> wrong(controls.size());
    for (const LooseControl& control : controls) control.Tab->put_TabCount(2);
    ModuleMemory memory(Loaded());
    memory.FailAll();
    for (std::size_t i = 0; i < workers.size(); ++i)
        workers[i].Begin([&, i] {
            for (int round = 0; round < 200; ++round)
                wrong[i] += controls[i].Tab->put_BarWidth(0) != DivisionByZero;
        });
    for (Worker& worker : workers) worker.Finish();
    memory.FailNone();
    CHECK(wrong == std::vector<int>(controls.size(), 0));
}

} // namespace vantik
