#include "hostile/random/World.h"

#include <algorithm>
#include <cstdlib>

#include "host/BuiltControl.h"
#include "hostile/random/Actions.h"
#include "hostile/random/Invariants.h"
#include "hostile/random/RandomBag.h"
#include "hostile/random/RandomSinks.h"
#include "hostile/random/RandomSite.h"

namespace vantik {

namespace {

constexpr int Deepest = 4;
constexpr std::size_t MostKept = 8;

constexpr HRESULT Failures[] = {E_FAIL,
                                E_NOTIMPL,
                                E_OUTOFMEMORY,
                                E_UNEXPECTED,
                                E_ABORT,
                                RPC_E_DISCONNECTED,
                                RPC_E_CALL_REJECTED,
                                DISP_E_EXCEPTION,
                                DISP_E_MEMBERNOTFOUND,
                                static_cast<HRESULT>(0x800A0005),
                                static_cast<HRESULT>(0x80070005),
                                static_cast<HRESULT>(0x8000FFFE)};

// Of its group, by the weights.
const Action& Choose(Random& draw, Actions actions) {
    int total = 0;
    for (const Action& each : actions) total += each.Weight;
    int place = draw.Below(static_cast<std::size_t>(total));
    for (const Action& each : actions)
        if ((place -= each.Weight) < 0) return each;
    return actions.front();
}

Actions ChooseGroup(Random& draw) {
    const int number = draw.Below(100);
    if (number < 40) return MemberActions();
    if (number < 68) return WindowActions();
    if (number < 85) return ObjectActions();
    if (number < 90) return PersistenceActions();
    if (number < 94) return ReaderActions();
    return number < 97 ? ViewActions() : LifeActions();
}

} // namespace

HWND WindowOf(const Place& place) noexcept {
    HWND window = nullptr;
    if (const auto object = place.Control.As<IOleWindow>()) object->GetWindow(&window);
    return window;
}

class World::Deeper {
public:
    explicit Deeper(World& world) : world_(world) { world_.Log.Depth(++world_.depth_); }
    ~Deeper() { world_.Log.Depth(--world_.depth_); }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

private:
    World& world_;
};

World::World(std::uint64_t seed, bool prints) : Draw(seed), Log(seed, prints) {
    for (std::size_t i = 0; i < places_.size(); ++i) places_[i].Number = static_cast<int>(i);
    LoadModule();
}

World::~World() = default;

void World::LoadModule() {
    module_ = std::make_unique<ControlModule>(FindBuiltControl());
    members_ = MembersOf(module_->Members());
}

void World::ChangeMood() noexcept {
    static constexpr std::size_t Moods[] = {0, 0, 50, 12, 3};
    mood_ = Draw.Of(Moods);
}

bool World::IsRough(std::size_t chances) noexcept {
    return !quiet_ && mood_ && Draw.OneIn(chances * (mood_ > 12 ? 4 : 1));
}

HRESULT World::Answer(const char* call) noexcept {
    if (quiet_ || !mood_ || !Draw.OneIn(mood_)) return S_OK;
    const HRESULT failure = Draw.Of(Failures);
    Log.Note(std::string(call) + " fails");
    return failure;
}

HRESULT World::Called(const char* call) noexcept {
    Visit(call);
    return Answer(call);
}

// Calls on other threads come from what another thread let go: they have no business here.
void World::Visit(const char* call) noexcept {
    if (quiet_ || depth_ >= Deepest || left_ <= 0 || GetCurrentThreadId() != thread_ || !Draw.OneIn(6))
        return;
    try {
        Log.Note(std::string("inside ") + call);
        for (int i = Draw.Between(1, 2); i > 0; --i, --left_) DoSomething();
    } catch (const std::exception& error) {
        Log.PrintEnd(error.what());
        std::_Exit(1);
    }
}

void World::DoSomething() {
    const Deeper deeper(*this);
    Place& place = AnyPlace();
    Actions group = ChooseGroup(Draw);
    if (!place.Control) group = LifeActions();
    const Action& action = Choose(Draw, group);
    Log.Note(std::to_string(place.Number) + " " + action.Name);
    action.Do(*this, place);
}

void World::Act() {
    Log.Number(++actions_);
    if (actions_ % 100 == 1) ChangeMood();
    left_ = 12;
    DoSomething();
    CheckAll();
}

void World::CheckAll() {
    quiet_ = true;
    for (Place& place : places_) CheckControl(place);
    if (actions_ % 64 == 0) CheckProcess();
    quiet_ = false;
}

void World::Create(Place& place) {
    place.IsTrue = true;
    place.Control = module_->Create();
    const ComPtr<IUnknown> control = place.Control; // which may go while it comes
    if (Draw.OneIn(8)) return;
    place.Site = MakeCom<RandomSite>(*this, place.Number).As<IOleClientSite>();
    const ComPtr<IOleClientSite> site = place.Site;
    FormOf(place);
    control.As<IOleObject>()->SetClientSite(site.Get());
    if (!Draw.OneIn(4)) control.As<IPersistStreamInit>()->InitNew();
    if (const auto tab = control.As<::_VantikFrameTab>())
        tab->put_TabCount(static_cast<short>(Draw.Between(1, 9)));
    if (!Draw.OneIn(4))
        control.As<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, site.Get(), 0, place.Form, nullptr);
}

