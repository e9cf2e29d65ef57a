// The controls that the host keeps on this one, found the first way that the host knows.
#pragma once

#include <memory>
#include <vector>

#include "ole/host/ClientSite.h"
#include "ole/host/Extent.h"
#include "platform/UserControl.h"

namespace vantik {

using ChildList = std::vector<std::unique_ptr<ChildControl>>;

struct ChildSearch {
    const ClientSite& Site;
    IUnknown& Control;
    HWND Window;  // of the control, may be null
    HWND NoChild; // a window on it that the host knows nothing of, may be null
    Resolution Screen;
};

ChildList FindChildren(const ChildSearch& search);

} // namespace vantik
