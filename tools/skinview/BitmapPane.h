// The window with the enlarged bitmap: it shows the rectangles, lets one be chosen, and its edges be moved by pointer and
// keys.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "host/Widgets.h"
#include "tools/skinview/model/Grip.h"
#include "tools/skinview/model/PixelImage.h"

namespace vantik {

struct PaneHandlers {
    std::function<void(std::int32_t piece)> Pointed; // NoPiece: at none
    std::function<void(std::int32_t piece)> Chosen;
    // New numbers of a rectangle; those of one gesture, a drag, are one change.
    std::function<void(std::int32_t piece, const EdgeNumbers&, int gesture)> Moved;
    std::function<void()> Zoomed;
};

class BitmapPane {
public:
    BitmapPane(HWND parent, int id, const FormFont& font, PaneHandlers handlers);
    ~BitmapPane();
    BitmapPane(const BitmapPane&) = delete;
    BitmapPane& operator=(const BitmapPane&) = delete;

    HWND Window() const noexcept { return window_; }
    void SetFont(const FormFont& font);
    void MoveTo(Box place);

    void Show(const PixelImage& image);
    void Show(std::vector<Piece> pieces);
    void Choose(std::int32_t piece);

    int Zoom() const noexcept { return view_.Zoom; }
    void ZoomBy(int steps); // around the middle
    void Fit();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

    void Paint();
    ViewSize ImageSize() const noexcept { return {image_.Width(), image_.Height()}; }
    ViewSize WindowSize() const noexcept;
    void SetView(ZoomView view);
    void ShowScrollBars();
    void Scroll(int bar, WORD request);
    void Turn(WPARAM wParam, LPARAM lParam);
    void BringIntoView(const Piece& piece);

    void Press(ViewPoint point);
    void Move(ViewPoint point);
    void Release();
    void Leave();
    void Point(std::int32_t piece);
    bool ShowCursor() const;
    LRESULT WantedKeys(LPARAM message) const;
    bool PressKey(WPARAM key);
    bool Nudge(int right, int down);
    std::int32_t Neighbour(int step) const;
    void ChooseByUser(std::int32_t piece);

    HWND window_ = nullptr;
    HFONT font_;
    PaneHandlers handlers_;
    PixelImage image_;
    std::vector<Piece> pieces_;
    ZoomView view_;
    bool fits_ = true; // the zoom is chosen so that all is seen
    std::int32_t chosen_ = NoPiece, pointed_ = NoPiece;

    struct Drag {
        vantik::Grip Grip;
        ViewPoint From; // pixel
        EdgeNumbers Before;
    };
    std::optional<Drag> drag_;
    int gesture_ = 0;
};

} // namespace vantik
