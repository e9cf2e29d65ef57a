// The system's tooltip, made when it is first needed. It takes neither the activation nor the focus nor the pointer.
#pragma once

#include <optional>
#include <string>

#include "ole/accessible/SystemLibrary.h"

namespace vantik {

class TipWindow {
public:
    TipWindow() noexcept = default;
    ~TipWindow() { Destroy(); }
    TipWindow(const TipWindow&) = delete;
    TipWindow& operator=(const TipWindow&) = delete;

    // Beside a part of the window, in pixels of the screen, on that side of it. Whether it shows: not where the system
    // lacks what it takes.
    bool Show(HWND window, std::u16string& text, const RECT& part, std::int32_t side) noexcept;
    void Hide() noexcept;
    void Destroy() noexcept;

    // Whether the message is what the tooltip tells the window that it stands beside.
    bool Sends(UINT message, LPARAM lParam) const noexcept;

private:
    bool Need(HWND window) noexcept;
    void Place(const RECT& part, std::int32_t side) noexcept;

    std::optional<SystemLibrary> library_;
    HWND tip_ = nullptr, of_ = nullptr;
};

} // namespace vantik
