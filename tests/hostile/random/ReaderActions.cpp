// Calls of those who read the control for people who cannot see it.
#include <oleacc.h>

#include "hostile/random/Actions.h"
#include "hostile/random/RandomVariant.h"

namespace vantik {

namespace {

using Part = ComPtr<IAccessible>;

// The control, or something in it.
Part AnyPart(World& world, const Place& place) {
    Part part;
    constexpr auto client = static_cast<DWORD>(OBJID_CLIENT);
    // Not IID_IAccessible: the import library of oleacc has a function of that name, which may be linked in its place.
    if (FAILED(AccessibleObjectFromWindow(WindowOf(place), client, __uuidof(IAccessible), part.PutVoid())))
        return nullptr;
    for (int depth = world.Draw.Below(3); part && depth > 0; --depth) {
        LONG count = 0;
        part->get_accChildCount(&count);
        const Variant id(1 + world.Draw.Below(static_cast<std::size_t>(count) + 1));
        ComPtr<IDispatch> child;
        if (part->get_accChild(id.Get(), child.Put()) != S_OK) break;
        part = child.As<IAccessible>();
    }
    return part;
}

// Mostly the object itself.
VARIANT Child(World& world) {
    return Variant(world.Draw.OneIn(3) ? world.Draw.Number() : CHILDID_SELF).Get();
}

void Read(World& world, Place& place) {
    const Part part = AnyPart(world, place);
    if (!part) return;
    for (const auto member :
         {&IAccessible::get_accName, &IAccessible::get_accDescription, &IAccessible::get_accValue,
          &IAccessible::get_accDefaultAction, &IAccessible::get_accHelp}) {
        Bstr text;
        world.Log.Result((part.Get()->*member)(Child(world), text.Put()));
    }
    for (const auto member : {&IAccessible::get_accRole, &IAccessible::get_accState}) {
        Variant number;
        world.Log.Result((part.Get()->*member)(Child(world), number.Put()));
    }
    LONG x = 0, y = 0, width = 0, height = 0;
    world.Log.Result(part->accLocation(&x, &y, &width, &height, Child(world)));
}

void Walk(World& world, Place& place) {
    const Part part = AnyPart(world, place);
    if (!part) return;
    Variant found;
    world.Log.Result(part->accNavigate(world.Draw.Below(12), Child(world), found.Put()));
    world.Log.Result(part->accHitTest(world.Draw.Number(), world.Draw.Number(), found.Put()));
    part->get_accFocus(found.Put());
    part->get_accSelection(found.Put());
    ComPtr<IDispatch> parent;
    world.Log.Result(part->get_accParent(parent.Put()));
    const auto children = part.As<IEnumVARIANT>();
    if (!children) return;
    VARIANT items[3] = {};
    ULONG fetched = 0;
    children->Skip(static_cast<ULONG>(world.Draw.Number()));
    if (world.Draw.OneIn(2)) children->Reset();
    world.Log.Result(children->Next(3, items, &fetched));
    for (VARIANT& item : items) VariantClear(&item);
}

// Does what a press or a key does, with all that the host does in its events.
void Act(World& world, Place& place) {
    const Part part = AnyPart(world, place);
    if (!part) return;
    world.Log.Result(world.Draw.OneIn(3) ? part->accSelect(world.Draw.Below(64), Child(world))
                                         : part->accDoDefaultAction(Child(world)));
    Variant state;
    part->get_accState(Child(world), state.Put()); // of what may be gone by now
}

void ReadAnything(World& world, Place& place) {
    const Part part = AnyPart(world, place);
    if (!part) return;
    const RandomVariant id(world), other(world);
    Bstr text;
    Variant value;
    world.Log.Result(part->get_accName(id.Get(), text.Put()));
    world.Log.Result(part->get_accState(other.Get(), value.Put()));
    world.Log.Result(part->accNavigate(world.Draw.Number(), id.Get(), value.Put()));
    world.Log.Result(part->accSelect(world.Draw.Number(), other.Get()));
}

constexpr Action All[] = {
    {"read", 3, Read}, {"walk", 3, Walk}, {"act", 4, Act}, {"read anything", 1, ReadAnything}};

} // namespace

Actions ReaderActions() noexcept { return All; }

} // namespace vantik
