// What the benchmark does to a tab control, ours and the platform's alike.
#pragma once

#include <cstdint>

namespace vantik::bench {

inline constexpr int Width = 880, Height = 480; // pixels
inline constexpr int BarWidth = 90;
inline constexpr int StripThickness = 22;

class Subject {
public:
    virtual ~Subject() = default;
    virtual void Insert(int tabs) = 0; // behind the last, each with a caption and an icon
    virtual void Remove(int tabs) = 0; // the first one each time
    virtual void Show() = 0;           // paints what has to be painted
    virtual void GetReady() = 0;       // as if the pointer came from outside

    virtual void PaintWindow() = 0; // where the bars are, though nothing changed
    virtual void RepaintFully() = 0;
    virtual void RepaintBars() = 0;
    virtual void MovePointer(int x, int y) = 0;
};

} // namespace vantik::bench
