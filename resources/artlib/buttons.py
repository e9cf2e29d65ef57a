"""The vector source of the skins' buttons: the close button of a bar, and the three beside the row."""

SIZE = 20  # at 100 percent

# Each sign is a line on a grid of 20 units.
CLOSE = "M6.5 6.5L13.5 13.5M13.5 6.5L6.5 13.5"
BACK, FORTH = "M11.75 6L7.75 10L11.75 14", "M8.25 6L12.25 10L8.25 14"
UP, DOWN = "M6 11.75L10 7.75L14 11.75", "M6 8.25L10 12.25L14 8.25"
MENU = "M5.5 6.5H14.5M5.5 10H14.5M5.5 13.5H14.5"


def drawing(palette, scale, sign, close=False):
    """One button as a drawing of its own size."""
    plate, ring = ("ClosePlate", "CloseRing") if close else ("Plate", "Ring")
    sign_colour, weight = (palette["CloseSign"], 1.6) if close else (palette["Sign"], 1.8)
    size = round(SIZE * scale)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{size}" height="{size}">'
            + plate_of(palette, size, round(scale), plate, ring)
            + f'<path transform="scale({scale})" d="{sign}" fill="none" stroke="{sign_colour}" '
              f'stroke-width="{weight}" stroke-linecap="round" stroke-linejoin="round"/></svg>')


def plate_of(palette, size, margin, plate, ring):
    """A plate that is not told from the page is left out, so that nothing becomes of it in other looks."""
    inset, radius = margin + 0.5, size / 4
    fill = "none" if palette[plate] == palette["Page"] else palette[plate]
    return (f'<rect x="{inset}" y="{inset}" width="{size - 2 * inset}" height="{size - 2 * inset}" rx="{radius}" '
            f'fill="{fill}" stroke="{palette[ring]}"/>')


def drawings(palette, scale, standing):
    """File names and drawings; for rows that stand, the buttons that scroll them point up and down."""
    back, forth, name = (UP, DOWN, ("up.png", "down.png")) if standing else (BACK, FORTH, ("back.png", "forth.png"))
    return {"close.png": drawing(palette, scale, CLOSE, close=True), name[0]: drawing(palette, scale, back),
            name[1]: drawing(palette, scale, forth), "menu.png": drawing(palette, scale, MENU)}
