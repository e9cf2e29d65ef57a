"""What can be told apart in a skin: contrast ratios measured in its pixels, as the control shows them."""

import pathlib
from typing import NamedTuple, Optional

from artlib.definition import KEY_COLOUR, read_definition
from artlib.icontreatment import EQUAL_VALUE, GREY_OF_BLUE, GREY_OF_GREEN, OWN_COLOURS, mixed, recoloured
from artlib.pixels import load_bmp24, load_png

LOOKS = {0: "normal", 1: "hover", 2: "active"}
ROW_BUTTONS = {"LEFTBUTTON": "previous", "RIGHTBUTTON": "next", "MENUBAR": "menu"}
ROLES = set(ROW_BUTTONS) | {"DELETEBUTTON"}
FRAME_LINES = ["FTopLine", "FBottomLine", "FLeftLine", "FRightLine"]


class Least(NamedTuple):
    """The ratios that are wanted."""
    text: float = 4.5
    sign: float = 3.0
    pressed: float = 2.0

    def strict(self):
        return Least(7.0, 7.0, 3.0)


GREYED_SHOWS = 1.5   # a greyed sign is still there,
GREYED_SHARE = 0.75  # but no stronger than this part of the released one


class Finding(NamedTuple):
    """One ratio. Most is an upper limit."""
    what: str
    ratio: float
    least: float
    most: Optional[float] = None

    @property
    def holds(self):
        return self.ratio >= self.least and (self.most is None or self.ratio <= self.most)


def luminance(colour):
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in (v / 255 for v in colour[:3])]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    """The contrast ratio of two colours as the Web Content Accessibility Guidelines define it."""
    dark, light = sorted((luminance(one), luminance(other)))
    return (light + 0.05) / (dark + 0.05)


def spread_of(colours):
    """The contrast between the darkest and the lightest."""
    colours = sorted(colours, key=luminance)
    return contrast(colours[0], colours[-1])


