// A control with a generated skin, painted onto the fake host, and the same picture computed by plain loops.
#pragma once

#include <random>
#include <string>

#include "model/ControlState.h"
#include "render/BarDecorations.h"
#include "render/RepaintDriver.h"
#include "render/Surfaces.h"
#include "tests/render/FakeUserControl.h"

namespace vantik::test {

// Fills one small square per decoration and notes what was asked for.
class FakeDecorations : public BarDecorations {
public:
    FakeDecorations(UserControl& host, const ControlState& control) : host_(host), control_(control) {}

    void DrawTabIcon(std::int16_t index, std::uint8_t state) override;
    void DrawCloseButton(std::int16_t index, std::uint8_t& state, std::uint8_t& flag) override;
    void DrawNavButtons() override;
    std::int32_t TabIconWidth(std::int16_t) override { return IconWidth; }

    std::string TakeLog();
    bool Paints = false;
    std::int32_t IconWidth = 0;

private:
    void Note(const std::string& entry);
    void Square(std::int16_t index, std::int32_t u, COLORREF colour);

    UserControl& host_;
    const ControlState& control_;
    std::string log_;
};

// How a generated skin may look. Pieces differ in size and height from look to look, and some of their pixels have the
// key colour.
struct SkinWish {
    bool PlainFrame = false; // edges of one colour and one pixel, and no corners
    bool Unusual = false;    // pieces that may be longer than their bar and taller than the strip
};

struct PaintedControl {
    explicit PaintedControl(std::int32_t width = 160, std::int32_t height = 120, bool withWindow = false);

    void MakeSkin(std::uint32_t seed, SkinWish wish = {});
    void AddTabs(std::int16_t count);

    // What a full repaint has to show but for captions and decorations, by loops over the layout.
    Pixels Expected() const;

    Pixels Read() const { return Host.Read(); }

    FakeUserControl Host;
    ControlState State;
    vantik::Surfaces Surfaces;
    FakeDecorations Decorations;
    RepaintDriver Driver;
    Pixels Skin;    // what SkinDC holds
    Pixels Picture; // what Picture holds, when it holds one
};

// A control in a random state: sides, placements, borders, tabs, looks, shifts, skins, pictures.
struct RandomControl {
    explicit RandomControl(std::uint32_t seed);

    std::int32_t Between(std::int32_t low, std::int32_t high);
    std::int16_t Small(int low, int high) { return static_cast<std::int16_t>(Between(low, high)); }
    bool Chance(int percent) { return Between(0, 99) < percent; }

    void RandomTabs(bool withCaptions);
    // A change that only RedrawBars follows.
    void ChangeLooks();

    std::mt19937 Random;
    PaintedControl Painted;
};

} // namespace vantik::test
