#include "skin/SkinDefinition.h"

#include <new>

namespace vantik {

namespace {

std::size_t TextOf(const NamedBitmap& bitmap) noexcept { return bitmap.File.capacity(); }
std::size_t TextOf(const NumberedRect&) noexcept { return 0; }
std::size_t TextOf(const KeyedIcon& icon) noexcept { return icon.Key.capacity() + icon.File.capacity(); }

} // namespace

template <class Make>
void SkinDefinition::Add(Make make) noexcept {
    try {
        entries_.push_back(make());
    } catch (const std::bad_alloc&) {
        isComplete_ = false;
    }
}

void SkinDefinition::AddBitmap(std::u16string_view file) noexcept {
    Add([&] { return NamedBitmap{std::u16string(file)}; });
}

void SkinDefinition::AddRect(std::int32_t index, const SkinRect& rect) noexcept {
    Add([&] { return NumberedRect{index, rect}; });
}

void SkinDefinition::AddIcon(std::int32_t line, std::u16string_view key, std::u16string_view file) noexcept {
    Add([&] { return KeyedIcon{line, std::u16string(key), std::u16string(file)}; });
}

std::size_t SkinDefinition::Memory() const noexcept {
    std::size_t characters = 0;
    for (const Entry& entry : entries_)
        characters += std::visit([](const auto& said) { return TextOf(said); }, entry);
    return entries_.capacity() * sizeof(Entry) + characters * sizeof(char16_t);
}

} // namespace vantik