class SkinArt:
    """A skin's files, read as the control reads them."""

    def __init__(self, definition):
        definition = pathlib.Path(definition)
        self.folder = definition.parent
        self.rects, files = read_definition(definition)
        self.bitmap = load_bmp24(self.file(bitmap_of(definition)))
        self.icons = {key: load_png(self.file(file)) for key, file in files.items()}
        self.captions = caption_colours(self.folder)
        self.page = self.pixel("FBackPic")

    def file(self, name):
        """The file of that name in whatever case."""
        return next((path for path in self.folder.iterdir() if path.name.lower() == name.lower()), self.folder / name)

    def pixel(self, name, x=0, y=0):
        rect = self.rects[name]
        return self.bitmap[rect.left + x, rect.top + y][:3]

    def fill(self, look):
        """The colours of a bar's middle from its outer to its inner edge."""
        rect = self.rects[f"FillPic{look}"]
        return [self.bitmap[rect.left, y][:3] for y in range(rect.top, rect.bottom + 1)]

    def middle(self, look):
        fill = self.fill(look)
        return fill[len(fill) // 2]

    def shown(self, key, style, back):
        """An icon in one of its looks over a colour: rows of pixels."""
        picture = self.icons[key]
        return [[tuple(mixed(s, pixel[3], b) for s, b in zip(recoloured(pixel, style), back)) for pixel in row]
                for row in picture.rows]


def bitmap_of(definition):
    for line in definition.read_bytes().decode("gbk").splitlines():
        key, _, value = line.partition(":")
        if key.strip().upper() == "FILE":
            return value.partition("//")[0].strip()
    raise ValueError(f"{definition}: names no bitmap")


def caption_colours(folder):
    """Those of SETTINGS.TXT; black where there is none, as the control's own are."""
    colours = {"CaptionColor0": (0, 0, 0), "CaptionColor1": (0, 0, 0)}
    settings = folder / "SETTINGS.TXT"
    for line in settings.read_text(encoding="utf-8").splitlines() if settings.exists() else []:
        name, _, value = (part.strip() for part in line.partition("="))
        if name in colours:
            colours[name] = tuple(int(value[at:at + 2], 16) for at in (1, 3, 5))
    return colours["CaptionColor0"], colours["CaptionColor1"]


def captions(art, least):
    for look, name in LOOKS.items():
        fill = art.fill(look)
        written = fill[len(fill) // 4:3 * len(fill) // 4]
        colour = art.captions[1 if look == 2 else 0]
        yield Finding(f"caption on a {name} bar", min(contrast(colour, below) for below in written), least.text)


def mark_of(art, look):
    """The strongest colour of those that a normal bar does not show at the same place."""
    middle = art.middle(look)
    own = [colour for colour, normal in zip(art.fill(look), art.fill(0)) if colour != normal]
    return max(own, key=lambda colour: contrast(colour, middle), default=middle)


def marks(art, least):
    for look in (1, 2):
        mark, name = mark_of(art, look), LOOKS[look]
        yield Finding(f"mark on a {name} bar", contrast(mark, art.middle(look)), least.sign)
        yield Finding(f"mark of a {name} bar on the page", contrast(mark, art.page), least.sign)


def edge_of(art, look):
    """The strongest colour of the leading end, halfway down, that is not the fill's; none where bars have no edges."""
    rect = art.rects[f"LeftPic{look}"]
    row = [art.pixel(f"LeftPic{look}", x, rect.height // 2) for x in range(rect.width)]
    edge = [colour for colour in row if colour not in (KEY_COLOUR, art.middle(look))]
    return max(edge, key=lambda colour: contrast(colour, art.page), default=None)


def edges(art, least):
    for name in FRAME_LINES:
        yield Finding(f"{name} on the page", contrast(art.pixel(name), art.page), least.sign)
    for look, name in LOOKS.items():
        edge = edge_of(art, look)
        if edge:
            yield Finding(f"edge of a {name} bar on the page", contrast(edge, art.page), least.sign)


def sign(art, key, style, back):
    """How much there is to see in the middle of a button."""
    rows = art.shown(key, style, back)
    first, last = len(rows) // 4, len(rows) - len(rows) // 4
    return spread_of(pixel for row in rows[first:last] for pixel in row[first:last])


def row_buttons(art, least):
    for key, name in ROW_BUTTONS.items():
        released = sign(art, key, OWN_COLOURS, art.page)
        yield Finding(f"{name} button", released, least.sign)
        yield Finding(f"{name} button, pressed", sign(art, key, EQUAL_VALUE, art.page), least.pressed)
        if key != "MENUBAR":  # which is never grey
            yield Finding(f"{name} button, greyed", sign(art, key, GREY_OF_GREEN, art.page), GREYED_SHOWS,
                          GREYED_SHARE * released)


def close_button(art, least):
    for look, name in LOOKS.items():
        for style, pointed in ((GREY_OF_BLUE, "at rest"), (OWN_COLOURS, "under the pointer")):
            ratio = sign(art, "DELETEBUTTON", style, art.middle(look))
            yield Finding(f"close button {pointed} on a {name} bar", ratio, least.sign)


def strongest(rows, back):
    return max(contrast(pixel, back) for row in rows for pixel in row)


def tab_icons(art, least):
    """The faintest of them in each look."""
    names = art.icons.keys() - ROLES
    for look, name in LOOKS.items():
        back = art.middle(look)
        ratios = {key: strongest(art.shown(key, OWN_COLOURS, back), back) for key in names}
        if ratios:
            faintest = min(sorted(ratios), key=ratios.get)
            yield Finding(f"tab icon {faintest} on a {name} bar", ratios[faintest], least.sign)


def findings(definition, least):
    art = SkinArt(definition)
    for part in (captions, marks, edges, row_buttons, close_button, tab_icons):
        yield from part(art, least)
