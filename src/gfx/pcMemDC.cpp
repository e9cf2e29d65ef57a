#include "gfx/pcMemDC.h"

#include <algorithm>
#include <new>
#include <utility>

#include "base/Checked.h"
#include "gfx/RowDrawing.h"
#include "gfx/TurnedPart.h"
#include "platform/Doubt.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

std::int32_t OrAll(std::int32_t extent, std::int32_t all) noexcept { return extent > 0 ? extent : all; }

// The turned operations are loops over pixels that count in 16 bits.
bool IsEmptyLoop(std::int32_t count) {
    Narrow<std::int16_t>(count > 0 ? count : 0);
    return count <= 0;
}

// The coordinates of the last of `count` pixels must exist.
void CheckRun(std::int32_t first, std::int32_t count) { (void)(Checked(first) + (count - 1)); }

// Whether the edge so far from there has a coordinate.
bool HasEnd(std::int32_t first, std::int32_t extent) noexcept {
    return std::in_range<std::int32_t>(std::int64_t{first} + extent);
}

// Whether a loop over so many pixels from there comes to its end.
bool IsWholeLoop(std::int32_t first, std::int32_t count) noexcept {
    return std::in_range<std::int16_t>(count) && HasEnd(first, count - 1);
}

// From so many pixels on, stretching one pixel takes longer than filling with its colour.
constexpr std::int64_t LargeArea = 4096;

void FillWith(HDC target, COLORREF colour, std::int32_t x, std::int32_t y, std::int32_t width,
              std::int32_t height) {
    if (colour == CLR_INVALID) return; // there is no such pixel
    const Selection brush = Select(target, GetStockObject(DC_BRUSH));
    const COLORREF previous = SetDCBrushColor(target, colour);
    PatBlt(target, x, y, width, height, PATCOPY);
    SetDCBrushColor(target, previous);
}

HBITMAP BitmapOf(IPictureDisp* object) noexcept {
    const ComPtr<IPicture> picture = QueryFor<IPicture>(object);
    SHORT type = PICTYPE_NONE;
    OLE_HANDLE handle = 0;
    if (!picture || FAILED(picture->get_Type(&type)) || type != PICTYPE_BITMAP) return nullptr;
    if (FAILED(picture->get_Handle(&handle))) return nullptr;
    // 32 bits of a handle tell all of it; it is sign-extended on 64-bit systems.
    return reinterpret_cast<HBITMAP>(static_cast<LONG_PTR>(static_cast<LONG>(handle)));
}

BITMAP DescriptionOf(HBITMAP bitmap) noexcept {
    BITMAP description = {};
    if (!bitmap || !GetObjectW(bitmap, sizeof description, &description)) return {};
    return description;
}

SIZE SizeOf(HBITMAP bitmap) noexcept {
    const BITMAP description = DescriptionOf(bitmap);
    return {description.bmWidth, description.bmHeight};
}

COLORREF ColourOf(std::uint32_t pixel) noexcept {
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

} // namespace

SIZE BitmapSizeOf(IPictureDisp* picture) noexcept { return SizeOf(BitmapOf(picture)); }

pcMemDC::pcMemDC() noexcept = default;
pcMemDC::~pcMemDC() { DestroySurface(); }

void pcMemDC::width(std::int32_t value) {
    if (value > Width) CreateSurface(value, Height);
}

void pcMemDC::height(std::int32_t value) {
    if (value > Height) CreateSurface(Width, value);
}

HDC pcMemDC::hdc() noexcept {
    Make();
    drawnByOthers_ = true;
    return MemDC;
}

void pcMemDC::CreateSurface(std::int32_t newWidth, std::int32_t newHeight) {
    DestroySurface();
    const MemoryDC display(CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr));
    if (!display) return TellShortage();
    Own(CreateCompatibleDC(display.Get()), CreateCompatibleBitmap(display.Get(), newWidth, newHeight),
        {newWidth, newHeight});
}

// For what is known to be of as many colours as rows have: no display needs to be asked.
void pcMemDC::CreateSection(std::int32_t newWidth, std::int32_t newHeight) {
    DestroySurface();
    const BITMAPINFO format = FormatOfRows({newWidth, newHeight});
    void* bits = nullptr;
    Own(CreateCompatibleDC(nullptr), CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0),
        {newWidth, newHeight});
}

