// Drawing that fails for want of GDI objects or memory: with the first paint after they are back the window shows what it
// would have shown without the failure, and the host does nothing for it.
#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <optional>

#include "hostile/FaultInjector.h"
#include "hostile/ModuleMemory.h"
#include "ole/LooseControl.h"
#include "ole/window/WindowedControl.h"

namespace vantik {

namespace {

constexpr RECT Place = {0, 0, 300, 160};

struct PlacedControl : LooseControl {
    WindowedControl InWindow{As<IUnknown>(), Place};

    ::_VantikFrameTab& Told() const { return *Tab.Get(); }
};

void SetIcon(::_VantikFrameTab& tab, short index) {
    BSTR key = SysAllocString(L"sun");
    tab.SetBarIco(&index, &key);
    SysFreeString(key);
}

void MakeTabs(::_VantikFrameTab& tab) {
    tab.put_BarWidth(60);
    tab.put_DelButton(VARIANT_TRUE);
    tab.put_TabCount(3);
    tab.put_ActiveTab(0);
    for (short index = 0; index < 3; ++index) SetIcon(tab, index);
}

struct Deed {
    const char* Name;
    HRESULT (*Do)(WindowedControl&);
};

// What makes the control draw.
constexpr Deed Deeds[] = {
    {"bars", [](WindowedControl& c) { return c.Tab().put_CaptionXjust(4); }},
    {"captions from bottom to top",
     [](WindowedControl& c) { return c.Tab().put_TabPos(static_cast<dTabPos>(0)); }},
    {"another side", [](WindowedControl& c) { return c.Tab().put_TabPos(static_cast<dTabPos>(3)); }},
    {"the frame",
     [](WindowedControl& c) {
         c.Tab().put_FrameDist(7); // which leaves the page as it was until all is painted
         return c.Tab().put_BarWidth(60);
     }},
    {"one bar",
     [](WindowedControl& c) {
         short index = 1;
         VARIANT_BOOL enable = VARIANT_FALSE;
         return c.Tab().SetBarEnable(&index, &enable);
     }},
    {"another tab", [](WindowedControl& c) { return c.Tab().put_ActiveTab(2); }},
    {"the pointer",
     [](WindowedControl& c) {
         c.Move({80, 12});
         c.Move({20, 12});
         c.Move({200, 90});
         return S_OK;
     }},
    {"another size",
     [](WindowedControl& c) {
         SetWindowPos(c.Window(), nullptr, 0, 0, 260, 140, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
         return S_OK;
     }},
    {"the skin",
     [](WindowedControl& c) {
         BSTR name = SysAllocString(L"skin.ini");
         const HRESULT result = c.Tab().put_SkinFile(name);
         SysFreeString(name);
         return result;
     }},
};

void Uncover(const WindowedControl& control) {
    const RECT corner = {0, 0, 2, 2};
    RedrawWindow(control.Window(), &corner, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void Look(const WindowedControl& control) {
    RedrawWindow(control.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void PumpFor(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    MSG message;
    while (GetTickCount64() < end) {
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        Sleep(10);
    }
}

// Of a control that nothing went wrong with.
test::Pixels PictureOfHealthy(const Deed& deed) {
    PlacedControl control;
    MakeTabs(control.Told());
    Look(control.InWindow);
    deed.Do(control.InWindow);
    Look(control.InWindow);
    return control.InWindow.Picture();
}

HMODULE Loaded() { return GetModuleHandleW(L"VantikFrameTab.ocx"); }

// What drawing needs.
const char* const Needed[] = {
    "BitBlt",
    "CreateBitmap",
    "CreateCompatibleBitmap",
    "CreateCompatibleDC",
    "CreateDCW",
    "CreateDIBSection",
    "CreateDIBitmap",
    "CreateFontIndirectW",
    "ExcludeClipRect",
    "IntersectClipRect",
    "SaveDC",
    "SetDIBits",
    "StretchBlt",
    "StretchDIBits",
    "memory",
    "all",
};

// What the control cannot have for as long as this lives: one of these, or all.
class Shortage {
public:
    explicit Shortage(const std::string& lacking) {
        const auto lacks = [&](const char* name) { return lacking == name || lacking == "all"; };
        if (lacks("memory")) memory_.FailAll();
        for (FaultyImport& import : FaultyImports())
            if (std::ranges::count(Needed, std::string_view(import.Name)) && lacks(import.Name)) {
                import.FailsFrom = 1;
                import.FailsTo = LONG_MAX;
            }
    }

private:
    FaultInjector injector_{Loaded()};
    ModuleMemory memory_{Loaded()};
};

} // namespace

TEST_CASE("what could not be drawn shows with the first paint after that, and the window needs no help") {
    for (const Deed& deed : Deeds) {
        const test::Pixels expected = PictureOfHealthy(deed);
        for (const std::string name : Needed) {
            CAPTURE(std::string(deed.Name));
            CAPTURE(name);
            PlacedControl control;
            MakeTabs(control.Told());
            Look(control.InWindow);
            std::optional<Shortage> shortage(name);
            const HRESULT done = deed.Do(control.InWindow);
            Look(control.InWindow);
            shortage.reset();
            if (FAILED(done)) deed.Do(control.InWindow);
            Uncover(control.InWindow);
            CHECK(test::Difference(control.InWindow.Picture(), expected) == "same");
        }
    }
}

TEST_CASE("and where nobody asks for a paint the window asks itself, until there is enough again") {
    const Deed& deed = Deeds[0];
    const test::Pixels expected = PictureOfHealthy(deed);
    PlacedControl control;
    MakeTabs(control.Told());
    Look(control.InWindow);
    std::optional<Shortage> shortage("StretchBlt");
    REQUIRE(deed.Do(control.InWindow) == S_OK);
    Look(control.InWindow);
    PumpFor(2500); // it asks more than once, in vain
    shortage.reset();
    CHECK(test::Difference(control.InWindow.Picture(), expected) != "same");
    PumpFor(2500);
    CHECK(test::Difference(control.InWindow.Picture(), expected) == "same");
}

TEST_CASE("a control that was first shown while nothing could be had shows its skin with the next paint") {
    constexpr Deed Nothing = {"nothing", [](WindowedControl&) { return S_OK; }};
    const test::Pixels expected = PictureOfHealthy(Nothing);
    for (const std::string name : Needed) {
        CAPTURE(name);
        PlacedControl control;
        control.Tab->put_BarWidth(60); // no tabs yet, so nothing was shown
        std::optional<Shortage> shortage(name);
        MakeTabs(control.Told());
        Look(control.InWindow);
        shortage.reset();
        MakeTabs(control.Told()); // what it was told, should that have failed
        Uncover(control.InWindow);
        CHECK(test::Difference(control.InWindow.Picture(), expected) == "same");
    }
}

} // namespace vantik
