#include "BitmapPane.h"

#include <windowsx.h>

#include "BitmapPainter.h"
#include "gfx/Handles.h"
#include "host/HostError.h"

namespace vantik {

namespace {

constexpr wchar_t ClassName[] = L"SkinviewBitmap";
constexpr DWORD Style = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_HSCROLL | WS_VSCROLL | WS_TABSTOP;
constexpr int WheelStep = 48;

HINSTANCE Instance() noexcept { return GetModuleHandleW(nullptr); }

void RegisterPane(WNDPROC procedure) noexcept {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = Instance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = ClassName;
    RegisterClassExW(&description); // a second time it is there already
}

bool IsDown(int key) noexcept { return GetKeyState(key) < 0; }

ViewPoint PointOf(LPARAM lParam) noexcept { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

const wchar_t* CursorOf(const Grip& grip) noexcept {
    if (grip.IsWhole()) return IDC_SIZEALL;
    const bool along = grip.Holds[LeftEdge] || grip.Holds[RightEdge];
    const bool across = grip.Holds[TopEdge] || grip.Holds[BottomEdge];
    if (!across) return IDC_SIZEWE;
    if (!along) return IDC_SIZENS;
    return grip.Holds[LeftEdge] == grip.Holds[TopEdge] ? IDC_SIZENWSE : IDC_SIZENESW;
}

} // namespace

BitmapPane::BitmapPane(HWND parent, int id, const FormFont& font, PaneHandlers handlers)
    : font_(font.Get()), handlers_(std::move(handlers)) {
    RegisterPane(&BitmapPane::Procedure);
    CreateWindowExW(0, ClassName, L"Bitmap", Style, 0, 0, 0, 0, parent,
                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), Instance(), this);
}

BitmapPane::~BitmapPane() {
    handlers_ = {};
    if (window_) DestroyWindow(window_);
}

LRESULT CALLBACK BitmapPane::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* pane = static_cast<BitmapPane*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        pane->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pane));
    }
    auto* pane = reinterpret_cast<BitmapPane*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!pane) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        pane->window_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    LRESULT answer = 0;
    Guarded([&] {
        answer = pane->Handle(message, wParam, lParam);
        return S_OK;
    });
    return answer;
}

LRESULT BitmapPane::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT: Paint(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_SIZE: SetView(view_); return 0;
    case WM_HSCROLL: Scroll(SB_HORZ, LOWORD(wParam)); return 0;
    case WM_VSCROLL: Scroll(SB_VERT, LOWORD(wParam)); return 0;
    case WM_MOUSEWHEEL: Turn(wParam, lParam); return 0;
    case WM_LBUTTONDOWN: Press(PointOf(lParam)); return 0;
    case WM_MOUSEMOVE: Move(PointOf(lParam)); return 0;
    case WM_LBUTTONUP: Release(); return 0;
    case WM_CAPTURECHANGED: drag_.reset(); return 0;
    case WM_MOUSELEAVE: Leave(); return 0;
    case WM_SETCURSOR:
        return LOWORD(lParam) == HTCLIENT && ShowCursor() ? TRUE : Default(message, wParam, lParam);
    case WM_GETDLGCODE: return WantedKeys(lParam);
    case WM_KEYDOWN: return PressKey(wParam) ? 0 : Default(message, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS: InvalidateRect(window_, nullptr, FALSE); return 0;
    default: return Default(message, wParam, lParam);
    }
}

LRESULT BitmapPane::Default(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window_, message, wParam, lParam);
}

// --- what is shown

void BitmapPane::SetFont(const FormFont& font) {
    font_ = font.Get();
    InvalidateRect(window_, nullptr, FALSE);
}

void BitmapPane::MoveTo(Box place) {
    MoveWidget(window_, place);
    if (fits_) Fit();
}

void BitmapPane::Show(const PixelImage& image) {
    image_ = image;
    if (fits_) return Fit();
    SetView(view_);
}

void BitmapPane::Show(std::vector<Piece> pieces) {
    pieces_ = std::move(pieces);
    InvalidateRect(window_, nullptr, FALSE);
}

void BitmapPane::Choose(std::int32_t piece) {
    if (piece == chosen_) return;
    chosen_ = piece;
    if (const Piece* found = FindPiece(pieces_, piece)) BringIntoView(*found);
    InvalidateRect(window_, nullptr, FALSE);
}

