// Saving and loading, by bags, streams and storages that are good, wild or broken.
#include "hostile/random/Actions.h"
#include "hostile/random/RandomBag.h"
#include "hostile/random/RandomStream.h"
#include "hostile/random/RandomVariant.h"

namespace vantik {

namespace {

void InitNew(World& world, Place& place) {
    if (world.Draw.OneIn(2)) {
        const Lent<IPersistStreamInit> object(world, place);
        world.Log.Result(object->InitNew());
    } else {
        const Lent<IPersistPropertyBag> object(world, place);
        world.Log.Result(object->InitNew());
    }
}

void SaveBag(World& world, Place& place) {
    const Lent<IPersistPropertyBag> object(world, place);
    const auto bag =
        MakeCom<RandomBag>(world, world.Draw.OneIn(5) ? RandomBag::Kind::Broken : RandomBag::Kind::Good);
    world.Log.Result(object->Save(bag.Get(), world.Draw.OneIn(2), world.Draw.OneIn(2)));
    world.Keep(bag);
}

// What is loaded may be any active tab, which the control takes as it is.
void LoadBag(World& world, Place& place) {
    static constexpr RandomBag::Kind Kinds[] = {RandomBag::Kind::Good, RandomBag::Kind::Good,
                                                RandomBag::Kind::Wild, RandomBag::Kind::Broken};
    place.IsTrue = false;
    const Lent<IPersistPropertyBag> object(world, place);
    const auto bag = world.KeptBag();
    bag->Now(world.Draw.Of(Kinds));
    const auto log = MakeCom<RandomErrorLog>(world);
    world.Log.Result(
        object->Load(world.Draw.OneIn(40) ? nullptr : bag.Get(), world.Draw.OneIn(2) ? log.Get() : nullptr));
}

void SaveStream(World& world, Place& place) {
    const Lent<IPersistStreamInit> object(world, place);
    const auto stream = MakeCom<RandomStream>(world, std::vector<std::byte>(), world.Draw.OneIn(5));
    world.Log.Result(object->Save(stream.Get(), world.Draw.OneIn(2)));
    world.Keep(stream->Bytes());
    const auto again = place.Control.As<IPersistStreamInit>();
    if (!again) return;
    ULARGE_INTEGER size = {};
    world.Log.Result(again->GetSizeMax(world.Draw.OneIn(10) ? nullptr : &size));
    world.Log.Result(again->IsDirty());
}

// A saved stream, as it was or with a few bytes changed, cut off or more.
std::vector<std::byte> Damaged(World& world) {
    std::vector<std::byte> bytes = world.KeptStream();
    if (world.Draw.OneIn(3)) return bytes;
    for (int i = world.Draw.Below(6); i > 0 && !bytes.empty(); --i)
        bytes[static_cast<std::size_t>(world.Draw.Below(bytes.size()))] =
            static_cast<std::byte>(world.Draw.Number());
    if (world.Draw.OneIn(4)) bytes.resize(static_cast<std::size_t>(world.Draw.Below(bytes.size() + 20)));
    return bytes;
}

void LoadStream(World& world, Place& place) {
    place.IsTrue = false;
    const Lent<IPersistStreamInit> object(world, place);
    const auto stream = MakeCom<RandomStream>(world, Damaged(world), world.Draw.OneIn(5));
    world.Log.Result(object->Load(world.Draw.OneIn(40) ? nullptr : stream.Get()));
}

void Storage(World& world, Place& place) {
    const Lent<IPersistStorage> object(world, place);
    const auto stream = MakeCom<RandomStream>(world, Damaged(world), world.Draw.OneIn(5));
    const auto storage = MakeCom<RandomStorage>(world, stream);
    const auto given = world.Draw.OneIn(20) ? nullptr : storage.Get();
    switch (world.Draw.Below(4)) {
    case 0: world.Log.Result(object->InitNew(given)); return;
    case 1:
        place.IsTrue = false;
        world.Log.Result(object->Load(given));
        return;
    case 2: world.Log.Result(object->Save(given, world.Draw.OneIn(2))); return;
    default:
        world.Log.Result(object->SaveCompleted(given));
        const Lent<IPersistStorage> again(world, place);
        if (again) again->HandsOffStorage();
        return;
    }
}

constexpr Action All[] = {
    {"init new", 2, InitNew},          {"save to bag", 2, SaveBag},         {"load from bag", 3, LoadBag},
    {"save to stream", 2, SaveStream}, {"load from stream", 3, LoadStream}, {"storage", 2, Storage}};

} // namespace

Actions PersistenceActions() noexcept { return All; }

} // namespace vantik
