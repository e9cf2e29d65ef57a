// The blocks in all heaps of the process, by their sizes.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>

namespace vantik {

class HeapBlocks {
public:
    static HeapBlocks Count();

    // Whether heaps show each block, and not groups of small ones as one block each.
    static bool AreShownEach();

    // Of the size that grew most: how many more blocks of it there are than there were, and how large they are.
    struct Growth {
        long Blocks = 0;
        std::size_t Size = 0;
    };
    Growth LargestSince(const HeapBlocks& before) const noexcept;

private:
    struct OfSize {
        std::size_t Size;
        long Blocks;
    };
    struct Pages {
        void operator()(OfSize* sizes) const noexcept;
    };

    HeapBlocks();
    void AddHeap(void* heap) noexcept;
    void Add(std::size_t size) noexcept;
    const OfSize* Find(std::size_t size) const noexcept;
    const OfSize* end() const noexcept { return sizes_.get() + count_; }

    std::unique_ptr<OfSize[], Pages>
        sizes_; // in pages of their own: a heap must not change while one walks through it
    std::size_t count_ = 0;
};

std::ostream& operator<<(std::ostream& stream, const HeapBlocks::Growth& growth);

} // namespace vantik
