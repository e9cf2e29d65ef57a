#include "tools/skinview/model/Labels.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

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
    explicit Placing(const std::vector<LabelWish>& wishes) : wishes_(wishes), labels_(wishes.size()) {}

    void Place(std::size_t i) {
        if (Fits(wishes_[i].Rectangle, wishes_[i].Full) && Try(i, Label::Kind::Full)) return;
        Try(i, Label::Kind::Short);
    }

    // A number becomes a name where that leaves all others as they are.
    void Complete(std::size_t i) {
        if (labels_[i].Kind != Label::Kind::Short) return;
        const Label number = std::exchange(labels_[i], {});
        if (!Try(i, Label::Kind::Full)) labels_[i] = number;
    }

    std::vector<Label> Take() { return std::move(labels_); }

private:
    bool IsFree(const PixelBox& place) const noexcept {
        return std::ranges::none_of(labels_, [&](const Label& other) {
            return other.Kind != Label::Kind::None && Meet(place, other.Place);
        });
    }

    bool Try(std::size_t i, enum Label::Kind kind) {
        const LabelWish& wish = wishes_[i];
        const auto places = Candidates(wish.Rectangle, kind == Label::Kind::Full ? wish.Full : wish.Short);
        const auto found = std::ranges::find_if(places, [&](const PixelBox& place) { return IsFree(place); });
        if (found == places.end()) return false;
        labels_[i] = {kind, *found};
        return true;
    }

    const std::vector<LabelWish>& wishes_;
    std::vector<Label> labels_;
};

} // namespace

std::vector<Label> PlaceLabels(const std::vector<LabelWish>& wishes) {
    std::vector<std::size_t> order(wishes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto area = [&](std::size_t i) {
        return std::int64_t{wishes[i].Rectangle.Width()} * wishes[i].Rectangle.Height();
    };
    std::ranges::stable_sort(order, {}, area);
    Placing placing(wishes);
    for (const std::size_t i : order) placing.Place(i);
    for (const std::size_t i : order) placing.Complete(i);
    return placing.Take();
}

} // namespace vantik
