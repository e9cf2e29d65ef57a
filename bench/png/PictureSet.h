// The files that decoders are timed with.
#pragma once

#include <string>
#include <vector>

#include "bench/png/Decoders.h"

namespace vantik::bench {

struct PictureSet {
    std::string Name;
    std::vector<Bytes> Files;
};

// All PNG files of the folder, by size: icons up to 64 pixels, large ones from 0.1 megapixels on, and those between.
std::vector<PictureSet> SetsFromFolder(const std::string& folder);

// Made by the program: icons of 16 to 64 pixels and large pictures of 0.1 to 4 megapixels, photo-like and flat, RGBA,
// RGB, palette and grey; and pictures of 16 bits a sample.
std::vector<PictureSet> GeneratedSets();

} // namespace vantik::bench
