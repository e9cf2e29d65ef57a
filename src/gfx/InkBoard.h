// A black surface of its own, to write on in white and to see where the ink went.
#pragma once

#include <cstdint>
#include <vector>

#include "gfx/Handles.h"
#include "model/LayoutRect.h"

namespace vantik {

class InkBoard {
public:
    InkBoard();

    HDC DC() const noexcept { return dc_.Get(); }

    // Once: the part of the drawing that is looked at, in the drawing's own coordinates. Raises OutOfMemory, as the
    // constructor does.
    void Cover(const LayoutRect& area);

    // What was written since the last time; the board is black again.
    std::vector<std::uint32_t> Take();

private:
    MemoryDC dc_;
    OwnedBitmap bitmap_;
    Selection selection_;
    std::uint32_t* pixels_ = nullptr;
    std::size_t count_ = 0;
};

} // namespace vantik
