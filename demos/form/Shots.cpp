#include "Shots.h"

#include <filesystem>

#include "host/Input.h"
#include "host/MessageLoop.h"
#include "host/Snapshot.h"

namespace vantik {

namespace {

struct Named {
    const wchar_t* Name;
    std::int32_t Value;
};

constexpr Named Sides[] = {{L"top", 2}, {L"bottom", 3}, {L"left", 0}, {L"right", 1}};
constexpr Named Placements[] = {{L"start", 0}, {L"middle", 1}, {L"end", 2}, {L"custom", 3}};
constexpr Named Borders[] = {{L"shared", 0}, {L"edged", 1}};

class Photographer {
public:
    Photographer(DemoForm& demo, const std::filesystem::path& folder) : demo_(demo), folder_(folder) {
        std::filesystem::create_directories(folder_);
    }

    void Take(const std::wstring& name) {
        demo_.ShowOptions();
        PumpMessages(demo_.Form());
        SavePng(TakeSnapshot(demo_.Form().Window().Handle()), (folder_ / (name + L".png")).wstring());
    }

    void TakeArrangements() {
        for (const Named& side : Sides) {
            for (const Named& placement : Placements) {
                for (const Named& border : Borders) {
                    demo_.ShowSide(side.Value);
                    Place(placement.Value);
                    Put(demo_.Control(), L"TabBorder", border.Value != 0);
                    Take(std::wstring(side.Name) + L"-" + placement.Name + L"-" + border.Name);
                }
            }
        }
    }

    // A custom row stays where the layout before it stood: here 60 pixels behind the start.
    void Place(std::int32_t placement) {
        Put(demo_.Control(), L"TabBarPos", std::int32_t{0});
        Shift(60);
        Put(demo_.Control(), L"TabBarPos", placement);
        Shift(0);
    }

    void Shift(std::int16_t pixels) {
        Put(demo_.Control(), L"TabBarPosXJust", pixels);
        Put(demo_.Control(), L"TabBarPosYJust", pixels);
    }

    void Reset(std::int32_t side) {
        Put(demo_.Control(), L"TabBarPos", std::int32_t{0});
        demo_.ShowSide(side);
        Put(demo_.Control(), L"TabBorder", false);
    }

    void TakeLooks() {
        Put(demo_.Control(), L"DelButton", true);
        demo_.ShowIcons(true);
        demo_.EnableTab(2, false);
        for (const Named& side : Sides) {
            Reset(side.Value);
            Take(std::wstring(L"looks-") + side.Name);
        }
        for (int skin = 1; skin < static_cast<int>(demo_.Skins().size()); ++skin) {
            Reset(2);
            demo_.UseSkin(skin);
            Take(L"skin-" + demo_.Skins()[static_cast<std::size_t>(skin)].Name);
        }
        TakeReturn();
    }

    // From a skin for bars that stand back to the first one, which lets nothing of it be seen.
    void TakeReturn() {
        demo_.ShowSide(0);
        Take(L"sides-" + demo_.Skins().back().Name);
        demo_.UseSkin(0);
        Reset(2);
        Take(L"back");
    }

    // The third tab is disabled by now: the user reaches it by no way, and the pages stay where they were.
    void TakeRefusal() {
        constexpr std::int16_t before = 1, beyond = 3;
        constexpr POINT onDisabledBar = {230, 11}, onPage = {300, 300};
        Reset(2);
        PressKey(demo_.Form(), VK_UP); // does nothing but take the focus
        Put(demo_.Control(), L"ActiveTab", beyond);
        Take(L"disabled-beyond-before");
        Put(demo_.Control(), L"ActiveTab", before);
        Take(L"disabled-before");
        PressButton(demo_.Form(), onDisabledBar);
        ReleaseButton(demo_.Form(), onDisabledBar);
        PressKey(demo_.Form(), VK_RIGHT);
        TurnWheel(demo_.Form(), 1);
        MovePointer(demo_.Form(), onPage);
        Take(L"disabled-after");
        Put(demo_.Control(), L"ActiveTab", beyond);
        Take(L"disabled-beyond-after");
        Put(demo_.Control(), L"ActiveTab", std::int16_t{0});
    }

    void TakeManyTabs() {
        demo_.UseSkin(0);
        demo_.SetTabCount(40);
        demo_.ShowIcons(true);
        for (const Named& side : Sides) {
            Reset(side.Value);
            Take(std::wstring(L"many-") + side.Name);
        }
    }

private:
    DemoForm& demo_;
    std::filesystem::path folder_;
};

} // namespace

void TakeShots(DemoForm& demo, const std::wstring& folder) {
    Photographer photographer(demo, folder);
    photographer.TakeArrangements();
    photographer.TakeLooks();
    photographer.TakeRefusal();
    photographer.TakeManyTabs();
}

} // namespace vantik
