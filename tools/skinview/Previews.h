// The control on its four sides.
#pragma once

#include <array>
#include <memory>

#include "Preview.h"

namespace vantik {

class Previews {
public:
    Previews(ControlModule& module, HWND parent) : module_(module), parent_(parent) {}

    static constexpr std::array<Side, 4> Sides = {Side::Top, Side::Bottom, Side::Left, Side::Right};
    using Places = std::array<RECT, 4>; // in that order

    // Controls are made anew, because one that has read a skin keeps what the next one does not mention. HostError when
    // one refuses the skin: then all stay as they were.
    void Show(const PreviewSkin& skin);
    void Clear() { previews_ = {}; }

    void MoveTo(const Places& places);
    bool TranslateMessage(MSG& message);

private:
    using All = std::array<std::unique_ptr<Preview>, 4>;

    ControlModule& module_;
    HWND parent_;
    Places places_{};
    All previews_;
};

} // namespace vantik
