// Finds the unwind tables of this module in 32 bit, where the system knows nothing of them.
//
// The compiler's start-up code would register them: with whatever library in the process has the name of its unwinder,
// and then the unwinder inside this module does not find them. This one finds them by itself, and registers nothing.
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

#include "platform/Module.h"

// At the beginning of this file's own part of the tables.
extern "C" const std::byte UnwindTablesOfThisFile[];
asm(".section .eh_frame, \"dr\"\n"
    "_UnwindTablesOfThisFile:\n"
    ".text\n");

// What the unwinder wants to know besides; its own name and order.
struct dwarf_eh_bases {
    const void* tbase;
    const void* dbase;
    const void* func;
};

namespace vantik {

namespace {

// One entry: the description of a function's frame, or what several descriptions have in common.
struct Record {
    std::uint32_t Length; // of what comes behind it
    std::uint32_t Common; // the distance back to the common part; 0 in a common part itself
    std::int32_t Begin;   // of the function's code, from here
    std::uint32_t Size;   // of that code

    bool DescribesFunction() const noexcept { return Length != 0 && Common != 0; }
    const std::byte* Code() const noexcept { return reinterpret_cast<const std::byte*>(&Begin) + Begin; }
    bool Contains(const std::byte* place) const noexcept {
        return Code() <= place && static_cast<std::size_t>(place - Code()) < Size;
    }
    const Record* Next() const noexcept {
        return reinterpret_cast<const Record*>(reinterpret_cast<const std::byte*>(&Common) + Length);
    }
};

// All records of this module.
class Tables {
public:
    // The section that they stand in, whatever it is called.
    Tables() noexcept {
        const auto* image = reinterpret_cast<const std::byte*>(ThisModule());
        const auto* start = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
        const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + start->e_lfanew);
        const auto* section = reinterpret_cast<const IMAGE_SECTION_HEADER*>(headers + 1);
        const auto offset = static_cast<std::size_t>(UnwindTablesOfThisFile - image);
        while (offset - section->VirtualAddress >= section->Misc.VirtualSize) ++section;
        begin_ = reinterpret_cast<const Record*>(image + section->VirtualAddress);
        end_ = reinterpret_cast<const Record*>(image + section->VirtualAddress + section->Misc.VirtualSize);
    }

    // The first function that meets the condition; null when none does.
    template <class Condition>
    const Record* Find(Condition condition) const noexcept {
        for (const Record* record = begin_; record < end_; record = record->Next())
            if (record->DescribesFunction() && condition(*record)) return record;
        return nullptr;
    }

private:
    const Record* begin_;
    const Record* end_;
};

// All functions in the order of their code. The list stands behind the object, in the same piece of memory: this must not
// raise anything, and the operators of the language would.
class Index {
public:
    struct Release {
        void operator()(Index* index) const noexcept { std::free(index); }
    };
    using Owner = std::unique_ptr<Index, Release>;

    // Null when there is no memory for it.
    static Owner Make() noexcept {
        const Tables tables;
        std::size_t count = 0;
        tables.Find([&](const Record&) { return ++count == 0; });
        void* const memory = std::malloc(sizeof(Index) + count * sizeof(const Record*));
        return Owner(memory ? new (memory) Index(tables, count) : nullptr);
    }

    const Record* Find(const std::byte* place) noexcept {
        const auto isBefore = [](const std::byte* where, const Record* each) { return where < each->Code(); };
        const auto behind = std::upper_bound(begin(), end(), place, isBefore);
        return behind != begin() && behind[-1]->Contains(place) ? behind[-1] : nullptr;
    }

private:
    Index(const Tables& tables, std::size_t count) noexcept : count_(count) {
        const Record** next = begin();
        tables.Find([&](const Record& each) { return !(*next++ = &each); });
        std::sort(begin(), end(), [](const Record* a, const Record* b) { return a->Code() < b->Code(); });
    }
    const Record** begin() noexcept { return reinterpret_cast<const Record**>(this + 1); }
    const Record** end() noexcept { return begin() + count_; }

    std::size_t count_;
};

// Made when it is wanted first, given back when the module goes.
class KeptIndex {
public:
    constexpr KeptIndex() noexcept = default;
    ~KeptIndex() { std::free(index_.exchange(nullptr)); }

    // Threads that come at once each make one, all alike; the first one stays.
    Index* Get() noexcept {
        if (Index* made = index_) return made;
        Index::Owner index = Index::Make();
        Index* before = nullptr;
        return index_.compare_exchange_strong(before, index.get()) ? index.release() : before;
    }

private:
    std::atomic<Index*> index_ = nullptr;
};

constinit KeptIndex keptIndex;

const Record* Find(const std::byte* place) noexcept {
    if (Index* index = keptIndex.Get()) return index->Find(place);
    return Tables().Find([&](const Record& each) { return each.Contains(place); });
}

} // namespace

} // namespace vantik

extern "C" const void* _Unwind_Find_FDE(const void* place, dwarf_eh_bases* bases) {
    const vantik::Record* found = vantik::Find(static_cast<const std::byte*>(place));
    if (found) *bases = {nullptr, nullptr, found->Code()};
    return found;
}