void BitmapPane::Paint() {
    PAINTSTRUCT paint = {};
    const HDC dc = BeginPaint(window_, &paint);
    RECT client = {};
    GetClientRect(window_, &client);
    const MemoryDC memory(CreateCompatibleDC(dc));
    const OwnedBitmap bitmap(
        CreateCompatibleBitmap(dc, std::max<LONG>(client.right, 1), std::max<LONG>(client.bottom, 1)));
    const HGDIOBJ old = SelectObject(memory.Get(), bitmap.Get());
    BitmapPainter(memory.Get(), {image_, pieces_, view_, chosen_, pointed_, font_}).Paint(client);
    BitBlt(dc, 0, 0, client.right, client.bottom, memory.Get(), 0, 0, SRCCOPY);
    SelectObject(memory.Get(), old);
    EndPaint(window_, &paint);
}

// --- zoom and scrolling

ViewSize BitmapPane::WindowSize() const noexcept {
    RECT client = {};
    GetClientRect(window_, &client);
    return {client.right, client.bottom};
}

void BitmapPane::SetView(ZoomView view) {
    view.StayInside(ImageSize(), WindowSize());
    const bool isZoomed = view.Zoom != std::exchange(view_, view).Zoom;
    ShowScrollBars();
    InvalidateRect(window_, nullptr, FALSE);
    if (isZoomed && handlers_.Zoomed) handlers_.Zoomed();
}

void BitmapPane::ShowScrollBars() {
    const ViewSize whole = view_.Whole(ImageSize()), window = WindowSize();
    const auto show = [&](int bar, int extent, int page, int position) {
        const SCROLLINFO info = {
            sizeof info, SIF_PAGE | SIF_POS | SIF_RANGE, 0, extent - 1, static_cast<UINT>(page), position, 0};
        SetScrollInfo(window_, bar, &info, TRUE);
    };
    show(SB_HORZ, whole.Width, window.Width, view_.Scrolled.X);
    show(SB_VERT, whole.Height, window.Height, view_.Scrolled.Y);
}

void BitmapPane::Scroll(int bar, WORD request) {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window_, bar, &info);
    ZoomView view = view_;
    std::int32_t& position = bar == SB_HORZ ? view.Scrolled.X : view.Scrolled.Y;
    switch (request) {
    case SB_LINEUP: position -= WheelStep; break;
    case SB_LINEDOWN: position += WheelStep; break;
    case SB_PAGEUP: position -= static_cast<int>(info.nPage); break;
    case SB_PAGEDOWN: position += static_cast<int>(info.nPage); break;
    case SB_THUMBTRACK: position = info.nTrackPos; break;
    default: return;
    }
    SetView(view);
}

// With Ctrl it zooms around the pointer, with Shift it scrolls sideways.
void BitmapPane::Turn(WPARAM wParam, LPARAM lParam) {
    const int notches = GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA;
    POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ScreenToClient(window_, &point);
    ZoomView view = view_;
    if (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) {
        fits_ = false;
        view = view_.ZoomedAt({point.x, point.y}, view_.Zoom + notches);
    } else {
        (IsDown(VK_SHIFT) ? view.Scrolled.X : view.Scrolled.Y) -= notches * WheelStep;
    }
    SetView(view);
}

void BitmapPane::ZoomBy(int steps) {
    const ViewSize window = WindowSize();
    fits_ = false;
    SetView(view_.ZoomedAt({window.Width / 2, window.Height / 2}, view_.Zoom + steps));
}

void BitmapPane::Fit() {
    fits_ = true;
    SetView({ZoomView::Fitting(ImageSize(), WindowSize()), {}});
}

void BitmapPane::BringIntoView(const Piece& piece) {
    const PixelBox box = view_.ToView(piece.Box());
    const ViewSize window = WindowSize();
    ZoomView view = view_;
    if (box.Right > window.Width) view.Scrolled.X += box.Right + ZoomView::Margin - window.Width;
    if (box.Left < 0) view.Scrolled.X += box.Left - ZoomView::Margin;
    if (box.Bottom > window.Height) view.Scrolled.Y += box.Bottom + ZoomView::Margin - window.Height;
    if (box.Top < 0) view.Scrolled.Y += box.Top - ZoomView::Margin;
    SetView(view);
}

// --- pointer

