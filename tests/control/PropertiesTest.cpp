#include <doctest/doctest.h>

#include "skin/SkinLocation.h"
#include "tests/RunTimeErrors.h"
#include "tests/control/DrivenControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// As the fake host tells what was invalidated.
std::string Edges(const LayoutRect& r) {
    const auto n = [](std::int32_t value) { return std::to_string(value); };
    return n(r.Left) + "," + n(r.Top) + "," + n(r.Right) + "," + n(r.Bottom);
}

} // namespace

TEST_CASE("a new control has the default of every property") {
    const ControlFixture f;
    const VantikFrameTab& c = f.Control;
    for (const Property zero :
         {Property::TabBarPosXJust, Property::TabBarPosYJust, Property::CaptionXjust, Property::CaptionYjust,
          Property::IcoXjust, Property::IcoYjust, Property::DelBtnXJust, Property::DelBtnYJust,
          Property::NavBtnYjust, Property::NavBtnXjust, Property::TabToTab, Property::TabBorder,
          Property::FrameDist})
        CHECK(c.Get<std::int16_t>(zero) == 0);
    for (const Property zero :
         {Property::TabBarPos, Property::CaptionPos, Property::CaptionColor0, Property::CaptionColor1})
        CHECK(c.Get<std::int32_t>(zero) == 0);
    CHECK(c.Get<std::int32_t>(Property::TabPos) == Windowtop);
    CHECK(c.Get<std::int16_t>(Property::BarWidth) == 20);
    CHECK(c.Get<std::int32_t>(Property::TabOffSet) == 10000);
    CHECK(c.Get<std::int16_t>(Property::DelButton) == True);
    CHECK(c.Get<std::u16string>(Property::DefaultCaption) == u"Tab");
    CHECK(c.Get<std::u16string>(Property::FixOcxList).empty());
    CHECK(c.Get<std::u16string>(Property::SkinFile) == u"skin.ini");
    CHECK(c.Get<std::u16string>(Property::SkinPath) == u"Skin\\");
    CHECK(c.Font().Get() == f.Host.Font.Get());
    REQUIRE(c.Picture());
    short type = -2;
    CHECK(SUCCEEDED(c.Picture().As<IPicture>()->get_Type(&type)));
    CHECK(type == PICTYPE_NONE);
}

TEST_CASE("every property marks its own key changed, also when the value is the same") {
    ControlFixture f(1);
    for (std::size_t row = 0; row < PropertyCount; ++row) {
        const auto property = static_cast<Property>(row);
        const PropertyInfo& info = InfoOf(property);
        if (info.Effect == SideEffect::OwnRoutine) continue;
        f.Control.UserControl_Paint(); // nothing waits that would show in the log
        f.Host.TakeLog();
        std::visit(
            [&](auto field) {
                if constexpr (!std::is_same_v<decltype(field), std::monostate>)
                    f.Control.Let(property, f.Control.State().Properties.*field);
            },
            info.Field);
        const std::u16string key = info.Key;
        CHECK(f.Host.TakeLog().find("PropertyChanged " + std::string(key.begin(), key.end())) == 0);
    }
}

TEST_CASE("setters store any value as it is") {
    ControlFixture f;
    f.Control.Let<std::int32_t>(Property::TabPos, 99);
    f.Control.Let<std::int16_t>(Property::BarWidth, -3);
    f.Control.Let<std::int16_t>(Property::TabBorder, 5);
    CHECK(f.Control.Get<std::int32_t>(Property::TabPos) == 99);
    CHECK(f.Control.Get<std::int16_t>(Property::BarWidth) == -3);
    CHECK(f.Control.Get<std::int16_t>(Property::TabBorder) == 5);
}

TEST_CASE("a SkinFile that does not exist shows the file message and keeps the old value") {
    ControlFixture f;
    f.Control.SkinFile(u"other.ini");
    CHECK(f.Control.Get<std::u16string>(Property::SkinFile) == u"skin.ini");
    REQUIRE(f.Host.Messages.size() == 1);
    CHECK(f.Host.Messages[0] == NoSuchSkinFile);
    CHECK(f.Host.TakeLog() == "MsgBox");
}

TEST_CASE(
    "a SkinFile that is not in the current SkinPath shows the file message, even if it exists elsewhere") {
    DrivenControl f(1);
    f.Folder.MakeFolder(u"Other");
    f.Folder.Write(u"Other\\mine.ini", "Start\r\nEnd\r\n");
    f.Control.SkinFile(u"mine.ini");
    CHECK(f.Control.Get<std::u16string>(Property::SkinFile) == u"skin.ini");
    REQUIRE(f.Host.Messages.size() == 1);
    CHECK(f.Host.Messages[0] == NoSuchSkinFile);
    f.Control.SkinPath(u"Other"); // now it is
    f.Control.SkinFile(u"mine.ini");
    CHECK(f.Control.Get<std::u16string>(Property::SkinFile) == u"mine.ini");
    CHECK(f.Host.Messages.size() == 1);
}

