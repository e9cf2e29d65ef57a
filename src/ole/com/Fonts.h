// Font objects of the platform.
#pragma once

#include "platform/ComPtr.h"

namespace vantik {

// 8.25 points, plain.
ComPtr<IFontDisp> NewFont(const wchar_t* name);

// The standard font of a control whose host has none.
ComPtr<IFontDisp> StandardFont();

// A font of its own with the same look; null for what is no font.
ComPtr<IFontDisp> CopyOfFont(IUnknown* font) noexcept;

bool AreEqualFonts(IUnknown* a, IUnknown* b) noexcept;

} // namespace vantik