void World::Drop(Place& place) {
    if (!place.Control) return;
    const HWND window = WindowOf(place);
    if (Draw.OneIn(2)) place.Control.As<IOleObject>()->Close(OLECLOSE_NOSAVE);
    if (place.Control && Draw.OneIn(2)) place.Control.As<IOleObject>()->SetClientSite(nullptr);
    place.Connections.clear();
    place.Site = nullptr;
    IUnknown* const last = ComPtr<IUnknown>(place.Control).Copy();
    if (!last) return;
    place.Control = nullptr;
    const ULONG left = last->Release();
    if (!IsOutermost()) return; // it is at work, perhaps
    if (left) throw HostError("a control that nobody holds has references left");
    if (IsWindow(window)) throw HostError("the window outlived its control");
}

void World::Pump() {
    MSG message;
    for (int i = 0; i < 100 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        constexpr UINT SystemTimer = 0x118; // what time brings is no two times the same
        if (message.message == WM_TIMER || message.message == SystemTimer || message.message == WM_QUIT)
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

HWND World::FormOf(Place& place) {
    if (!IsWindow(place.Form))
        place.Form = CreateWindowExW(0, L"STATIC", L"form", WS_POPUP | WS_VISIBLE, 0, 0, 500, 400, nullptr,
                                     nullptr, nullptr, nullptr);
    return place.Form;
}

void World::Keep(ComPtr<RandomBag> bag) {
    if (bags_.size() >= MostKept) bags_.erase(bags_.begin());
    bags_.push_back(std::move(bag));
}

ComPtr<RandomBag> World::KeptBag() noexcept {
    if (bags_.empty()) bags_.push_back(MakeCom<RandomBag>(*this, RandomBag::Kind::Good));
    return bags_[static_cast<std::size_t>(Draw.Below(bags_.size()))];
}

void World::Keep(std::vector<std::byte> stream) {
    if (streams_.size() >= MostKept) streams_.erase(streams_.begin());
    streams_.push_back(std::move(stream));
}

std::vector<std::byte> World::KeptStream() {
    if (streams_.empty()) return {};
    return streams_[static_cast<std::size_t>(Draw.Below(streams_.size()))];
}

void World::Reload() {
    for (Place& place : places_) Drop(place);
    bags_.clear(); // whose values may be objects of the module
    Pump();
    for (const Place& place : places_)
        if (place.Control) return; // made again meanwhile
    if (!module_->CanUnload()) throw HostError("without any control the module cannot be unloaded");
    module_.reset();
    if (GetModuleHandleW(L"VantikFrameTab.ocx")) throw HostError("the module stays loaded");
    const GdiCensus census = GdiCensus::Take();
    if (!gdiObjects_) gdiObjects_ = census;
    constexpr int Cached =
        100; // the system keeps device contexts of windows and their regions for the next ones
    if (census.HasGrown(*gdiObjects_, Cached))
        throw HostError("GDI objects left:" + census.Since(*gdiObjects_));
    LoadModule();
}

void World::End() {
    const Deeper deeper(*this);
    left_ = 0;
    Log.Note("the end");
    Reload();
}

} // namespace vantik