void pcMemDC::Own(HDC dc, HBITMAP bitmap, SIZE size) {
    MemDC = dc;
    MemBitmap = bitmap;
    if (MemDC && MemBitmap) OldBitmap = SelectObject(MemDC, MemBitmap);
    if (!OldBitmap) {
        TellShortage();
        return DestroySurface();
    }
    PatBlt(MemDC, 0, 0, size.cx, size.cy, BLACKNESS);
    Width = size.cx;
    Height = size.cy;
}

void pcMemDC::DestroySurface() noexcept {
    rows_.reset();
    drawnByOthers_ = false; // whoever had the context has a dead one now
    if (OldBitmap) SelectObject(MemDC, std::exchange(OldBitmap, nullptr));
    if (MemBitmap) DeleteObject(std::exchange(MemBitmap, nullptr));
    if (MemDC) DeleteDC(std::exchange(MemDC, nullptr));
    Width = Height = 0;
}

bool pcMemDC::Grow(SIZE size, Creation create) {
    if (size.cx > Width || size.cy > Height)
        (this->*create)(std::max<std::int32_t>(size.cx, Width), std::max<std::int32_t>(size.cy, Height));
    else
        Make();
    rows_.reset();
    return MemDC != nullptr;
}

// The picture is asked once: its code may be the host's, which can take the picture away meanwhile.
bool pcMemDC::CreateFromPicture(IPictureDisp* picture) {
    const HBITMAP bitmap = BitmapOf(picture);
    const SIZE size = SizeOf(bitmap);
    if (size.cx < 1 || size.cy < 1) return true;
    const bool isThere = Grow(size, &pcMemDC::CreateSurface);
    const MemoryDC display(CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr));
    const MemoryDC source(CreateCompatibleDC(display.Get()));
    TellShortageUnless(source.Get());
    if (!isThere || !source) return false;
    // A bitmap that is selected elsewhere cannot be selected here; then there is nothing to copy from.
    const HGDIOBJ previous = SelectObject(source.Get(), bitmap);
    TellDoubtUnless(previous);
    if (!previous) return true;
    const bool copied = BitBlt(MemDC, 0, 0, size.cx, size.cy, source.Get(), 0, 0, SRCCOPY);
    SelectObject(source.Get(), previous);
    TellShortageUnless(copied);
    return copied;
}

bool pcMemDC::CreateFromRows(std::shared_ptr<const PixelRows> rows) {
    if (MemDC || rows->Width < Width || rows->Height < Height)
        return Grow({rows->Width, rows->Height}, &pcMemDC::CreateSection) && CopyRows(*rows);
    Borrow(std::move(rows));
    return true;
}

// Nobody needs a surface of his own before somebody may draw on it.
void pcMemDC::Borrow(std::shared_ptr<const PixelRows> rows) noexcept {
    Width = rows->Width;
    Height = rows->Height;
    rows_ = std::move(rows);
}

bool pcMemDC::CopyRows(const PixelRows& rows) noexcept {
    const auto height = static_cast<UINT>(rows.Height);
    const BITMAPINFO format = FormatOfRows({rows.Width, rows.Height});
    const bool copied = SetDIBitsToDevice(MemDC, 0, 0, static_cast<DWORD>(rows.Width), height, 0, 0, 0,
                                          height, rows.Pixels.data(), &format, DIB_RGB_COLORS) != 0;
    TellShortageUnless(copied);
    return copied;
}

// The rows stay what the surface shows, also where it cannot be had this time.
void pcMemDC::Make() noexcept {
    if (MemDC || !rows_) return;
    auto rows = std::move(rows_);
    CreateSection(rows->Width, rows->Height);
    if (MemDC && !CopyRows(*rows)) DestroySurface();
    Borrow(std::move(rows));
}

const PixelRows* pcMemDC::BorrowedPart(POINT source, SIZE size) const noexcept {
    const bool isInside =
        source.x >= 0 && source.y >= 0 && size.cx <= Width - source.x && size.cy <= Height - source.y;
    return !MemDC && isInside ? rows_.get() : nullptr;
}

