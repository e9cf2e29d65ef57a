// What a skin definition says, for controls that need not read its file again.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "model/Skin.h"

namespace vantik {

// The names are as the file has them: the folder that they lie in is the affair of the control.
struct NamedBitmap {
    std::u16string File;
};
struct NumberedRect {
    std::int32_t Index;
    SkinRect Rect;
};
struct KeyedIcon {
    std::int32_t Line; // from 1
    std::u16string Key, File;
};

// In the order of the lines.
class SkinDefinition {
public:
    using Entry = std::variant<NamedBitmap, NumberedRect, KeyedIcon>;

    const std::vector<Entry>& Entries() const noexcept { return entries_; }

    // Without memory for an entry the definition is incomplete from then on.
    void AddBitmap(std::u16string_view file) noexcept;
    void AddRect(std::int32_t index, const SkinRect& rect) noexcept;
    void AddIcon(std::int32_t line, std::u16string_view key, std::u16string_view file) noexcept;
    bool IsComplete() const noexcept { return isComplete_; }

    std::size_t Memory() const noexcept;

private:
    template <class Make>
    void Add(Make make) noexcept;

    std::vector<Entry> entries_;
    bool isComplete_ = true;
};

} // namespace vantik
