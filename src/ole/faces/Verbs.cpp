#include "ole/faces/Verbs.h"

#include "base/Checked.h"
#include "ole/control/Control.h"

namespace vantik {

namespace {

constexpr DWORD OnMenu = OLEVERBATTRIB_ONCONTAINERMENU;

constexpr Verb Table[] = {
    {VerbEdit, L"&Edit", OnMenu | OLEVERBATTRIB_NEVERDIRTIES},
    {VerbProperties, L"&Properties...", OnMenu},
    {VerbNextTab, L"&Next tab", OnMenu},
    {VerbPreviousTab, L"P&revious tab", OnMenu},
    {VerbAddTab, L"A&dd tab", OnMenu},
    {VerbAbout, L"&About...", OnMenu | OLEVERBATTRIB_NEVERDIRTIES},
};

// An operation that ended early may have changed something, too.
struct Announcement {
    Control& Changed;
    ~Announcement() { Changed.ShowChanges(); }
};

// A step back from no tab at all leads to the last one, as a step on leads to the first.
void Step(Control& control, int step) {
    control.Document.Need();
    VantikFrameTab& engine = control.Engine;
    const int count = engine.TabCount();
    int tab = engine.ActiveTab() < 0 && step < 0 ? 0 : engine.ActiveTab();
    for (int tried = 0; tried < count; ++tried) {
        tab = (tab + step + count) % count;
        if (!engine.GetTabEnable(static_cast<std::int16_t>(tab))) continue;
        const Announcement announcement{control};
        return engine.ActiveTab(static_cast<std::int16_t>(tab));
    }
}

} // namespace

std::span<const Verb> Verbs() noexcept { return Table; }

void ActivateNextTab(Control& control) { Step(control, 1); }

void ActivatePreviousTab(Control& control) { Step(control, -1); }

void AddTab(Control& control) {
    control.Document.Need();
    const std::int16_t before = control.Engine.TabCount();
    const Announcement announcement{control};
    control.Engine.TabCount(Add16(before, 1));
    control.Engine.ActiveTab(before);
}

} // namespace vantik
