#include <doctest/doctest.h>

#include <functional>
#include <map>
#include <utility>
#include <variant>

#include "platform/Files.h"
#include "tests/RunTimeErrors.h"
#include "tests/control/DrivenControl.h"
#include "tests/skin/TemporaryFolder.h"

using namespace vantik;
using namespace vantik::test;

namespace {

using Value =
    std::variant<std::int16_t, std::int32_t, std::u16string, ComPtr<IPictureDisp>, ComPtr<IFontDisp>>;

// A property bag that omits values equal to their defaults, as hosts do, and remembers what was asked.
class FakeBag : public PropertyReader, public PropertyWriter {
public:
    std::map<std::u16string, Value> Values;
    std::string Keys; // in the order of reading or writing
    std::u16string FailingKey;
    std::function<void(const std::u16string&)> OnRead; // what the host does when it is asked for a key

    void Read(const PropertyInfo& info, std::int16_t& value) override { Fetch(info, value); }
    void Read(const PropertyInfo& info, std::int32_t& value) override { Fetch(info, value); }
    void Read(const PropertyInfo& info, std::u16string& value) override { Fetch(info, value); }
    void Read(const PropertyInfo& info, ComPtr<IPictureDisp>& value) override { Fetch(info, value); }
    void Read(const PropertyInfo& info, ComPtr<IFontDisp>& value) override { Fetch(info, value); }

    void Write(const PropertyInfo& info, std::int16_t value, std::int16_t normal) override {
        Put(info, value, normal);
    }
    void Write(const PropertyInfo& info, std::int32_t value, std::int32_t normal) override {
        Put(info, value, normal);
    }
    void Write(const PropertyInfo& info, const std::u16string& value, const std::u16string& normal) override {
        Put(info, value, normal);
    }
    void Write(const PropertyInfo& info, IPictureDisp* value) override {
        Note(info);
        if (value) Values[info.Key] = ComPtr(value);
    }
    void Write(const PropertyInfo& info, IFontDisp* value, IFontDisp* normal) override {
        Note(info);
        if (value != normal) Values[info.Key] = ComPtr(value);
    }

private:
    template <class T>
    void Fetch(const PropertyInfo& info, T& value) {
        Note(info);
        if (OnRead) OnRead(info.Key);
        if (info.Key == FailingKey) Raise(RunTimeErrorNumber::TypeMismatch);
        const auto found = Values.find(info.Key);
        if (found != Values.end()) value = std::get<T>(found->second);
    }
    template <class T>
    void Put(const PropertyInfo& info, const T& value, const T& normal) {
        Note(info);
        if (value != normal) Values[info.Key] = value;
    }
    void Note(const PropertyInfo& info) {
        const std::u16string key = info.Key;
        Keys += (Keys.empty() ? "" : " ") + std::string(key.begin(), key.end());
    }
};

constexpr char InOrder[] =
    "TabCount ActiveTab Picture TabBarPos TabPos BarWidth TabBarPosXJust TabBarPosYJust TabOffSet "
    "DefaultCaption Font "
    "CaptionPos CaptionColor0 CaptionColor1 CaptionXjust CaptionYjust IcoXjust IcoYjust DelButton "
    "DelBtnXJust "
    "DelBtnYJust NavBtnYjust NavBtnXjust FixOcxList TabToTab TabBorder FrameDist SkinFile SkinPath";

struct LoadedControl : ControlFixture {
    TemporaryFolder Folder;
    FakeBag Bag;

