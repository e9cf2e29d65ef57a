// Controls come and go.
#include "hostile/Worker.h"
#include "hostile/random/Actions.h"
#include "hostile/random/RandomSite.h"

namespace vantik {

namespace {

void Create(World& world, Place& place) {
    if (!place.Control) world.Create(place);
}

void Drop(World& world, Place& place) { world.Drop(place); }

// The window, if there is one, goes when its thread comes by.
void DropElsewhere(World& world, Place& place) {
    place.Connections.clear();
    place.Site = nullptr;
    ComPtr<IUnknown> last = std::exchange(place.Control, nullptr);
    if (!world.IsOutermost()) return;
    Worker().Do([&] { last.Reset(); });
    world.Pump();
}

void Reload(World& world, Place&) {
    if (world.IsOutermost() && world.Draw.OneIn(10)) world.Reload();
}

void ChangeForm(World& world, Place& place) {
    if (world.Draw.OneIn(2) && place.Form) DestroyWindow(place.Form);
    world.FormOf(place);
}

constexpr Action All[] = {{"create", 12, Create},
                          {"drop", 3, Drop},
                          {"drop elsewhere", 1, DropElsewhere},
                          {"reload", 1, Reload},
                          {"change form", 1, ChangeForm}};

} // namespace

Actions LifeActions() noexcept { return All; }

} // namespace vantik
