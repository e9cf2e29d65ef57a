// What the pieces are called and what they are for.
#pragma once

#include <cstdint>
#include <string>

#include "check/Fault.h"
#include "tools/skinview/model/Piece.h"

namespace vantik {

// "2 FillPic0"; the number alone for one that has no name.
std::string TitleOf(std::int32_t piece);

// "a bar's middle, normal look", or nothing.
const char* PurposeOf(std::int32_t piece) noexcept;

// "left 12, right 12, top 0, bottom 31: 1 x 32 pixels"
std::string PlaceOf(const Piece& piece);

// Rows of lists, with tabs between the columns: number, name, the four numbers and the size; severity, place and what is
// wrong.
std::string RowOf(const Piece& piece);
std::string RowOf(const Fault& fault);

} // namespace vantik
