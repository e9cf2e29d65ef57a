// The whole host: its controls, what it does next, and what it does when a control calls it.
#pragma once

#include <VantikFrameTabProject.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/ControlModule.h"
#include "host/OleApartment.h"
#include "hostile/random/GdiCensus.h"
#include "hostile/random/Journal.h"
#include "hostile/random/MemberList.h"
#include "hostile/random/ModalCloser.h"
#include "hostile/random/Random.h"

namespace vantik {

class RandomBag;

// Where a control stands, or may stand.
struct Place {
    struct Connection {
        IID Point;
        DWORD Cookie;
    };

    int Number = 0;
    HWND Form = nullptr; // on which its window stands
    ComPtr<IUnknown> Control;
    ComPtr<IOleClientSite> Site; // a RandomSite
    std::vector<Connection> Connections;
    bool IsTrue =
        true; // nobody gave it, as saved or as an event's answer, an active tab that it does not have
};

class World {
public:
    World(std::uint64_t seed, bool prints);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    Random Draw;
    Journal Log;

    // One action, and whatever it leads to; throws HostError when a control is not as it has to be after it.
    void Act();

    // Everything goes, the module too.
    void End();

    // For a call of a control's: does things inside it, and says how it ended.
    HRESULT Called(const char* call) noexcept;
    void Visit(const char* call) noexcept;
    HRESULT Answer(const char* call) noexcept;
    bool IsRough(std::size_t chances) noexcept; // so often, while the host is in the mood for it

    // Doing
    void DoSomething();
    void Create(Place& place);
    void Drop(Place& place);
    void Reload(); // the module, without any control; only where no control is at work
    bool IsOutermost() const noexcept { return depth_ <= 1; }
    void Pump();

    Place& AnyPlace() noexcept { return places_[static_cast<std::size_t>(Draw.Below(places_.size()))]; }
    std::vector<Place>& Places() noexcept { return places_; }
    HWND FormOf(Place& place); // made anew when it is gone
    ControlModule& Module() noexcept { return *module_; }
    const std::vector<MemberOfControl>& Members() const noexcept { return members_; }
    void Keep(ComPtr<RandomBag> bag); // to be loaded from later
    ComPtr<RandomBag> KeptBag() noexcept;
    void Keep(std::vector<std::byte> stream);
    std::vector<std::byte> KeptStream();

private:
    class Deeper;
    void ChangeMood() noexcept;
    void CheckAll();
    void LoadModule();

    OleApartment apartment_;
    ModalCloser closer_{*this};
    std::unique_ptr<ControlModule> module_;
    std::vector<MemberOfControl> members_;
    std::vector<Place> places_{3};
    std::vector<ComPtr<RandomBag>> bags_;
    std::vector<std::vector<std::byte>> streams_;
    DWORD thread_ = GetCurrentThreadId();
    long actions_ = 0;
    int depth_ = 0, left_ = 0;            // nested actions that this one may still lead to
    std::size_t mood_ = 0;                // 0: polite; otherwise one answer in so many is a failure
    bool quiet_ = false;                  // checks are under way
    std::optional<GdiCensus> gdiObjects_; // without any control, when they were counted first
};

// The interface of a place's control for one call: held as a careful host holds it, or not, as one does that counts on the
// control to outlive its own call.
template <class Interface>
class Lent {
public:
    Lent(World& world, const Place& place)
        : object_(place.Control.As<Interface>()), borrowed_(object_.Get()) {
        if (world.Draw.OneIn(2)) object_.Reset();
    }
    explicit operator bool() const noexcept { return borrowed_ != nullptr; }
    Interface* operator->() const noexcept { return borrowed_; }
    Interface* Get() const noexcept { return borrowed_; }

private:
    ComPtr<Interface> object_;
    Interface* borrowed_;
};

HWND WindowOf(const Place& place) noexcept; // of its control

} // namespace vantik