    explicit LoadedControl(bool withWindow = false) : ControlFixture(0, 440, withWindow) {
        Host.Folder = Folder.Path();
    }
    void Load() { Control.UserControl_ReadProperties(Bag); }
};

// The count and the list agree, every tab has its caption, and nothing that a host may do next raises.
void CheckThatEveryMemberWorks(ControlFixture& f) {
    VantikFrameTab& control = f.Control;
    REQUIRE(control.State().Tabs.UpperBound() == control.TabCount());
    REQUIRE(control.State().Layout.VisibleBarCount <= control.TabCount());
    const auto each = [&](auto operation) {
        for (std::int16_t i = 0; i < control.TabCount(); ++i) operation(i);
    };
    const auto members = [&] {
        control.UserControl_Paint();
        control.RedrawBars();
        each([&](std::int16_t i) { CHECK_FALSE(control.GetTabCaption(i).empty()); });
        each([&](std::int16_t i) { CHECK(control.GetTabEnable(i) == True); });
        each([&](std::int16_t i) { control.SetBarCaption(i, u"x", True); });
        each([&](std::int16_t i) { control.SetBarIco(i, u"sun"); });
        each([&](std::int16_t i) { control.SetBarEnable(i, True); });
        each([&](std::int16_t i) { control.ActiveTab(i); });
        control.Let<std::int16_t>(Property::BarWidth, 60);
        control.Let<std::int16_t>(Property::TabToTab, 1);
        f.Insert(0);
        f.Insert(static_cast<std::int16_t>(control.TabCount() - 1));
        control.RemoveTab(0);
        control.TabCount(6);
        control.UserControl_KeyDown(39, 0);
        control.UserControl_MouseMove(0, 0, 300, 75);
        control.UserControl_MouseDown(1, 0, 300, 75);
        control.UserControl_Paint();
    };
    CHECK(NumberRaisedBy(members) == 0);
    CHECK(control.State().Tabs.UpperBound() == control.TabCount());
}

// The keys in their order.
std::vector<std::u16string> AllKeys() {
    std::vector<std::u16string> keys;
    for (std::size_t row = 0; row < PropertyCount; ++row)
        keys.emplace_back(InfoOf(static_cast<Property>(row)).Key);
    return keys;
}

} // namespace

TEST_CASE("the properties are written and read in their order") {
    LoadedControl f;
    f.Control.UserControl_WriteProperties(f.Bag);
    CHECK(f.Bag.Keys == InOrder);
    f.Bag.Keys.clear();
    f.Load();
    CHECK(f.Bag.Keys == InOrder);
}

TEST_CASE("a control with default values writes nothing but its picture object") {
    LoadedControl f;
    f.Control.UserControl_WriteProperties(f.Bag);
    f.Bag.Values.erase(u"Picture");
    CHECK(f.Bag.Values.empty());
}

TEST_CASE("a first placement begins from nothing, whatever the control was before") {
    DrivenControl f(40);
    f.Control.TabCount(30);
    f.Click(f.Buttons().Next);
    f.Control.ActiveTab(3);
    f.MoveTo(f.Close(2));
    const ControlState& state = f.State();
    REQUIRE(state.PreviousTabCount == 40);
    REQUIRE(state.Layout.FirstVisibleTab == 1);
    REQUIRE(state.HoverTab == 3);
    REQUIRE(state.HoverCloseTab == 3);
    REQUIRE(state.SkinIcons.SkinIconCount() > 0);
    REQUIRE(state.SkinIcons.MenuBarIcon == 5); // the last of the built-in skin's icons
    f.Control.UserControl_InitProperties();
    CHECK(f.Control.TabCount() == 0);
    CHECK(f.Control.ActiveTab() == -1);
    CHECK(state.Tabs.UpperBound() == 0);
    CHECK(state.PreviousTabCount == 0);
    CHECK(state.Layout.FirstVisibleTab == 0);
    CHECK(state.HoverTab == -1);
    CHECK(state.HoverCloseTab == -1);
    CHECK(state.SkinIcons.SkinIconCount() == 0);
    CHECK(state.SkinIcons.DeleteButtonIcon == -1);
    CHECK(state.SkinIcons.LeftButtonIcon == -1);
    CHECK(state.SkinIcons.RightButtonIcon == -1);
    CHECK(state.SkinIcons.MenuBarIcon == 5); // required: not among those that are set
    CHECK(f.Control.Get<std::int16_t>(Property::BarWidth) == 20);
}

TEST_CASE("a first placement goes on with the running number of new tabs") {
    ControlFixture f(3); // required: only a new control counts from 0
    f.Control.UserControl_InitProperties();
    f.Control.TabCount(2);
    CHECK(f.Captions() == "Tab3 Tab4");
}

TEST_CASE("every value survives saving and loading") {
    LoadedControl f;
    f.Control.TabCount(3);
    f.Control.ActiveTab(1);
    f.Control.Let<std::int32_t>(Property::TabPos, WindowLeft);
    f.Control.Let<std::int16_t>(Property::BarWidth, -7); // stored as it is
    f.Control.Let<std::u16string>(Property::DefaultCaption, u"\u9875");
    f.Control.Let<std::int16_t>(Property::DelButton, False);
    f.Control.Let<std::int32_t>(Property::CaptionColor1, 0x0000FF);
    f.Control.UserControl_WriteProperties(f.Bag);

    LoadedControl other;
    other.Bag.Values = f.Bag.Values;
    other.Load();
    CHECK(other.Control.TabCount() == 3);
    CHECK(other.Control.ActiveTab() == 1);
    CHECK(other.Control.Get<std::int32_t>(Property::TabPos) == WindowLeft);
    CHECK(other.Control.Get<std::int16_t>(Property::BarWidth) == -7);
    CHECK(other.Control.Get<std::u16string>(Property::DefaultCaption) == u"\u9875");
    CHECK(other.Control.Get<std::int16_t>(Property::DelButton) == False);
    CHECK(other.Control.Get<std::int32_t>(Property::CaptionColor1) == 0x0000FF);
}

