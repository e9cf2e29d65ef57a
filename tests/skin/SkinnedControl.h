// A control whose skin the test makes up: pieces of unequal heights, icons with alpha, no caption.
#pragma once

#include <cstdint>
#include <vector>

#include "render/RepaintDriver.h"
#include "skin/Decorations.h"
#include "tests/render/FakeUserControl.h"
#include "tests/skin/IconPicture.h"
#include "tests/skin/TemporaryFolder.h"

namespace vantik::test {

class SkinnedControl {
public:
    explicit SkinnedControl(std::uint32_t seed = 1, bool withWindow = false);

    // Appends an icon and writes its file; the button names get their role and size, as from a definition.
    std::int16_t AddIcon(const std::u16string& name, const IconPicture& picture);
    // Close button of 9 x 8, previous, next and menu of 7 x 6, 8 x 7 and 6 x 9.
    void AddButtons();
    void RemoveFile(std::int16_t icon) const;

    // Some pieces are longer than a narrow bar, some taller than the strip.
    void CutUnusualPieces(std::uint32_t seed);

    void SetTabCount(std::int16_t count); // all enabled, without icons
    void RepaintAll() { Driver.RepaintAll(); }
    void RedrawBars() { Driver.RedrawBars(); }

    // What the control shows, and what it would show without any decoration.
    Pixels Shown() const { return Host.Read(); }
    Pixels WithoutDecorations();

    // The painted bars with decorations by plain loops: all that a full repaint has to show. With a tab, its close button
    // is in the hover look.
    Pixels Expected(std::int16_t hoveredClose = -1);

    // Adds to a picture what one bar has, and the buttons beside the strip.
    void MixTabIcon(Pixels& onto, std::int16_t tab) const;
    void MixCloseButton(Pixels& onto, std::int16_t tab, int style) const;
    void MixNavButtons(Pixels& onto) const;
    RECT Slot(std::int16_t tab) const;
    RECT Room(std::int16_t tab) const; // the slot, or the whole bar when that is longer
    RECT Row() const;                  // all that bars are painted on

    TemporaryFolder Folder;
    FakeUserControl Host;
    ControlState State;
    vantik::Surfaces Surfaces;
    vantik::Decorations Decorations;
    RepaintDriver Driver;
    std::vector<IconPicture> Pictures; // by icon

private:
    std::int16_t IconOf(std::int16_t tab) const;
    std::int32_t AcrossButton(std::int32_t thickness) const;
    void MixButton(Pixels& onto, std::int16_t role, POINT at, bool greyed) const;
};

} // namespace vantik::test
