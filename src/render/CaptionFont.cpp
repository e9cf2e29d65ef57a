#include "render/CaptionFont.h"

#include "base/Checked.h"

namespace vantik {

namespace {

constexpr LONGLONG MeasuringSize = 12 * 10000; // points, in the unit of the font object

} // namespace

HFONT HandleOf(IFontDisp* object) noexcept {
    const ComPtr<IFont> font = QueryFor<IFont>(object);
    HFONT handle = nullptr;
    return font && SUCCEEDED(font->get_hFont(&handle)) ? handle : nullptr;
}

std::int16_t CaptionTextHeightOf(IFontDisp* object, HDC surface) {
    // On a copy, so that nobody who shares the font object sees it change.
    const ComPtr<IFont> font = QueryFor<IFont>(object);
    ComPtr<IFont> copy;
    if (font) font->Clone(copy.Put());
    CY size = {};
    size.int64 = MeasuringSize;
    HFONT handle = nullptr;
    if (copy && SUCCEEDED(copy->put_Size(size))) copy->get_hFont(&handle);
    const Selection selection = Select(surface, handle);
    SIZE extent = {};
    GetTextExtentPoint32W(surface, L"A", 1, &extent);
    return Narrow<std::int16_t>(extent.cy);
}

} // namespace vantik
