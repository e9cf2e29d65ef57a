// The list of skins to choose from, each with a small picture.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ole/pages/Thumbnail.h"

namespace vantik {

class SkinList {
public:
    // The folders, in a list box that its owner draws.
    void Fill(HWND list, const std::vector<std::u16string>& folders);

    // The one that is chosen in the list box; empty without one.
    std::u16string Chosen(HWND list) const;

    // Whatever the case of its letters, and with or without a separator at the end; one that is not there chooses none.
    void Choose(HWND list, const std::u16string& folder) const;

    void Draw(const DRAWITEMSTRUCT& item);

private:
    const Thumbnail& PictureOf(std::size_t index, SIZE most);

    struct Entry {
        std::u16string Folder;
        std::optional<Thumbnail> Picture; // made when it is first seen
    };
    std::vector<Entry> entries_;
};

} // namespace vantik
