// Everything of a skin on one sheet.
#pragma once

#include <string>
#include <vector>

#include "host/ControlModule.h"
#include "tools/skinpreview/PreviewedSkin.h"

namespace vantik {

// One of the pictures on the sheet: "Top", "Top, pressed", "Bitmap" and so on.
struct SheetPart {
    std::wstring Name;
    RECT Place;
    int Zoom;
};

struct Sheet {
    Snapshot Picture;
    std::vector<SheetPart> Parts;

    const SheetPart& Part(std::wstring_view name) const; // HostError when there is none
};

Sheet MakeSheet(ControlModule& module, const PreviewedSkin& skin);

} // namespace vantik
