// Every skin of skins/ in the control, on all four sides, with the settings that it comes with.
#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>

#include "host/ControlOnForm.h"
#include "host/DebugLines.h"
#include "host/SavedObjects.h"
#include "host/SkinSettings.h"
#include "host/Snapshot.h"

namespace vantik {

namespace {

constexpr int Left = 0, Right = 1, Top = 2, Bottom = 3;
constexpr std::size_t ShortestCaption = 3, LongestCaption = 20;
constexpr std::int16_t TabCount = 2; // an active one, whose caption is bold on the sides, and another
constexpr int RoomForButtons = 90;   // beside the row, at 100 percent
constexpr const wchar_t* Icons[] = {
    L"Document", L"Folder", L"Home", L"Mail",    L"Calendar", L"Chart", L"User",    L"Users",
    L"Settings", L"Search", L"Star", L"Clock",   L"Lock",     L"Globe", L"Picture", L"Chat",
    L"Bell",     L"Cart",   L"Tag",  L"Printer", L"Edit",     L"Info",  L"Table",   L"Database"};
constexpr int LeastGap = 3;  // pixels between a caption and whatever is beside it
constexpr int LeastEdge = 4; // between a bar's edge and what stands on it

std::filesystem::path SkinsFolder() {
    std::filesystem::path folder = ProgramFolder();
    while (!std::filesystem::exists(folder / "skins" / "light" / "SKIN.INI")) {
        REQUIRE(folder.has_relative_path());
        folder = folder.parent_path();
    }
    return folder / "skins";
}

std::vector<std::wstring> SkinNames() {
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(SkinsFolder()))
        if (entry.is_directory()) names.push_back(entry.path().filename().wstring());
    std::sort(names.begin(), names.end());
    return names;
}

double ScaleOf(const std::wstring& skin) {
    return skin.ends_with(L"-200") ? 2 : skin.ends_with(L"-150") ? 1.5 : 1;
}

bool Lies(int side) { return side == Top || side == Bottom; }

// First and last pixel of what was found along the row and across it.
struct Ink {
    int First = INT_MAX, Last = INT_MIN, Outer = INT_MAX, Inner = INT_MIN;

    void Add(int along, int across) {
        First = std::min(First, along);
        Last = std::max(Last, along);
        Outer = std::min(Outer, across);
        Inner = std::max(Inner, across);
    }
    bool IsEmpty() const { return Last < First; }
};

class ShownSkin {
public:
    ShownSkin(const std::wstring& skin, int side) : skin_(skin), side_(side) {
        test_.Form().OpenNew();
        Put(Control(), L"TabPos", std::int32_t{side});
        LoadSkin();
        SetFont();
        for (const SkinSetting& setting : Settings())
            Put(Control(), setting.Property, SettingFromText(setting.Value, test_.Module().Constants()));
        Resize();
        Put(Control(), L"TabCount", TabCount);
        Put(Control(), L"ActiveTab", std::int16_t{0});
    }

    IDispatch& Control() { return test_.Control(); }

    void Write(const std::wstring& caption) {
        for (std::int16_t tab = 0; tab < TabCount; ++tab)
            Call(Control(), L"SetBarCaption", {tab, caption, true});
    }

    void ShowIcons(bool show) {
        for (std::int16_t tab = 0; tab < TabCount; ++tab)
            Call(Control(), L"SetBarIco", {tab, show ? L"Document" : L"-1"});
    }

    Snapshot Take() {
        PumpMessages(test_.Form());
        return TakeSnapshot(test_.Form().ControlWindow());
    }

    // Where two pictures differ, bar by bar. A bar begins at 0 along, and its outer edge is 0 across.
    std::vector<Ink> Difference(const Snapshot& one, const Snapshot& other) {
        std::vector<Ink> bars(TabCount);
        const int extent = Lies(side_) ? one.Height : one.Width,
                  length = Lies(side_) ? one.Width : one.Height;
        for (int along = Lead(); along < length; ++along) {
            const auto bar = static_cast<std::size_t>((along - Lead()) / BarWidth());
            for (int v = 0; v < extent && bar < bars.size(); ++v) {
                const int across = side_ == Top || side_ == Left ? v : extent - 1 - v;
                const int x = Lies(side_) ? along : across, y = Lies(side_) ? across : along;
                if (one.At(x, y) != other.At(x, y)) bars[bar].Add((along - Lead()) % BarWidth(), v);
            }
        }
        return bars;
    }

    int BarLength() { return BarWidth() - test_.Number(L"TabToTab"); }
    int Thickness() const {
        return static_cast<int>((skin_.starts_with(L"slim") ? 28 : 32) * ScaleOf(skin_));
    }

private:
    std::filesystem::path Folder() const { return SkinsFolder() / skin_; }
    int Lead() const { return static_cast<int>(6 * ScaleOf(skin_)); }
    int BarWidth() { return test_.Number(L"BarWidth"); }

