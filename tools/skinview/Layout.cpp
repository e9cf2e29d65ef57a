#include "Layout.h"

#include <algorithm>

namespace vantik {

namespace {

constexpr int Gap = 10, HeadHeight = 16, HeadGap = 4, StatusHeight = 18;

class Arranging {
public:
    Arranging(SIZE client, int dotsPerInch)
        : dotsPerInch_(dotsPerInch),
          width_(static_cast<int>(client.cx)),
          height_(static_cast<int>(client.cy)) {}

    Layout Make() const {
        Layout layout = {};
        const int status = height_ - Scaled(StatusHeight) - Scaled(Gap) / 2;
        layout.Status = {Scaled(Gap), status, std::max(width_ - 2 * Scaled(Gap), 0), Scaled(StatusHeight)};
        const int faults = std::clamp(height_ / 8, Scaled(80), Scaled(140));
        const int split = status - Scaled(Gap) / 2 - faults;
        Split({Scaled(Gap), split, width_ - 2 * Scaled(Gap), faults}, layout.FaultsHead, layout.Faults);
        const int left = (width_ - 3 * Scaled(Gap)) / 2;
        MakeLeft(layout, {Scaled(Gap), Scaled(Gap), left, split - 2 * Scaled(Gap)});
        MakeRight(layout, {left + 2 * Scaled(Gap), Scaled(Gap), width_ - left - 3 * Scaled(Gap),
                           split - 2 * Scaled(Gap)});
        return layout;
    }

private:
    int Scaled(int length) const noexcept { return MulDiv(length, dotsPerInch_, 96); }

    // A heading and what it is the heading of.
    void Split(Box whole, Box& head, Box& body) const noexcept {
        const int height = Scaled(HeadHeight + HeadGap);
        head = {whole.Left, whole.Top, whole.Width, Scaled(HeadHeight)};
        body = {whole.Left, whole.Top + height, std::max(whole.Width, 0), std::max(whole.Height - height, 0)};
    }

    void MakeLeft(Layout& layout, Box column) const noexcept {
        const int pieces = std::clamp(column.Height / 3, Scaled(90), Scaled(240));
        const int bitmap = column.Height - pieces - Scaled(Gap);
        Split({column.Left, column.Top, column.Width, bitmap}, layout.BitmapHead, layout.Bitmap);
        Split({column.Left, column.Top + bitmap + Scaled(Gap), column.Width, pieces}, layout.PiecesHead,
              layout.Pieces);
    }

    // Bars that lie need width: theirs is the whole column.
    void MakeRight(Layout& layout, Box column) const noexcept {
        const int lying = std::clamp(column.Height / 5, Scaled(110), Scaled(180));
        const int standing = column.Height - 2 * (lying + Scaled(Gap));
        const int half = (column.Width - Scaled(Gap)) / 2;
        const int second = column.Top + lying + Scaled(Gap), third = second + lying + Scaled(Gap);
        const std::array<Box, 4> places = {
            Box{column.Left, column.Top, column.Width, lying}, Box{column.Left, second, column.Width, lying},
            Box{column.Left, third, half, standing},
            Box{column.Left + half + Scaled(Gap), third, column.Width - half - Scaled(Gap), standing}};
        for (std::size_t i = 0; i < places.size(); ++i)
            Split(places[i], layout.PreviewHeads[i], layout.Previews[i]);
    }

    int dotsPerInch_, width_, height_;
};

} // namespace

Layout LayoutFor(SIZE client, int dotsPerInch) { return Arranging(client, dotsPerInch).Make(); }

} // namespace vantik