TEST_CASE("loading runs no setter: nothing is marked changed and no child moves") {
    LoadedControl f;
    f.Bag.Values = {{u"TabCount", std::int16_t(3)}, {u"ActiveTab", std::int16_t(2)}};
    f.AddChild(u"child", 120);
    f.Load();
    CHECK(f.Control.ActiveTab() == 2);
    CHECK(f.Lefts() == "120");
    CHECK(f.Host.TakeLog().find("PropertyChanged") == std::string::npos);
}

TEST_CASE("a saved ActiveTab is taken as it is, and one that there is no tab of paints every bar inactive") {
    LoadedControl f, none;
    f.Bag.Values = {{u"TabCount", std::int16_t(3)}, {u"ActiveTab", std::int16_t(9)}};
    none.Bag.Values = {{u"TabCount", std::int16_t(3)}};
    f.Load();
    none.Load();
    CHECK(f.Control.ActiveTab() == 9);
    CHECK(NumberRaisedBy([&] { f.Control.RepaintAll(); }) == 0);
    CHECK(NumberRaisedBy([&] { f.Control.RedrawBars(); }) == 0);
    f.Control.UserControl_Paint();
    none.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), none.Host.Read()) == "same");
}

TEST_CASE("saving and reloading a control whose captions were changed brings back the default captions") {
    LoadedControl f;
    f.Control.TabCount(2);
    f.Control.SetBarCaption(0, u"Files", False);
    f.Control.SetBarIco(0, u"sun");
    f.Control.SetBarEnable(1, False);
    f.Control.UserControl_WriteProperties(f.Bag);
    f.Load();
    CHECK(f.Captions() == "Tab0 Tab1");
    CHECK(f.Control.GetTabIco(0) == u"");
}

TEST_CASE("a property that cannot be read raises the error to the loader") {
    LoadedControl f;
    f.Bag.FailingKey = u"BarWidth";
    CHECK(NumberRaisedBy([&] { f.Load(); }) == 13);
}

TEST_CASE("after a load that fails at any key list and count agree, and every member works") {
    for (const auto& key : AllKeys())
        for (const std::int16_t before : {std::int16_t(0), std::int16_t(8)}) {
            CAPTURE(std::string(key.begin(), key.end()));
            CAPTURE(before);
            LoadedControl f;
            if (before) f.Control.TabCount(before);
            f.Bag.Values = {{u"TabCount", std::int16_t(3)}, {u"ActiveTab", std::int16_t(1)}};
            f.Bag.FailingKey = key;
            CHECK(NumberRaisedBy([&] { f.Load(); }) == 13);
            CHECK(f.Control.TabCount() == (key == u"TabCount" ? 0 : 3)); // what was read before stands
            CHECK(f.Control.Get<std::u16string>(Property::SkinPath) == u"Skin\\");
            CheckThatEveryMemberWorks(f);
        }
}

TEST_CASE("a host that calls back while it is asked for a key finds a whole control") {
    const std::function<void(LoadedControl&)> deeds[] = {
        [](LoadedControl& f) {
            for (std::int16_t i = 0; i < f.Control.TabCount(); ++i) f.Control.GetTabCaption(i);
            f.Control.RepaintAll();
            f.Control.UserControl_Paint();
        },
        [](LoadedControl& f) { f.Control.TabCount(7); },
        [](LoadedControl& f) {
            f.Control.TabCount(2);
            f.Insert(0);
            f.Control.RemoveTab(0);
        },
        [](LoadedControl& f) {
            LoadedControl other; // its bag, and another number of tabs
            other.Bag.Values = {{u"TabCount", std::int16_t(9)}};
            f.Control.UserControl_ReadProperties(other.Bag);
        },
    };
    for (const auto& key : AllKeys())
        for (const auto& deed : deeds)
            for (const bool fails : {false, true}) {
                CAPTURE(std::string(key.begin(), key.end()));
                CAPTURE(&deed - deeds);
                LoadedControl f;
                f.Bag.Values = {{u"TabCount", std::int16_t(3)}, {u"ActiveTab", std::int16_t(1)}};
                bool done = false;
                f.Bag.OnRead = [&](const std::u16string& asked) {
                    if (asked != key || std::exchange(done, true)) return;
                    deed(f);
                    REQUIRE(f.Control.State().Tabs.UpperBound() == f.Control.TabCount());
                };
                if (fails) f.Bag.FailingKey = u"SkinFile";
                CHECK(NumberRaisedBy([&] { f.Load(); }) == (fails ? 13 : 0));
                CHECK(f.Captions() == "Tab0 Tab1 Tab2");
                CheckThatEveryMemberWorks(f);
            }
}

