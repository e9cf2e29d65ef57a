#include "model/Skin.h"

#include "base/Checked.h"

namespace vantik {

const SkinRect& SkinRects::operator[](std::int32_t index) const {
    if (index < 0 || index >= Count) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    return rects_[static_cast<std::size_t>(index)];
}

SkinRect& SkinRects::operator[](std::int32_t index) {
    return const_cast<SkinRect&>(static_cast<const SkinRects&>(*this)[index]);
}

SkinIcon& SkinIcons::Append() {
    Narrow<std::int16_t>(Entries.size() + 1);
    return Entries.emplace_back();
}

const SkinIcon* SkinIcons::At(std::int16_t index) const noexcept {
    const bool inList = index >= 0 && static_cast<std::size_t>(index) < Entries.size();
    return inList ? &Entries[static_cast<std::size_t>(index)] : nullptr;
}

SkinIcon* SkinIcons::At(std::int16_t index) noexcept {
    return const_cast<SkinIcon*>(static_cast<const SkinIcons&>(*this).At(index));
}

} // namespace vantik