TEST_CASE("a SkinFile that exists is kept and marked changed before its first fault ends the assignment") {
    DrivenControl f(1);
    f.Folder.Write(u"Temp\\bad.ini", "Start\r\n[Tab]\r\n1: 1,2,3\r\nEnd\r\n");
    f.Control.UserControl_Paint();
    f.Host.TakeLog();
    CHECK(NumberRaisedBy([&] { f.Control.SkinFile(u"bad.ini"); }) == 9);
    CHECK(f.Control.Get<std::u16string>(Property::SkinFile) == u"bad.ini");
    f.Control.UserControl_Paint();
    CHECK(f.Host.TakeLog() == "PropertyChanged SkinFile"); // no Cls: nothing is painted again
}

TEST_CASE("a SkinPath that does not exist shows the folder message and keeps the old value") {
    ControlFixture f;
    f.Control.SkinPath(u"Elsewhere");
    CHECK(f.Control.Get<std::u16string>(Property::SkinPath) == u"Skin\\");
    REQUIRE(f.Host.Messages.size() == 1);
    CHECK(f.Host.Messages[0] == NoSuchSkinFolder);
}

TEST_CASE("a SkinPath that exists is stored without reading the skin or painting") {
    ControlFixture f;
    f.Host.Folder = u"C:";
    f.Control.SkinPath(u"windows");
    CHECK(f.Control.Get<std::u16string>(Property::SkinPath) == u"windows");
    CHECK(f.Host.TakeLog() == "PropertyChanged SkinPath");
}

TEST_CASE("FrameDist paints nothing") {
    ControlFixture f(2);
    f.Control.UserControl_Paint();
    f.Host.TakeLog();
    f.Control.Let<std::int16_t>(Property::FrameDist, 4);
    f.Control.UserControl_Paint();
    CHECK(f.Host.TakeLog() == "PropertyChanged FrameDist");
}

TEST_CASE("setting DelButton to false redraws the bars without close buttons and without a full repaint") {
    DrivenControl f(3), without(3);
    f.Control.UserControl_Paint();
    const Pixels before = f.Host.Read();
    f.Host.TakeLog();
    f.Host.TakeInvalidated();
    f.Control.Let<std::int16_t>(Property::DelButton, False);
    const LayoutRect& strip = f.State().Layout.BarStripRect;
    CHECK(f.Host.TakeInvalidated() == Edges(strip));
    f.Control.UserControl_Paint();
    CHECK(f.Host.TakeLog() == "PropertyChanged DelButton"); // no Cls: no full repaint

    without.Control.Let<std::int16_t>(Property::DelButton, False);
    without.Control.RepaintAll();
    without.Control.UserControl_Paint();
    const Pixels after = f.Host.Read();
    CHECK(Difference(after, without.Host.Read()) == "same");
    for (std::int32_t slot = 0; slot < 3; ++slot) {
        const LayoutRect button = f.Close(slot);
        int changed = 0;
        for (std::int32_t y = button.Top; y <= button.Bottom; ++y)
            for (std::int32_t x = button.Left; x <= button.Right; ++x)
                changed += before.At(x, y) != after.At(x, y);
        CHECK(changed > 0);
    }
}

TEST_CASE(
    "a new Picture shows at the next full repaint; setting TabToTab repaints the edges and the bars only") {
    DrivenControl f(3);
    f.Control.UserControl_Paint();
    const std::uint32_t background = f.Host.Read().At(200, 150);
    f.Control.Picture(PictureOf(Pixels(440, 300, 0x123456)));
    f.Control.UserControl_Paint();
    CHECK(f.Host.Read().At(200, 150) == background);
    f.Control.Let<std::int16_t>(Property::TabToTab, 4);
    f.Control.UserControl_Paint();
    CHECK(f.Host.Read().At(200, 150) == background);
    f.Control.RepaintAll();
    f.Control.UserControl_Paint();
    CHECK(f.Host.Read().At(200, 150) == 0x123456);
}

TEST_CASE("setting BarWidth repaints everything") {
    ControlFixture f(2);
    f.Control.Let<std::int16_t>(Property::BarWidth, 60);
    f.Control.UserControl_Paint();
    CHECK(f.Host.TakeLog().find("Cls") != std::string::npos);
}