// A surface of fewer colours than rows have would give them to all the others.
std::shared_ptr<const PixelRows> pcMemDC::RowsOfAll(SIZE size) noexcept try {
    if (size.cx != Width || size.cy != Height || DescriptionOf(MemBitmap).bmBitsPixel != RowsDepth || !Rows())
        return nullptr;
    return rows_;
} catch (const std::bad_alloc&) {
    return nullptr;
}

// A bitmap must not be selected while its rows are read.
const PixelRows* pcMemDC::Rows() {
    if (Width < 1 || Height < 1) return nullptr;
    if (rows_ && !drawnByOthers_) return rows_.get();
    auto rows = std::make_shared<PixelRows>(PixelRows{Width, Height, {}});
    rows->Pixels.resize(static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height));
    BITMAPINFO format = FormatOfRows({Width, Height});
    GdiFlush();
    const HGDIOBJ selected = SelectObject(MemDC, OldBitmap);
    const int count = GetDIBits(MemDC, MemBitmap, 0, static_cast<UINT>(Height), rows->Pixels.data(), &format,
                                DIB_RGB_COLORS);
    const bool isBack = !selected || SelectObject(MemDC, selected);
    TellShortageUnless(count != 0 && isBack);
    rows_.reset();
    if (!isBack) DestroySurface(); // nothing would be drawn from it any more, and nothing on it
    if (count) Borrow(std::move(rows));
    return rows_.get();
}

void pcMemDC::StretchDraw(HDC target, std::int32_t xDst, std::int32_t yDst, std::int32_t widthDst,
                          std::int32_t heightDst, std::int32_t xSrc, std::int32_t ySrc, std::int32_t widthSrc,
                          std::int32_t heightSrc) {
    const std::int32_t width = OrAll(widthSrc, Width), height = OrAll(heightSrc, Height);
    const bool hasEdges = HasEnd(xDst, widthDst) && HasEnd(yDst, heightDst);
    const PixelRows* borrowed = hasEdges ? BorrowedPart({xSrc, ySrc}, {width, height}) : nullptr;
    if (!borrowed) Make();
    const bool onePixel = width == 1 && height == 1 && widthDst > 0 && heightDst > 0;
    if (onePixel && std::int64_t{widthDst} * heightDst >= LargeArea)
        return FillWith(target, borrowed ? ColourOf(borrowed->Row(ySrc)[xSrc]) : GetPixel(MemDC, xSrc, ySrc),
                        xDst, yDst, widthDst, heightDst);
    if (!widthDst || !heightDst) return;
    if (borrowed)
        return TurnedPart(*borrowed, {xSrc, ySrc}, {width, height}, Turn::Plain)
            .Stretch(target, {xDst, yDst, xDst + widthDst, yDst + heightDst});
    if (!MemDC) return;
    TellShortageUnless(
        StretchBlt(target, xDst, yDst, widthDst, heightDst, MemDC, xSrc, ySrc, width, height, SRCCOPY));
}

void pcMemDC::Stretch90Draw(HDC target, std::int32_t xDst, std::int32_t yDst, std::int32_t widthDst,
                            std::int32_t heightDst, std::int32_t xSrc, std::int32_t ySrc,
                            std::int32_t widthSrc, std::int32_t heightSrc) {
    const std::int32_t rows = OrAll(heightSrc, Height);
    // Where the turned pixels are going to cover the whole stretched image, it need not be painted.
    const bool columnExists = xSrc >= 0 && xSrc < Width && ySrc >= 0 && ySrc <= Height - rows;
    const bool covered = columnExists && widthDst >= 0 && widthDst <= rows && heightDst >= 0 &&
                         IsWholeLoop(xDst, rows) && IsWholeLoop(yDst, heightDst);
    if (!covered) StretchDraw(target, xDst, yDst, widthDst, heightDst, xSrc, ySrc, widthSrc, heightSrc);
    RepeatColumn(Turn::Transposed, target, {xSrc, ySrc}, rows, {xDst, yDst}, heightDst);
}

void pcMemDC::Stretch270Draw(HDC target, std::int32_t xDst, std::int32_t yDst, std::int32_t /*widthDst*/,
                             std::int32_t heightDst, std::int32_t xSrc, std::int32_t ySrc,
                             std::int32_t /*widthSrc*/, std::int32_t heightSrc) {
    RepeatColumn(Turn::Clockwise, target, {xSrc, ySrc}, OrAll(heightSrc, Height), {xDst, yDst}, heightDst);
}

