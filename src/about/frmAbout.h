// The About window: a picture card that any mouse press, or Esc, closes.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

// Shows the card in the middle of the window's top-level window, modal to it, and returns when it was closed. A card
// that the apartment has up already is closed first. Never raises; without memory or picture there is just less to see.
void ShowAbout(HWND control) noexcept;

// One window class serves the cards of all apartments until the module goes.
void UnregisterAboutWindowClass() noexcept;

} // namespace vantik