// While an operation runs, code of the host may run whenever the control tells something or moves a child.
TEST_CASE("a load from inside any operation of the same control leaves list and count in accord") {
    const std::function<void(LoadedControl&)> operations[] = {
        [](LoadedControl& f) { f.Control.TabCount(9); },
        [](LoadedControl& f) { f.Control.TabCount(2); },
        [](LoadedControl& f) { f.Control.ActiveTab(4); },
        [](LoadedControl& f) { f.Insert(4); },
        [](LoadedControl& f) { f.Control.RemoveTab(4); },
        [](LoadedControl& f) { f.Control.SetBarEnable(0, True); },
        [](LoadedControl& f) { f.Control.UserControl_KeyDown(39, 0); },
        [](LoadedControl& f) { f.Control.UserControl_MouseMove(0, 0, 800, 75); },
        [](LoadedControl& f) {
            f.Control.UserControl_MouseMove(0, 0, 800, 75);
            f.Control.UserControl_MouseDown(1, 0, 800, 75);
        },
    };
    for (const auto& operation : operations)
        for (const std::int16_t loaded : {std::int16_t(1), std::int16_t(3), std::int16_t(8)})
            for (const bool fails : {false, true})
                for (int call = 1, calls = call; call <= calls; ++call) {
                    CAPTURE(&operation - operations);
                    CAPTURE(loaded);
                    CAPTURE(call);
                    LoadedControl f, saved;
                    f.Control.TabCount(6);
                    f.Control.Let<std::int16_t>(Property::BarWidth, 60);
                    f.Control.ActiveTab(0);
                    f.AddChild(u"child", 300);
                    saved.Bag.Values = {{u"TabCount", loaded}, {u"ActiveTab", std::int16_t(0)}};
                    if (fails) saved.Bag.FailingKey = u"SkinFile";
                    calls = 0;
                    f.Host.OnCall = [&] {
                        if (++calls != call) return;
                        NumberRaisedBy([&] { f.Control.UserControl_ReadProperties(saved.Bag); });
                    };
                    const int error = NumberRaisedBy([&] { operation(f); });
                    CHECK((error == 0 || error == 9)); // 9: there is no such tab any more
                    f.Host.OnCall = nullptr;
                    CheckThatEveryMemberWorks(f);
                }
}

TEST_CASE("a saved count below zero raises an error and leaves a control that still answers") {
    LoadedControl f;
    f.Bag.Values = {{u"TabCount", std::int16_t(-5)}};
    const RaisedError raised = ErrorRaisedBy([&] { f.Load(); });
    CHECK(raised.Number == 9);
    CHECK(raised.Text == "The saved TabCount is -5");
    CHECK(f.Control.GetTabCaption(0) == u"-1");
    f.Control.UserControl_Paint();
    f.Control.TabCount(2);
    CHECK(f.Captions() == "Tab0 Tab1");
}

TEST_CASE("deleting the skin folder and reloading the control draws with the built-in skin") {
    LoadedControl f;
    f.Folder.MakeFolder(u"Skin");
    f.Folder.Write(u"Skin\\skin.ini", "Start\r\n[Tab]\r\n1: 0,0,0,9\r\nEnd\r\n");
    f.Load();
    CHECK(f.Control.State().SkinRects[BRect].Height == 10);
    CHECK(f.Folder.Files(u"") == "Skin");

    f.Folder.Remove(u"Skin");
    f.Load();
    CHECK(f.Folder.Files(u"Temp") ==
          "bar0.png bar1.png delete1.png handno.png menubar.png skin.ini skin2.bmp sun.png");
    CHECK(f.Control.State().SkinRects[BRect].Height == 22);
    f.Control.UserControl_Paint();
    // The background's pixel at (7, 20) of the 214 x 188 bitmap, whose rows of 644 bytes run upwards.
    const std::string bitmap = f.Folder.Read(u"Temp\\skin2.bmp");
    const auto channel = [&](std::size_t at) {
        return std::uint32_t{static_cast<unsigned char>(bitmap.at(bitmap.size() - 644 * 21 + 7 * 3 + at))};
    };
    CHECK(f.Host.Read().At(200, 150) == (channel(2) << 16 | channel(1) << 8 | channel(0)));
}

