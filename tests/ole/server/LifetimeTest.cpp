// A thousand controls come and go, and nothing of them stays.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/Input.h"

namespace vantik {

namespace {

int CountOf(DWORD kind) { return static_cast<int>(GetGuiResources(GetCurrentProcess(), kind)); }

// Where the system does not count, the handle values are walked.
int GdiObjects() {
    if (const int counted = CountOf(GR_GDIOBJECTS)) return counted;
    int objects = 0;
    for (ULONG_PTR handle = 0; handle < 65536; ++handle)
        objects += GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0;
    return objects;
}

int UserObjects() {
    if (const int counted = CountOf(GR_USEROBJECTS)) return counted;
    int windows = 0;
    for (ULONG_PTR handle = 0; handle < 65536; ++handle)
        windows += IsWindow(reinterpret_cast<HWND>(handle)) != 0;
    return windows;
}

void LiveOnce(HostForm& form, TextPropertyBag& bag) {
    form.OpenFrom(bag);
    IDispatch& tab = form.Control();
    Put(tab, L"TabPos", std::int32_t{0});
    Put(tab, L"TabPos", std::int32_t{2});
    Call(tab, L"InsertTab", {std::int16_t{0}});
    MovePointer(form, {75, 10});
    PressButton(form, {75, 10});
    ReleaseButton(form, {75, 10});
    Call(tab, L"RemoveTab", {std::int16_t{1}});
    form.Close();
}

} // namespace

TEST_CASE(
    "After 1,000 lives on a form the counts of GDI objects, windows and module references are where they "
    "were") {
    const OleApartment apartment;
    ControlModule module(FindBuiltControl());
    HostForm form(module, {});
    form.Window().Show();
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse("TabCount = 3\nActiveTab = 0\nBarWidth = 60\n");
    for (int warming = 0; warming < 5; ++warming) LiveOnce(form, *bag.Get());
    const int gdi = GdiObjects(), user = UserObjects();
    for (int life = 0; life < 1000; ++life) LiveOnce(form, *bag.Get());
    CHECK(GdiObjects() == gdi);
    CHECK(UserObjects() == user);
    CHECK(module.CanUnload());
}

TEST_CASE("After 1,000 lives without a form nothing is left either") {
    const OleApartment apartment;
    const ControlModule module(FindBuiltControl());
    const auto live = [&] {
        const auto control = module.Create();
        const auto tab = QueryFor<IDispatch>(control.Get());
        Put(*tab.Get(), L"TabCount", std::int16_t{3});
        RECTL bounds = {0, 0, 50, 50};
        const HDC dc = CreateCompatibleDC(nullptr);
        QueryFor<IViewObject>(control.Get())
            ->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0);
        DeleteDC(dc);
    };
    for (int warming = 0; warming < 5; ++warming) live();
    const int gdi = GdiObjects(), user = UserObjects();
    for (int life = 0; life < 1000; ++life) live();
    CHECK(GdiObjects() == gdi);
    CHECK(UserObjects() == user);
    CHECK(module.CanUnload());
}

namespace {

// All tabs have the same icon, so that the active look, the normal one and the close buttons are drawn.
void LiveWithIcons(HostForm& form, TextPropertyBag& bag) {
    form.OpenFrom(bag);
    for (std::int16_t index = 0; index < 3; ++index) Call(form.Control(), L"SetBarIco", {index, L"sun"});
    PumpMessages(form);
    form.Close();
}

} // namespace

TEST_CASE("Of each life with an icon on the active tab just one bitmap stays, until the module goes") {
    const OleApartment apartment;
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse("TabCount = 3\nActiveTab = 1\nBarWidth = 60\nDelButton = True\n");
    const auto live = [&](int lives) {
        ControlModule module(FindBuiltControl());
        HostForm form(module, {});
        form.Window().Show();
        for (int warming = 0; warming < 5; ++warming) LiveWithIcons(form, *bag.Get());
        const int before = GdiObjects();
        for (int life = 0; life < lives; ++life) LiveWithIcons(form, *bag.Get());
        CHECK(GdiObjects() == before + lives);
        CHECK(module.CanUnload());
    };
    live(1);
    const int gdi = GdiObjects();
    live(200);
    CHECK(GdiObjects() == gdi);
}

TEST_CASE("The module can be unloaded and loaded again, its window class with it") {
    const OleApartment apartment;
    for (int round = 0; round < 3; ++round) {
        ControlModule module(FindBuiltControl());
        HostForm form(module, {});
        form.OpenNew();
        CHECK(form.ControlWindow());
        form.Close();
    }
    CHECK(!GetModuleHandleW(L"VantikFrameTab.ocx"));
}

namespace {

// What one thread does with controls of its own, on forms of its own.
struct Apartment {
    HANDLE Thread = nullptr;
    int Lives = 0;
    std::string Error;

    static DWORD WINAPI Run(void* apartment) {
        auto& self = *static_cast<Apartment*>(apartment);
        try {
            self.Live();
        } catch (const std::exception& error) {
            self.Error = error.what();
        }
        return 0;
    }
    void Live() {
        const OleApartment apartment;
        ControlModule module(FindBuiltControl());
        HostForm form(module, {});
        form.Window().Show();
        const auto bag = MakeCom<TextPropertyBag>();
        bag->Parse("TabCount = 3\nActiveTab = 0\nBarWidth = 60\nSkinPath = \"Temp\"\n");
        for (; Lives < 30; ++Lives) LiveOnce(form, *bag.Get());
    }
};

} // namespace

TEST_CASE("Controls of several apartments live side by side") {
    const OleApartment apartment;
    const ControlModule module(FindBuiltControl());
    Apartment first; // leaves the built-in skin and the system's first window behind for the others
    first.Live();
    Apartment apartments[3];
    for (auto& each : apartments) each.Thread = CreateThread(nullptr, 0, Apartment::Run, &each, 0, nullptr);
    for (auto& each : apartments) {
        REQUIRE(each.Thread);
        WaitForSingleObject(each.Thread, INFINITE);
        CloseHandle(each.Thread);
        CHECK(each.Error == "");
        CHECK(each.Lives == 30);
    }
    CHECK(module.CanUnload());
}

} // namespace vantik