void BitmapPane::Press(ViewPoint point) {
    SetFocus(window_);
    const auto grip = GripAt(pieces_, chosen_, point, view_);
    ChooseByUser(grip ? grip->Piece : NoPiece);
    if (!grip) return;
    drag_ = Drag{*grip, view_.ToPixel(point), FindPiece(pieces_, grip->Piece)->Numbers};
    ++gesture_;
    SetCapture(window_);
}

void BitmapPane::Move(ViewPoint point) {
    if (!drag_) {
        TRACKMOUSEEVENT leaving = {sizeof leaving, TME_LEAVE, window_, 0};
        TrackMouseEvent(&leaving);
        return Point(PieceAt(pieces_, chosen_, point, view_));
    }
    const ViewPoint pixel = view_.ToPixel(point);
    const EdgeNumbers numbers =
        Dragged(drag_->Before, drag_->Grip, pixel.X - drag_->From.X, pixel.Y - drag_->From.Y, ImageSize());
    const Piece* piece = FindPiece(pieces_, drag_->Grip.Piece);
    if (piece && piece->Numbers != numbers) handlers_.Moved(piece->Index, numbers, gesture_);
}

void BitmapPane::Release() {
    if (drag_) ReleaseCapture();
}

void BitmapPane::Leave() { Point(NoPiece); }

void BitmapPane::Point(std::int32_t piece) {
    if (piece == pointed_) return;
    pointed_ = piece;
    InvalidateRect(window_, nullptr, FALSE);
    if (handlers_.Pointed) handlers_.Pointed(piece);
}

bool BitmapPane::ShowCursor() const {
    POINT point = {};
    if (drag_ || !GetCursorPos(&point) || !ScreenToClient(window_, &point)) return drag_.has_value();
    const auto grip = GripAt(pieces_, chosen_, {point.x, point.y}, view_);
    if (!grip) return false;
    SetCursor(LoadCursorW(nullptr, CursorOf(*grip)));
    return true;
}

// --- keys

// The key Tab leads through the rectangles, and on to the next window behind the last one.
LRESULT BitmapPane::WantedKeys(LPARAM lParam) const {
    const auto* message = reinterpret_cast<const MSG*>(lParam);
    const WPARAM key = message && message->message == WM_KEYDOWN ? message->wParam : 0;
    const bool isTab = key == VK_TAB && !IsDown(VK_CONTROL);
    const bool isWanted = key == VK_ESCAPE || (isTab && Neighbour(IsDown(VK_SHIFT) ? -1 : 1) != NoPiece);
    return DLGC_WANTARROWS | (isWanted ? DLGC_WANTMESSAGE : 0);
}

std::int32_t BitmapPane::Neighbour(int step) const {
    const Piece* chosen = FindPiece(pieces_, chosen_);
    if (!chosen) return pieces_.empty() ? NoPiece : (step > 0 ? pieces_.front() : pieces_.back()).Index;
    const std::ptrdiff_t next = chosen - pieces_.data() + step;
    if (next < 0 || next >= std::ssize(pieces_)) return NoPiece;
    return pieces_[static_cast<std::size_t>(next)].Index;
}

bool BitmapPane::PressKey(WPARAM key) {
    switch (key) {
    case VK_TAB: ChooseByUser(Neighbour(IsDown(VK_SHIFT) ? -1 : 1)); return true;
    case VK_LEFT: return Nudge(-1, 0);
    case VK_RIGHT: return Nudge(1, 0);
    case VK_UP: return Nudge(0, -1);
    case VK_DOWN: return Nudge(0, 1);
    case VK_ESCAPE: ChooseByUser(NoPiece); return true;
    default: return false;
    }
}

// An arrow key alone moves the rectangle, with Shift its right or lower edge, with Ctrl its left or upper edge.
bool BitmapPane::Nudge(int right, int down) {
    const Piece* piece = FindPiece(pieces_, chosen_);
    if (!piece || drag_) return false;
    Grip grip = Grip::Whole(chosen_);
    if (IsDown(VK_SHIFT)) grip.Holds = {false, right != 0, false, down != 0};
    if (IsDown(VK_CONTROL)) grip.Holds = {right != 0, false, down != 0, false};
    const EdgeNumbers numbers = Dragged(piece->Numbers, grip, right, down, ImageSize());
    if (numbers != piece->Numbers) handlers_.Moved(chosen_, numbers, ++gesture_);
    return true;
}

void BitmapPane::ChooseByUser(std::int32_t piece) {
    Choose(piece);
    if (handlers_.Chosen) handlers_.Chosen(piece);
}

} // namespace vantik
