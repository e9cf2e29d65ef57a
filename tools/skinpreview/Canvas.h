// Something to draw a sheet on: pictures pixel by pixel, texts and lines by the system.
#pragma once

#include <string>

#include "host/PixelCanvas.h"

namespace vantik {

enum class Lettering { Plain, Bold };

inline constexpr int LineHeight = 18; // of text

SIZE ExtentOf(const std::wstring& text, Lettering lettering);

class Canvas {
public:
    Canvas(int width, int height, std::uint32_t colour);

    void Put(const Snapshot& picture, int left, int top, int zoom = 1);
    void Write(const std::wstring& text, int left, int top, Lettering lettering);
    void Fill(const RECT& place, std::uint32_t colour);
    void Line(POINT from, POINT to, std::uint32_t colour);

    // Dashes in black and white, which can be seen on every picture, just outside of the place.
    void Outline(const RECT& place);

    Snapshot Take() { return canvas_.Take(); }

private:
    void Set(int x, int y, std::uint32_t colour);

    PixelCanvas canvas_;
};

} // namespace vantik
