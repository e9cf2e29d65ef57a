#include "tools/skinview/model/NewSkin.h"

#include <doctest/doctest.h>

#include "model/ControlState.h"
#include "skin/SkinParser.h"
#include "tools/skinview/model/LocalNames.h"

using namespace vantik;

TEST_CASE("A new skin has all rectangles that are drawn, in order and inside its bitmap") {
    const auto pieces = PiecesOf(DefinitionText(NewDefinition()));
    const PixelImage bitmap = NewBitmap();
    REQUIRE(pieces.size() == 23);
    for (const Piece& piece : pieces) {
        CAPTURE(piece.Index);
        CHECK(piece.Numbers[LeftEdge] <= piece.Numbers[RightEdge]);
        CHECK(piece.Numbers[TopEdge] <= piece.Numbers[BottomEdge]);
        CHECK(piece.Box().Left >= 0);
        CHECK(piece.Box().Top >= 0);
        CHECK(piece.Box().Right <= bitmap.Width());
        CHECK(piece.Box().Bottom <= bitmap.Height());
    }
}

TEST_CASE("The control's own parser takes it, with the four buttons") {
    const std::string text = NewDefinition();
    ControlState state;
    SkinParser parser(state, {u"C:", u"skin"}, [](const std::u16string&, PngSize&) {});
    parser.Parse(std::u16string(text.begin(), text.end()));
    CHECK(state.SkinBitmapPath.ends_with(u"SKIN.BMP"));
    CHECK(state.SkinIcons.SkinIconCount() == 4);
    CHECK(state.SkinIcons.DeleteButtonIcon == 0);
    CHECK(state.SkinIcons.MenuBarIcon == 3);
    CHECK(state.SkinRects[FRightLine].Width == state.SkinRects[FBottomLine].Width);
}

TEST_CASE("Its three looks differ, and edges and pages stand where the rectangles say") {
    const PixelImage bitmap = NewBitmap();
    const auto pieces = PiecesOf(DefinitionText(NewDefinition()));
    const auto pixel = [&](std::int32_t piece, std::int32_t x, std::int32_t y) {
        const PixelBox box = FindPiece(pieces, piece)->Box();
        return bitmap.At(box.Left + x, box.Top + y);
    };
    CHECK(pixel(FillPic0, 0, 9) != pixel(FillPic0 + 1, 0, 9));
    CHECK(pixel(FillPic0, 0, 9) != pixel(FillPic0 + 2, 0, 9));
    CHECK(pixel(FillPic0 + 2, 0, 9) == pixel(FBackPic, 0, 0));
    CHECK(pixel(LeftPic0, 0, 0) == 0xFF00FF);
    CHECK(pixel(RightPic0, 5, 0) == 0xFF00FF);
    CHECK(pixel(FLeftLine, 0, 0) == pixel(FTopLine, 0, 0));
    CHECK(pixel(FLeftLine, 0, 0) != pixel(FBackPic, 0, 0));
    CHECK(pixel(Line0, 0, 3) == pixel(FLeftLine, 0, 0));
}