void pcMemDC::Stretch180Draw(HDC target, std::int32_t xDst, std::int32_t yDst, std::int32_t widthDst,
                             std::int32_t /*heightDst*/, std::int32_t xSrc, std::int32_t ySrc,
                             std::int32_t /*widthSrc*/, std::int32_t heightSrc) {
    RepeatColumn(Turn::Flipped, target, {xSrc, ySrc}, OrAll(heightSrc, Height), {xDst, yDst}, widthDst);
}

void pcMemDC::RepeatColumn(Turn turn, HDC target, POINT source, std::int32_t height, POINT destination,
                           std::int32_t repeats) {
    if (IsEmptyLoop(height) || IsEmptyLoop(repeats)) return;
    CheckRun(source.y, height);
    CheckRun(destination.x, SwapsAxes(turn) ? height : repeats);
    CheckRun(destination.y, SwapsAxes(turn) ? repeats : height);
    if (const PixelRows* rows = Rows())
        TurnedPart(*rows, source, {1, height}, turn).Repeat(target, destination, repeats);
}

void pcMemDC::Draw(HDC target, std::int32_t xSrc, std::int32_t ySrc, std::int32_t widthSrc,
                   std::int32_t heightSrc, std::int32_t xDst, std::int32_t yDst, bool useMask) {
    const std::int32_t width = OrAll(widthSrc, Width), height = OrAll(heightSrc, Height);
    const PixelRows* rows = useMask ? Rows() : nullptr;
    if (useMask && !rows) return;
    if (rows && HasKey(*rows, {xSrc, ySrc}, {width, height})) {
        TurnedPart(*rows, {xSrc, ySrc}, {width, height}, Turn::Plain).DrawMasked(target, {xDst, yDst});
    } else if (const PixelRows* borrowed = BorrowedPart({xSrc, ySrc}, {width, height})) {
        TurnedPart(*borrowed, {xSrc, ySrc}, {width, height}, Turn::Plain).Draw(target, {xDst, yDst});
    } else {
        Make();
        TellShortageUnless(!MemDC || BitBlt(target, xDst, yDst, width, height, MemDC, xSrc, ySrc, SRCCOPY));
    }
}

void pcMemDC::Plg90Draw(HDC target, std::int32_t xSrc, std::int32_t ySrc, std::int32_t widthSrc,
                        std::int32_t heightSrc, std::int32_t xDst, std::int32_t yDst, bool useMask) {
    PlgDraw(Turn::Transposed, target, {xSrc, ySrc}, {widthSrc, heightSrc}, {xDst, yDst}, useMask);
}

void pcMemDC::Plg270Draw(HDC target, std::int32_t xSrc, std::int32_t ySrc, std::int32_t widthSrc,
                         std::int32_t heightSrc, std::int32_t xDst, std::int32_t yDst, bool useMask) {
    PlgDraw(Turn::Clockwise, target, {xSrc, ySrc}, {widthSrc, heightSrc}, {xDst, yDst}, useMask);
}

void pcMemDC::Plg180Draw(HDC target, std::int32_t xSrc, std::int32_t ySrc, std::int32_t widthSrc,
                         std::int32_t heightSrc, std::int32_t xDst, std::int32_t yDst, bool useMask) {
    PlgDraw(Turn::Flipped, target, {xSrc, ySrc}, {widthSrc, heightSrc}, {xDst, yDst}, useMask);
}

void pcMemDC::PlgDraw(Turn turn, HDC target, POINT source, SIZE size, POINT destination, bool useMask) {
    size = {OrAll(size.cx, Width), OrAll(size.cy, Height)};
    if (IsEmptyLoop(size.cx) || IsEmptyLoop(size.cy)) return;
    CheckRun(source.x, size.cx);
    CheckRun(source.y, size.cy);
    CheckRun(destination.x, SwapsAxes(turn) ? size.cy : size.cx);
    CheckRun(destination.y, SwapsAxes(turn) ? size.cx : size.cy);
    const PixelRows* rows = Rows();
    if (!rows) return;
    const TurnedPart part(*rows, source, size, turn);
    if (useMask && part.HasKey())
        part.DrawMasked(target, destination);
    else
        part.Draw(target, destination);
}

} // namespace vantik
