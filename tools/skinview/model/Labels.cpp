#include "tools/skinview/model/Labels.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace vantik {

namespace {

bool Meet(const PixelBox& a, const PixelBox& b) noexcept {
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

bool Fits(const PixelBox& box, ViewSize size) noexcept {
    return box.Width() >= size.Width && box.Height() >= size.Height;
}

PixelBox At(std::int32_t left, std::int32_t top, ViewSize size) noexcept {
    return {left, top, left + size.Width, top + size.Height};
}

PixelBox CentredOver(const PixelBox& box, std::int32_t top, ViewSize size) noexcept {
    return At(box.Left + (box.Width() - size.Width) / 2, top, size);
}

// Inside the rectangle where it is large enough, then above and below it.
std::vector<PixelBox> Candidates(const PixelBox& box, ViewSize size) {
    std::vector<PixelBox> places;
    if (Fits(box, size)) {
        places.push_back(CentredOver(box, box.Top + (box.Height() - size.Height) / 2, size));
        places.push_back(At(box.Left, box.Top, size));
        places.push_back(At(box.Left, box.Bottom - size.Height, size));
        places.push_back(At(box.Right - size.Width, box.Top, size));
    }
    places.push_back(CentredOver(box, box.Top - size.Height - 1, size));
    places.push_back(CentredOver(box, box.Bottom + 1, size));
    return places;
}

class Placing {
public:
    bool Try(const PixelBox& box, ViewSize size, Label& label, enum Label::Kind kind) {
        for (const PixelBox& place : Candidates(box, size)) {
            if (std::ranges::any_of(taken_, [&](const PixelBox& other) { return Meet(place, other); }))
                continue;
            taken_.push_back(place);
            label = {kind, place};
            return true;
        }
        return false;
    }

private:
    std::vector<PixelBox> taken_;
};

} // namespace

std::vector<Label> PlaceLabels(const std::vector<LabelWish>& wishes) {
    std::vector<std::size_t> order(wishes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto area = [&](std::size_t i) {
        return std::int64_t{wishes[i].Rectangle.Width()} * wishes[i].Rectangle.Height();
    };
    std::ranges::stable_sort(order, {}, area);
    std::vector<Label> labels(wishes.size());
    Placing placing;
    for (const std::size_t i : order) {
        const LabelWish& wish = wishes[i];
        if (Fits(wish.Rectangle, wish.Full) &&
            placing.Try(wish.Rectangle, wish.Full, labels[i], Label::Kind::Full))
            continue;
        placing.Try(wish.Rectangle, wish.Short, labels[i], Label::Kind::Short);
    }
    return labels;
}

} // namespace vantik
