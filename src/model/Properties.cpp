#include "model/Properties.h"

namespace vantik {

namespace {

using P = PropertyValues;
using enum PropertyType;
using enum SideEffect;

constexpr PropertyInfo Table[PropertyCount] = {
    {u"TabCount", Integer16, OwnRoutine, &P::TabCount},
    {u"ActiveTab", Integer16, OwnRoutine, &P::ActiveTab},
    {u"Picture", Picture, OwnRoutine, {}},
    {u"TabBarPos", Enumeration, RepaintAll, &P::TabBarPos},
    {u"TabPos", Enumeration, RepaintAll, &P::TabPos},
    {u"BarWidth", Integer16, RepaintAll, &P::BarWidth},
    {u"TabBarPosXJust", Integer16, RepaintAll, &P::TabBarPosXJust},
    {u"TabBarPosYJust", Integer16, RepaintAll, &P::TabBarPosYJust},
    {u"TabOffSet", Integer32, None, &P::TabOffSet},
    {u"DefaultCaption", Text, None, &P::DefaultCaption},
    {u"Font", Font, OwnRoutine, {}},
    {u"CaptionPos", Enumeration, RedrawBars, &P::CaptionPos},
    {u"CaptionColor0", Colour, RedrawBars, &P::CaptionColor0},
    {u"CaptionColor1", Colour, RedrawBars, &P::CaptionColor1},
    {u"CaptionXjust", Integer16, RedrawBars, &P::CaptionXjust},
    {u"CaptionYjust", Integer16, RedrawBars, &P::CaptionYjust},
    {u"IcoXjust", Integer16, RedrawBars, &P::IcoXjust},
    {u"IcoYjust", Integer16, RedrawBars, &P::IcoYjust},
    {u"DelButton", Flag, RedrawBars, &P::DelButton},
    {u"DelBtnXJust", Integer16, ReleaseCloseButtonThenRedrawBars, &P::DelBtnXJust},
    {u"DelBtnYJust", Integer16, ReleaseCloseButtonThenRedrawBars, &P::DelBtnYJust},
    {u"NavBtnYjust", Integer16, RepaintAll, &P::NavBtnYjust},
    {u"NavBtnXjust", Integer16, RepaintAll, &P::NavBtnXjust},
    {u"FixOcxList", Text, None, &P::FixOcxList},
    {u"TabToTab", Integer16, RepaintFrameThenBars, &P::TabToTab},
    {u"TabBorder", Flag, RepaintAll, &P::TabBorder},
    {u"FrameDist", Integer16, None, &P::FrameDist},
    {u"SkinFile", Text, OwnRoutine, &P::SkinFile},
    {u"SkinPath", Text, OwnRoutine, &P::SkinPath},
};

} // namespace

const PropertyInfo& InfoOf(Property property) noexcept { return Table[static_cast<std::size_t>(property)]; }

} // namespace vantik
