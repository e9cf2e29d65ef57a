#include "check/RectFaults.h"

#include <array>
#include <cstdint>
#include <string>

#include "check/Words.h"
#include "model/Enumerations.h"

namespace vantik {

namespace {

enum Edge : std::size_t { LeftEdge, RightEdge, TopEdge, BottomEdge };

constexpr std::int32_t LastDrawn = FRightLine;

// A rectangle as the definition's last entry for it gives it.
struct GivenRect {
    std::int32_t Index = 0;
    SkinRect Rect;
    const DefinitionLine* Line = nullptr; // null: not given, or not as it should be

    std::size_t At(Edge edge) const { return Line->Numbers[edge].Begin; }
    std::string Text() const { return RectText(Index); }
};

using GivenRects = std::array<GivenRect, LastDrawn + 1>;

GivenRects RectsOf(const DefinitionText& text) {
    GivenRects given;
    for (std::int32_t i = 0; i <= LastDrawn; ++i) {
        GivenRect& each = given[static_cast<std::size_t>(i)];
        each.Index = i;
        const DefinitionLine* const line = text.EntryOf(i);
        const auto rect = line ? text.RectOf(*line) : std::nullopt;
        if (rect) each = {i, *rect, line};
    }
    return given;
}

// Of these nothing but the height counts; the built-in skin's BRect has its right before its left.
bool IsMeasure(std::int32_t index) noexcept { return index == TabRect || index == BRect; }

bool IsFill(std::int32_t index) noexcept { return index >= FillPic0 && index < LeftPic0; }

// A part of a bar, of which there are three looks.
bool IsOfBar(std::int32_t index) noexcept { return index >= FillPic0 && index < RLeftTopPic; }

// The looks of a part follow each other: normal, hover, active.
std::size_t ActiveLookOf(std::int32_t index) noexcept {
    constexpr std::int32_t Looks = 3;
    return static_cast<std::size_t>(FillPic0 + (index - FillPic0) / Looks * Looks + BarActive);
}

// --- each by itself

constexpr const char* NothingDrawn = "The control draws nothing of it.";

const char* EffectOfNoExtent(std::int32_t index) noexcept {
    return IsMeasure(index) ? "The control places bars and page as if this were so." : NothingDrawn;
}

void ReportExtent(const GivenRect& given, std::int32_t extent, Edge last, const char* reversed,
                  const char* zero, Report& report) {
    if (extent > 0) return;
    report.Error(given.At(last), {.What = given.Text() + (extent == 0 ? zero : reversed),
                                  .Effect = EffectOfNoExtent(given.Index)});
}

void ReportExtents(const GivenRect& given, Report& report) {
    if (given.Index == FBackPic) return; // a single pixel counts
    if (!IsMeasure(given.Index))
        ReportExtent(given, given.Rect.Width, RightEdge, " has its right edge before its left one",
                     " is 0 pixels wide, for both edges are inclusive", report);
    ReportExtent(given, given.Rect.Height, BottomEdge, " has its bottom edge above its top one",
                 " is 0 pixels high, for both edges are inclusive", report);
}

void ReportOutside(const GivenRect& given, Edge edge, std::int32_t value, std::int32_t size,
                   const char* extent, Report& report) {
    if (value >= 0 && value < size) return;
    report.Error(given.At(edge),
                 {.What = given.Text() + " lies outside the bitmap, which is " + std::to_string(size) +
                          " pixels " + extent,
                  .Effect = "What lies outside is not drawn, or shows a part of a larger skin that was "
                            "loaded before."});
}

void ReportOutside(const GivenRect& given, const BitmapFormat& bitmap, Report& report) {
    if (IsMeasure(given.Index)) return;
    ReportOutside(given, LeftEdge, given.Rect.Left, bitmap.Width, "wide", report);
    ReportOutside(given, TopEdge, given.Rect.Top, bitmap.Height, "high", report);
    if (given.Index == FBackPic) return;
    ReportOutside(given, RightEdge, given.Rect.Right, bitmap.Width, "wide", report);
    ReportOutside(given, BottomEdge, given.Rect.Bottom, bitmap.Height, "high", report);
}

void ReportWideFill(const GivenRect& given, Report& report) {
    if (!IsFill(given.Index) || given.Rect.Width <= 1) return;
    report.Warn(given.At(RightEdge),
                {.What = given.Text() + " is more than one column",
                 .Effect = "On the top the control stretches all of it, elsewhere it repeats the "
                           "first column."});
}

// --- beside each other

std::string Pixels(std::int32_t count) { return std::to_string(count) + (count == 1 ? " pixel" : " pixels"); }

void ReportTallerThanRow(const GivenRect& given, const GivenRect& row, Report& report) {
    if (!row.Line || row.Rect.Height <= 0 || given.Rect.Height <= row.Rect.Height) return;
    report.Warn(given.At(BottomEdge), {.What = given.Text() + " is " + Pixels(given.Rect.Height) +
                                               " high and the row (BRect) " + Pixels(row.Rect.Height),
                                       .Effect = "The control cuts off what is higher than the row."});
}

// Pieces stand on the row's inner edge by the height of their active look.
void ReportTallerThanActive(const GivenRect& given, const GivenRects& all, Report& report) {
    const GivenRect& active = all[ActiveLookOf(given.Index)];
    if (!active.Line || active.Rect.Height <= 0 || given.Rect.Height <= active.Rect.Height) return;
    report.Warn(given.At(BottomEdge),
                {.What = given.Text() + " is higher than its active look, " + active.Text(),
                 .Effect = "It begins above the row, where the control cuts it off."});
}

void ReportUnequalEdges(const GivenRect& right, const GivenRect& bottom, Report& report) {
    if (!right.Line || !bottom.Line || right.Rect.Width == bottom.Rect.Width) return;
    report.Warn(right.At(RightEdge),
                {.What = right.Text() + " is " + Pixels(right.Rect.Width) + " wide and " + bottom.Text() +
                         " " + Pixels(bottom.Rect.Width),
                 .Effect = "The control places the page's right edge by FBottomLine's width, so "
                           "that it stands off its place."});
}

// --- all

std::string NamesOfMissing(const DefinitionText& text) {
    std::string names;
    for (std::int32_t i = 0; i <= LastDrawn; ++i)
        if (!text.EntryOf(i)) names += (names.empty() ? "" : ", ") + RectText(i);
    return names;
}

void ReportMissing(const DefinitionText& text, Report& report) {
    const std::string names = NamesOfMissing(text);
    for (const DefinitionLine& line : text.Lines()) {
        if (names.empty() || line.Kind != LineKind::Section || line.Section != SectionKind::Tab) continue;
        return report.Warn(
            line.Content.Begin,
            {.What = "not given: " + names,
             .Effect = "The control keeps what it had for them from an earlier skin; at first nothing."});
    }
}

} // namespace

void ReportRects(const DefinitionText& text, const std::optional<BitmapFormat>& bitmap, Report& report) {
    const GivenRects all = RectsOf(text);
    ReportMissing(text, report);
    for (const GivenRect& given : all) {
        if (!given.Line) continue;
        ReportExtents(given, report);
        ReportWideFill(given, report);
        if (bitmap) ReportOutside(given, *bitmap, report);
        if (!IsOfBar(given.Index)) continue;
        ReportTallerThanRow(given, all[BRect], report);
        ReportTallerThanActive(given, all, report);
    }
    ReportUnequalEdges(all[FRightLine], all[FBottomLine], report);
}

} // namespace vantik
