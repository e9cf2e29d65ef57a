// Little windows that mark places on the control: the handles of a child, the edges of a rectangle that is being drawn.
#pragma once

#include <memory>
#include <vector>

#include "host/Box.h"
#include "host/FormWindow.h"

namespace vantik {

class Marks {
public:
    explicit Marks(HWND control) : control_(control) {}

    void Show(const std::vector<Box>& places); // these and no others, in front of all children
    void Hide() { Show({}); }

private:
    HWND control_;
    std::vector<std::unique_ptr<FormWindow>> windows_;
};

} // namespace vantik
