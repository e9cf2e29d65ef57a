// The persisted properties: their fields, keys, defaults and what assigning them sets off.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

#include "model/Enumerations.h"

namespace vantik {

// In the order in which they are saved, loaded and listed.
enum class Property : std::uint8_t {
    TabCount,
    ActiveTab,
    Picture,
    TabBarPos,
    TabPos,
    BarWidth,
    TabBarPosXJust,
    TabBarPosYJust,
    TabOffSet,
    DefaultCaption,
    Font,
    CaptionPos,
    CaptionColor0,
    CaptionColor1,
    CaptionXjust,
    CaptionYjust,
    IcoXjust,
    IcoYjust,
    DelButton,
    DelBtnXJust,
    DelBtnYJust,
    NavBtnYjust,
    NavBtnXjust,
    FixOcxList,
    TabToTab,
    TabBorder,
    FrameDist,
    SkinFile,
    SkinPath,
};
inline constexpr std::size_t PropertyCount = 29;

// Values exactly as they were assigned: no range check, no clamping. Positions, widths and shifts are pixels; TabOffSet
// is in the host's unit of the children's Left (twips on a form); colours are OLE_COLOR values.
struct PropertyValues {
    std::int16_t TabCount = 0;
    std::int16_t ActiveTab = -1;
    std::int32_t TabBarPos = TabLeft;
    std::int32_t TabPos = Windowtop;
    std::int16_t BarWidth = 20;
    std::int16_t TabBarPosXJust = 0;
    std::int16_t TabBarPosYJust = 0;
    std::int32_t TabOffSet = 10000;
    std::u16string DefaultCaption = u"Tab";
    std::int32_t CaptionPos = AlignLeft;
    std::int32_t CaptionColor0 = 0;
    std::int32_t CaptionColor1 = 0;
    std::int16_t CaptionXjust = 0;
    std::int16_t CaptionYjust = 0;
    std::int16_t IcoXjust = 0;
    std::int16_t IcoYjust = 0;
    Boolean DelButton = True;
    std::int16_t DelBtnXJust = 0;
    std::int16_t DelBtnYJust = 0;
    std::int16_t NavBtnYjust = 0;
    std::int16_t NavBtnXjust = 0;
    std::u16string FixOcxList;
    std::int16_t TabToTab = 0;
    Boolean TabBorder = False;
    std::int16_t FrameDist = 0;
    std::u16string SkinFile = u"skin.ini";
    std::u16string SkinPath = u"Skin\\";
};

// Where a property's value stands; the objects (Picture, Font) are held by the control and have no field here.
using PropertyField = std::variant<std::monostate, std::int16_t PropertyValues::*,
                                   std::int32_t PropertyValues::*, std::u16string PropertyValues::*>;

// How the value travels through a property bag.
enum class PropertyType : std::uint8_t {
    Integer16,
    Integer32,
    Enumeration,
    Colour,
    Flag,
    Text,
    Picture,
    Font
};

// What assigning a property does after the value is stored and marked changed. OwnRoutine: the setter is more than that.
enum class SideEffect : std::uint8_t {
    None,
    RepaintAll,
    RedrawBars,
    RepaintFrameThenBars,
    ReleaseCloseButtonThenRedrawBars,
    OwnRoutine,
};

struct PropertyInfo {
    const char16_t* Key;
    PropertyType Type;
    SideEffect Effect;
    PropertyField Field;
};

const PropertyInfo& InfoOf(Property property) noexcept;

} // namespace vantik
