// Fonts and pictures from text.
#pragma once

#include <string>

#include "platform/ComPtr.h"

namespace vantik {

// "NAME,SIZE" and any of bold, italic, underline, strikethrough behind it.
ComPtr<IDispatch> MakeFont(const std::wstring& text);

// A picture file; no picture for an empty path.
ComPtr<IDispatch> MakePicture(const std::wstring& path);

} // namespace vantik