    std::vector<SkinSetting> Settings() const {
        return ReadSkinSettings((Folder() / (Lies(side_) ? "SETTINGS.TXT" : "SETTINGS-SIDES.TXT")).wstring());
    }

    void LoadSkin() {
        const auto path = std::filesystem::relative(Folder(), ProgramFolder());
        Put(Control(), L"SkinPath", path.wstring());
        Put(Control(), L"SkinFile", Lies(side_) ? L"SKIN.INI" : L"SKIN-SIDES.INI");
    }

    // As nine points are at the scale that the skin is for.
    void SetFont() {
        SavedFont font;
        font.Name = L"Liberation Sans";
        font.Size = 9 * ScaleOf(skin_);
        PutReference(Control(), L"Font", MakeAgain(font).Get());
    }

    void Resize() {
        const LONG breadth = 2 * Thickness();
        const LONG length = TabCount * BarWidth() + static_cast<LONG>(RoomForButtons * ScaleOf(skin_));
        const SIZE size = Lies(side_) ? SIZE{length, breadth} : SIZE{breadth, length};
        test_.Form().Window().ResizeClient(size);
        test_.Form().MoveControl({0, 0, size.cx, size.cy});
    }

    std::wstring skin_;
    int side_;
    ControlOnForm test_;
};

// What stands on the bars, taken apart.
struct Decorations {
    explicit Decorations(ShownSkin& skin) {
        skin.ShowIcons(true);
        skin.Write(L"");
        WithoutCaptions = skin.Take();
        skin.ShowIcons(false);
        const Snapshot withoutIcons = skin.Take();
        Put(skin.Control(), L"DelButton", false);
        Icons = skin.Difference(WithoutCaptions, withoutIcons);
        Buttons = skin.Difference(withoutIcons, skin.Take());
        Put(skin.Control(), L"DelButton", true);
        skin.ShowIcons(true);
    }

    Snapshot WithoutCaptions;
    std::vector<Ink> Icons, Buttons;
};

void CheckBar(ShownSkin& skin, const Ink& caption, const Ink& icon, const Ink& button) {
    REQUIRE_FALSE((caption.IsEmpty() || icon.IsEmpty() || button.IsEmpty()));
    CHECK(icon.First >= LeastEdge);
    CHECK(caption.First - icon.Last > LeastGap);
    CHECK(button.First - caption.Last > LeastGap);
    CHECK(skin.BarLength() - button.Last > LeastEdge);
    for (const Ink& each : {caption, icon, button}) {
        CHECK(each.Outer >= LeastEdge);
        CHECK(skin.Thickness() - each.Inner > LeastEdge);
    }
}

void CheckCaptions(ShownSkin& skin, const std::wstring& text) {
    const Decorations decorations(skin);
    for (std::size_t length = ShortestCaption; length <= LongestCaption; ++length) {
        skin.Write(text.substr(0, length));
        const std::vector<Ink> captions = skin.Difference(skin.Take(), decorations.WithoutCaptions);
        for (std::size_t bar = 0; bar < captions.size(); ++bar) {
            CAPTURE(length);
            CAPTURE(bar);
            CheckBar(skin, captions[bar], decorations.Icons[bar], decorations.Buttons[bar]);
        }
    }
}

} // namespace

TEST_CASE("There are the six skins at three scales") {
    const std::vector<std::wstring> names = SkinNames();
    CHECK(names.size() == 18);
    for (const wchar_t* name : {L"light", L"dark", L"contrast", L"slim", L"segmented", L"slanted"})
        for (const wchar_t* scale : {L"", L"-150", L"-200"})
            CHECK(std::count(names.begin(), names.end(), std::wstring(name) + scale) == 1);
}

TEST_CASE("Captions stay clear of icons, close buttons and edges in every skin on every side") {
    for (const std::wstring& name : SkinNames()) {
        for (const int side : {Top, Bottom, Left, Right}) {
            const std::string shown = ToUtf8(name);
            CAPTURE(shown);
            CAPTURE(side);
            ShownSkin skin(name, side);
            CheckCaptions(skin, L"Internationalization");
            CheckCaptions(skin, L"Management Community");
        }
    }
}

TEST_CASE("Every skin loads and draws without any fault") {
    for (const std::wstring& name : SkinNames()) {
        const std::string shown = ToUtf8(name);
        CAPTURE(shown);
        DebugLines lines;
        for (const int side : {Top, Left}) {
            ShownSkin skin(name, side);
            Call(skin.Control(), L"SetBarEnable", {std::int16_t{1}, false});
            for (const wchar_t* icon : Icons) {
                const Snapshot without = skin.Take();
                Call(skin.Control(), L"SetBarIco", {std::int16_t{0}, icon});
                Call(skin.Control(), L"SetBarIco", {std::int16_t{1}, icon});
                CHECK_FALSE(skin.Take() == without);
            }
            CHECK(Get(skin.Control(), L"SkinFile").Text() == (Lies(side) ? L"SKIN.INI" : L"SKIN-SIDES.INI"));
        }
        CHECK(lines.Take().empty());
    }
}

} // namespace vantik
