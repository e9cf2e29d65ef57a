#include "tools/skinview/model/PieceTexts.h"

#include <array>

#include "check/RectNames.h"

namespace vantik {

namespace {

constexpr std::array Purposes = {
    "its height is the thickness of the band between the control's edge and the page's frame",
    "its height is the thickness of the row of bars",
    "a bar's middle, normal: one column that is repeated",
    "a bar's middle under the pointer: one column that is repeated",
    "a bar's middle, active: one column that is repeated",
    "a bar's leading end, normal",
    "a bar's leading end under the pointer",
    "a bar's leading end, active",
    "a bar's trailing end, normal",
    "a bar's trailing end under the pointer",
    "a bar's trailing end, active",
    "the separator behind a normal bar, where bars share edges (TabBorder False)",
    "the separator behind the bar under the pointer (TabBorder False)",
    "the separator behind the active bar (TabBorder False)",
    "the top left corner of the page's frame",
    "the top right corner of the page's frame",
    "the bottom left corner of the page's frame",
    "the bottom right corner of the page's frame",
    "its top left pixel is the colour of the page",
    "the frame's top edge, stretched",
    "the frame's bottom edge, stretched",
    "the frame's left edge, stretched",
    "the frame's right edge, stretched",
};

std::string SizeOf(const Piece& piece) {
    return std::to_string(piece.Box().Width()) + " x " + std::to_string(piece.Box().Height());
}

} // namespace

std::string TitleOf(std::int32_t piece) {
    const std::string_view name = RectName(piece);
    const std::string number = std::to_string(piece);
    return name.empty() ? number : number + " " + std::string(name);
}

const char* PurposeOf(std::int32_t piece) noexcept {
    const auto index = static_cast<std::size_t>(piece);
    return index < Purposes.size() ? Purposes[index] : "";
}

std::string PlaceOf(const Piece& piece) {
    const auto number = [&](Edge edge) { return std::to_string(piece.Numbers[edge]); };
    return "left " + number(LeftEdge) + ", right " + number(RightEdge) + ", top " + number(TopEdge) +
           ", bottom " + number(BottomEdge) + ": " + SizeOf(piece) + " pixels";
}

std::string RowOf(const Piece& piece) {
    std::string row = std::to_string(piece.Index) + "\t" + std::string(RectName(piece.Index));
    for (const std::int32_t number : piece.Numbers) row += "\t" + std::to_string(number);
    return row + "\t" + SizeOf(piece);
}

std::string RowOf(const Fault& fault) {
    const std::string place =
        "line " + std::to_string(fault.Line) + ", column " + std::to_string(fault.Column);
    const std::string meant = fault.Meant.empty() ? "" : "; did you mean " + fault.Meant + "?";
    return std::string(NameOf(fault.Severity)) + "\t" + place + "\t" + fault.What + meant;
}

} // namespace vantik
