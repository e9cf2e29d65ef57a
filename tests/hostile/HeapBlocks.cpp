#include "hostile/HeapBlocks.h"

#include <algorithm>
#include <new>
#include <ostream>
#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

namespace {

constexpr std::size_t MostSizes = 32768; // other blocks are not counted

} // namespace

void HeapBlocks::Pages::operator()(OfSize* sizes) const noexcept { VirtualFree(sizes, 0, MEM_RELEASE); }

HeapBlocks::HeapBlocks()
    : sizes_(static_cast<OfSize*>(
          VirtualAlloc(nullptr, MostSizes * sizeof(OfSize), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))) {
    if (!sizes_) throw std::bad_alloc();
}

// The list of heaps is as long as it has to be before the first of them is looked at.
HeapBlocks HeapBlocks::Count() {
    HeapBlocks counted;
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    for (const HANDLE heap : heaps) counted.AddHeap(heap);
    return counted;
}

bool HeapBlocks::AreShownEach() {
    constexpr long Made = 200;
    constexpr std::size_t Size = 72;
    const HeapBlocks before = Count();
    std::vector<std::unique_ptr<char[]>> blocks(Made);
    for (auto& block : blocks) block = std::make_unique<char[]>(Size);
    return Count().LargestSince(before).Blocks >= Made;
}

void HeapBlocks::AddHeap(HANDLE heap) noexcept {
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heap, &entry))
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) Add(entry.cbData);
    HeapUnlock(heap);
}

const HeapBlocks::OfSize* HeapBlocks::Find(std::size_t size) const noexcept {
    const OfSize* const begin = sizes_.get();
    return std::find_if(begin, end(), [&](const OfSize& each) { return each.Size == size; });
}

void HeapBlocks::Add(std::size_t size) noexcept {
    const auto index = static_cast<std::size_t>(Find(size) - sizes_.get());
    if (index == MostSizes) return;
    if (index == count_) sizes_[count_++] = {size, 0};
    ++sizes_[index].Blocks;
}

HeapBlocks::Growth HeapBlocks::LargestSince(const HeapBlocks& before) const noexcept {
    Growth largest;
    for (const OfSize* now = sizes_.get(); now != end(); ++now) {
        const OfSize* const then = before.Find(now->Size);
        const long growth = now->Blocks - (then == before.end() ? 0 : then->Blocks);
        if (growth > largest.Blocks) largest = {growth, now->Size};
    }
    return largest;
}

std::ostream& operator<<(std::ostream& stream, const HeapBlocks::Growth& growth) {
    return stream << growth.Blocks << " more blocks of " << growth.Size << " bytes";
}

} // namespace vantik