TEST_CASE("deleting the skin folder and loading again writes the built-in skin beside the host") {
    LoadedControl f;
    f.Load();
    CHECK(f.Control.Get<std::u16string>(Property::SkinPath) == u"Temp");
    CHECK(f.Control.State().SkinRects[BRect].Height == 22);
    CHECK(f.Folder.Files(u"Temp") ==
          "bar0.png bar1.png delete1.png handno.png menubar.png skin.ini skin2.bmp sun.png");
}

TEST_CASE("the folder of the built-in skin is not saved in the place of the one that the host set") {
    LoadedControl f;
    const auto savedFolder = [&f] {
        f.Bag.Values.clear();
        f.Control.UserControl_WriteProperties(f.Bag);
        const auto found = f.Bag.Values.find(u"SkinPath");
        return found == f.Bag.Values.end() ? u"Skin\\" : std::get<std::u16string>(found->second);
    };
    f.Load();
    CHECK(f.Control.Get<std::u16string>(Property::SkinPath) == u"Temp");
    CHECK(savedFolder() == u"Skin\\");

    f.Bag.Values = {{u"SkinPath", std::u16string(u"Lost")}};
    f.Load();
    f.Host.OnCall = [&] { f.Folder.Remove(u"Temp"); }; // and so the built-in skin is written a second time
    f.Control.SkinFile(u"skin.ini");
    f.Host.OnCall = nullptr;
    CHECK(f.Control.Get<std::u16string>(Property::SkinPath) == u"Temp");
    CHECK(savedFolder() == u"Lost");

    f.Folder.MakeFolder(u"Temp");
    f.Control.SkinPath(u"Temp"); // by the host: now it is meant
    CHECK(savedFolder() == u"Temp");
    f.Folder.MakeFolder(u"Mine");
    f.Control.SkinPath(u"Mine");
    CHECK(savedFolder() == u"Mine");

    f.Bag.Values.clear();
    f.Load(); // by default again, and again there is no such folder
    CHECK(savedFolder() == u"Skin\\");
    f.Control.UserControl_InitProperties();
    CHECK(savedFolder() == u"Skin\\");
}

TEST_CASE("the hook is installed at run time only, and on the window that appears after the load") {
    LoadedControl atRunTime(true), atDesignTime(true);
    atDesignTime.Host.UserMode = False;
    for (LoadedControl* f : {&atRunTime, &atDesignTime}) {
        f->Bag.Values = {{u"TabCount", std::int16_t(3)}, {u"ActiveTab", std::int16_t(0)}};
        f->Load();
        f->Host.TakeLog();
        SendMessageW(f->Host.hWnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    }
    CHECK(atRunTime.Host.TakeLog() == "TabDown 1 0");
    CHECK(atDesignTime.Host.TakeLog().empty());
}

TEST_CASE(
    "a control that no properties were loaded into gets its skin when it first has a window and a tab") {
    LoadedControl f(true);
    f.Control.UserControl_InitProperties();
    CHECK_FALSE(FolderExists(f.Folder.Path() + u"\\Temp"));
    f.Control.TabCount(1);
    CHECK(f.Control.State().SkinRects[BRect].Height == 22);
    SendMessageW(f.Host.hWnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    CHECK(f.Host.TakeLog().find("TabDown") != std::string::npos);
}

TEST_CASE("a control whose first skin came by SkinFile has the hook when it is first shown") {
    LoadedControl f(true);
    f.Folder.MakeFolder(u"Skin");
    f.Folder.Write(u"Skin\\mine.ini", "Start\r\n[Tab]\r\n1: 0,0,0,9\r\nEnd\r\n");
    f.Control.UserControl_InitProperties();
    f.Control.SkinFile(u"mine.ini");
    f.Control.TabCount(2);
    CHECK(f.Control.State().SkinRects[BRect].Height == 10); // and no other skin was loaded
    CHECK(f.Folder.Files(u"") == "Skin");
    f.Host.TakeLog();
    SendMessageW(f.Host.hWnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    CHECK(f.Host.TakeLog().find("TabDown") != std::string::npos);
}

TEST_CASE("a skin that cannot be had at the first showing leaves the control unskinned and alive") {
    LoadedControl f(true);
    f.Host.Folder = u"Z:\\no\\such\\folder";
    f.Control.UserControl_InitProperties();
    f.Control.TabCount(2);
    CHECK(f.Captions() == "Tab0 Tab1");
    CHECK(f.Control.State().SkinRects[BRect].Height == 0);
}
