#pragma once

#include <array>

#include "platform/mDeclares.h"

namespace vantik {

// A key that is held down, for as long as this lives.
class HeldKey {
public:
    explicit HeldKey(int key) : key_(key) { Set(0x80); }
    ~HeldKey() { Set(0); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

private:
    void Set(BYTE state) const {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys.at(static_cast<std::size_t>(key_)) = state;
        SetKeyboardState(keys.data());
    }

    int key_;
};

} // namespace vantik
