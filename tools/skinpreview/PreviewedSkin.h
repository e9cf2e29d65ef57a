// What a preview needs to know of a skin, beside what the control shows of it.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/SkinBesideProgram.h"
#include "host/Snapshot.h"
#include "model/Skin.h"

namespace vantik {

enum class Side { Left = 0, Right = 1, Top = 2, Bottom = 3 }; // as TabPos counts them

constexpr bool Lies(Side side) noexcept { return side == Side::Top || side == Side::Bottom; }

class PreviewedSkin {
public:
    // Copies the skin's folder to where a control of this program looks for it. HostError for what cannot be read.
    explicit PreviewedSkin(const std::filesystem::path& definition);

    std::wstring Title() const;      // folder and definition
    std::wstring BitmapName() const; // as the definition has it

    const std::wstring& SkinPath() const noexcept { return copy_.SkinPath(); }
    std::wstring SkinFile(Side side) const;
    std::filesystem::path Settings(Side side) const; // empty where there are none

    const Snapshot& Bitmap() const noexcept { return bitmap_; }
    const std::array<std::optional<SkinRect>, SkinRects::Count>& Rects() const noexcept { return rects_; }
    const std::vector<std::wstring>& TabIcons() const noexcept { return tabIcons_; } // their names

private:
    void CopyFolder() const;
    void ReadDefinition();
    std::filesystem::path SidesOf(const std::filesystem::path& file) const;

    std::filesystem::path definition_;
    SkinBesideProgram copy_;
    std::array<std::optional<SkinRect>, SkinRects::Count> rects_;
    std::vector<std::wstring> tabIcons_;
    std::wstring bitmapName_;
    Snapshot bitmap_;
};

} // namespace vantik
