#include "hostile/FailingImports.h"

#include <atomic>
#include <cstdlib>

namespace vantik {

namespace {

constexpr int None = -1, All = -2;
std::atomic<int> failing = None;
std::atomic<int> failed = 0;

bool Fails(int number) noexcept {
    const bool fails = failing == number || failing == All;
    if (fails) ++failed;
    return fails;
}

// Stands in a function's place; its failure is 0 for all of these.
template <int Number, auto Function>
struct Replacement;
template <int Number, class Result, class... Arguments, Result(WINAPI* Function)(Arguments...)>
struct Replacement<Number, Function> {
    static Result WINAPI Call(Arguments... arguments) {
        return Fails(Number) ? Result{} : Function(arguments...);
    }
};
template <int Number>
struct Allocation {
    static void* Call(std::size_t size) { return Fails(Number) ? nullptr : std::malloc(size); }
};

struct Import {
    const char* Name;
    const void* Place;
};

template <class Call>
const void* AddressOf(Call* call) {
    return reinterpret_cast<const void*>(call);
}

const Import Imports[] = {
    {"SaveDC", AddressOf(Replacement<0, &::SaveDC>::Call)},
    {"CreateCompatibleDC", AddressOf(Replacement<1, &::CreateCompatibleDC>::Call)},
    {"CreateCompatibleBitmap", AddressOf(Replacement<2, &::CreateCompatibleBitmap>::Call)},
    {"CreateDIBSection", AddressOf(Replacement<3, &::CreateDIBSection>::Call)},
    {"CreateFontIndirectW", AddressOf(Replacement<4, &::CreateFontIndirectW>::Call)},
    {"CreateBitmap", AddressOf(Replacement<5, &::CreateBitmap>::Call)},
    {"CreateDCW", AddressOf(Replacement<6, &::CreateDCW>::Call)},
    {"IntersectClipRect", AddressOf(Replacement<7, &::IntersectClipRect>::Call)},
    {"ExcludeClipRect", AddressOf(Replacement<8, &::ExcludeClipRect>::Call)},
    {"SetDIBits", AddressOf(Replacement<9, &::SetDIBits>::Call)},
    {"malloc", AddressOf(Allocation<10>::Call)},
    {"BitBlt", AddressOf(Replacement<11, &::BitBlt>::Call)},
    {"StretchBlt", AddressOf(Replacement<12, &::StretchBlt>::Call)},
};

} // namespace

FailingImports::FailingImports(HMODULE module) {
    for (const Import& import : Imports) imports_.emplace_back(module, import.Name, import.Place);
}

FailingImports::~FailingImports() { FailNone(); }

std::vector<std::string> FailingImports::Names() {
    std::vector<std::string> names;
    for (const Import& import : Imports) names.emplace_back(import.Name);
    return names;
}

void FailingImports::Fail(const std::string& name) noexcept {
    failed = 0;
    for (int i = 0; const Import& import : Imports) {
        if (import.Name == name) failing = i;
        ++i;
    }
}

void FailingImports::FailAll() noexcept {
    failed = 0;
    failing = All;
}

void FailingImports::FailNone() noexcept { failing = None; }
int FailingImports::Failed() const noexcept { return failed; }

} // namespace vantik
