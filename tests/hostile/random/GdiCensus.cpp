#include "hostile/random/GdiCensus.h"

#include "platform/mDeclares.h"

namespace vantik {

namespace {

constexpr const char* Names[GdiCensus::Types] = {"",
                                                 "pens",
                                                 "brushes",
                                                 "DCs",
                                                 "metafile DCs",
                                                 "palettes",
                                                 "fonts",
                                                 "bitmaps",
                                                 "regions",
                                                 "metafiles",
                                                 "memory DCs",
                                                 "extended pens",
                                                 "enhanced metafile DCs",
                                                 "enhanced metafiles",
                                                 "colour spaces"};

} // namespace

GdiCensus GdiCensus::Take() {
    GdiCensus census;
    for (UINT_PTR value = 1; value <= 0xFFFF; ++value)
        if (const DWORD type = GetObjectType(reinterpret_cast<HGDIOBJ>(value)); type && type < Types)
            ++census.Counts[type];
    return census;
}

bool GdiCensus::HasGrown(const GdiCensus& before, int most) const noexcept {
    for (std::size_t type = 0; type < Types; ++type)
        if (Counts[type] > before.Counts[type] + most) return true;
    return false;
}

std::string GdiCensus::Since(const GdiCensus& before) const {
    std::string text;
    for (std::size_t type = 0; type < Types; ++type)
        if (const int more = Counts[type] - before.Counts[type])
            text += " " + std::to_string(more) + " " + Names[type];
    return text;
}

} // namespace vantik
