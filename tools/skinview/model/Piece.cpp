#include "tools/skinview/model/Piece.h"

#include <algorithm>
#include <optional>

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "model/Skin.h"

namespace vantik {

namespace {

std::int32_t NumberAt(const DefinitionText& text, Span span) {
    const std::int32_t number = ToInteger32(text.Upper(span));
    if (number < -FarthestPixel || number > FarthestPixel) Raise(RunTimeErrorNumber::Overflow);
    return number;
}

std::optional<Piece> ReadPiece(const DefinitionText& text, const DefinitionLine& line, std::int32_t index) {
    Piece piece = {index, {}, line.Number};
    if (line.Numbers.size() < piece.Numbers.size()) return std::nullopt;
    try {
        for (std::size_t i = 0; i < piece.Numbers.size(); ++i)
            piece.Numbers[i] = NumberAt(text, line.Numbers[i]);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
    return piece;
}

} // namespace

PixelBox Piece::Box() const noexcept {
    const auto [left, right] = std::minmax(Numbers[LeftEdge], Numbers[RightEdge]);
    const auto [top, bottom] = std::minmax(Numbers[TopEdge], Numbers[BottomEdge]);
    return {left, top, right + 1, bottom + 1};
}

std::vector<Piece> PiecesOf(const DefinitionText& text) {
    std::vector<Piece> pieces;
    for (std::int32_t index = 0; index < SkinRects::Count; ++index) {
        const DefinitionLine* line = text.EntryOf(index);
        if (!line) continue;
        if (const auto piece = ReadPiece(text, *line, index)) pieces.push_back(*piece);
    }
    return pieces;
}

const Piece* FindPiece(const std::vector<Piece>& pieces, std::int32_t index) noexcept {
    const auto found = std::ranges::find(pieces, index, &Piece::Index);
    return found == pieces.end() ? nullptr : &*found;
}

std::string WithNumbers(const DefinitionText& text, std::int32_t index, const EdgeNumbers& numbers) {
    DefinitionText changed = text;
    const auto pieces = PiecesOf(text);
    const Piece* piece = FindPiece(pieces, index);
    if (!piece) return text.Bytes();
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (numbers[i] != piece->Numbers[i]) changed.SetNumber(index, i, numbers[i]);
    return changed.Bytes();
}

} // namespace vantik
