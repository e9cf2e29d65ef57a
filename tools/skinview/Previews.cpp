#include "Previews.h"

namespace vantik {

void Previews::Show(const PreviewSkin& skin) {
    All made;
    for (std::size_t i = 0; i < made.size(); ++i)
        made[i] = std::make_unique<Preview>(module_, parent_, Sides[i], places_[i], skin);
    for (const auto& preview : made) preview->Show();
    previews_ = std::move(made);
}

void Previews::MoveTo(const Places& places) {
    places_ = places;
    for (std::size_t i = 0; i < places.size(); ++i)
        if (previews_[i]) previews_[i]->MoveTo(places[i]);
}

bool Previews::TranslateMessage(MSG& message) {
    for (const auto& preview : previews_)
        if (preview && preview->TranslateMessage(message)) return true;
    return false;
}

} // namespace vantik
