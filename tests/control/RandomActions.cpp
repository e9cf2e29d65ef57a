#include "tests/control/RandomActions.h"

#include "base/RunTimeError.h"

namespace vantik::test {

namespace {

constexpr std::uint32_t Operations = 9, Pointings = 8;
constexpr std::int16_t MaxTabs = 60;

// Properties with values that keep the control in the realm of the sensible.
struct Choice {
    Property Which;
    std::int32_t Low, High;
};
constexpr Choice Choices[] = {
    {Property::TabBarPos, 0, 3},      {Property::TabPos, 0, 3},         {Property::BarWidth, 30, 90},
    {Property::TabBarPosXJust, 0, 9}, {Property::TabBarPosYJust, 0, 9}, {Property::CaptionPos, 0, 2},
    {Property::CaptionColor0, 0, 99}, {Property::CaptionXjust, -5, 30}, {Property::CaptionYjust, -3, 5},
    {Property::IcoXjust, -2, 5},      {Property::IcoYjust, -3, 3},      {Property::DelButton, -1, 0},
    {Property::DelBtnXJust, -4, 4},   {Property::DelBtnYJust, -3, 3},   {Property::NavBtnXjust, 0, 8},
    {Property::NavBtnYjust, 0, 8},    {Property::TabToTab, -12, 6},     {Property::TabBorder, -1, 0},
    {Property::FrameDist, 0, 12},
};

} // namespace

RandomAction::RandomAction(std::mt19937& chance)
    : kind_(chance() % (Operations + Pointings + 3)),
      choice_(chance()),
      index_(static_cast<std::int16_t>(chance() % 12)),
      x_(static_cast<std::int32_t>(chance() % 440)),
      y_(static_cast<std::int32_t>(chance() % 300)) {}

void RandomAction::DoTo(DrivenControl& control) const {
    try {
        if (kind_ < Operations)
            Operate(control);
        else if (kind_ < Operations + Pointings)
            Point(control);
        else
            LetProperty(control.Control);
    } catch (const RunTimeError&) {
        // What a host would be told; the state is what counts.
    }
}

void RandomAction::Operate(DrivenControl& driven) const {
    VantikFrameTab& control = driven.Control;
    std::u16string caption = choice_ % 2 ? u"" : u"A caption that is rather long";
    switch (kind_) {
    case 0: return control.TabCount(static_cast<std::int16_t>(choice_ % 12));
    case 1: return control.ActiveTab(index_);
    case 2:
        if (control.TabCount() < MaxTabs) control.InsertTab(index_, caption);
        return;
    case 3: return control.RemoveTab(index_);
    case 4: return control.SetBarIco(index_, choice_ % 3 ? u"sun" : u"handno");
    case 5: return control.SetBarCaption(index_, caption, choice_ % 4 < 2 ? True : False);
    case 6: return control.SetBarEnable(index_, choice_ % 3 ? True : False);
    case 7: return driven.Wheel(choice_ % 2 ? 120 : -120);
    default: return driven.Key(choice_ % 2 ? 37 : 39);
    }
}

void RandomAction::Point(DrivenControl& driven) const {
    const std::int32_t slot = index_ % 6;
    switch (kind_ - Operations) {
    case 0: return driven.Move(x_, y_);
    case 1: return driven.MoveTo(driven.Bar(slot));
    case 2: return driven.MoveTo(driven.Close(slot));
    case 3: return driven.Click(driven.Bar(slot));
    case 4: return choice_ % 4 ? driven.MoveTo(driven.Close(slot)) : driven.Click(driven.Close(slot));
    case 5: return driven.Click(driven.Buttons().Next);
    case 6: return driven.Click(driven.Buttons().Previous);
    default: return driven.Click(driven.Buttons().Menu);
    }
}

void RandomAction::LetProperty(VantikFrameTab& control) const {
    const Choice& choice = Choices[choice_ % std::size(Choices)];
    const auto range = static_cast<std::uint32_t>(choice.High - choice.Low + 1);
    const std::int32_t value = choice.Low + static_cast<std::int32_t>(choice_ / std::size(Choices) % range);
    const bool isWide = std::holds_alternative<std::int32_t PropertyValues::*>(InfoOf(choice.Which).Field);
    if (isWide)
        control.Let(choice.Which, value);
    else
        control.Let(choice.Which, static_cast<std::int16_t>(value));
}

} // namespace vantik::test
