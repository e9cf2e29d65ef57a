#include "model/Skin.h"

#include "base/ErrorText.h"

namespace vantik {

const SkinRect& SkinRects::operator[](std::int32_t index) const {
    if (index < 0 || index >= Count)
        Raise(RunTimeErrorNumber::SubscriptOutOfRange, u"there is no rectangle ", index, u", only 0 to ",
              Count - 1);
    return rects_[static_cast<std::size_t>(index)];
}

SkinRect& SkinRects::operator[](std::int32_t index) {
    return const_cast<SkinRect&>(static_cast<const SkinRects&>(*this)[index]);
}

SkinIcon& SkinIcons::Append() {
    constexpr std::size_t most = INT16_MAX;
    if (Entries.size() == most)
        Raise(RunTimeErrorNumber::Overflow, u"there are more than ", INT16_MAX, u" icons");
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
