#include "gfx/OutlivingBitmaps.h"

#include <exception>
#include <vector>

#include "platform/Lock.h"

namespace vantik {

namespace {

SRWLOCK bitmapsLock = SRWLOCK_INIT; // controls of several apartments end at once
std::vector<OwnedBitmap> bitmaps;

} // namespace

void KeepUntilUnloaded(OwnedBitmap bitmap) noexcept {
    const Lock lock(bitmapsLock);
    try {
        bitmaps.emplace_back();
        bitmaps.back() = std::move(bitmap);
    } catch (const std::exception&) {
        bitmap.Detach(); // nobody is left to delete it
    }
}

} // namespace vantik
