"""Puts a skin together as the control does, slowly and plainly, to judge the art before there is a control."""

import colorsys
import dataclasses

from artlib.definition import KEY_COLOUR, Rect
from artlib.pixels import Picture

TOP, BOTTOM, LEFT, RIGHT = "top", "bottom", "left", "right"
NORMAL, HOVER, ACTIVE = range(3)
GREY_OF_BLUE, GREY_OF_GREEN, OWN_COLOURS, EQUAL_VALUE = 0, 1, 3, 4


@dataclasses.dataclass
class Tab:
    caption: str
    icon: str = ""
    enabled: bool = True


@dataclasses.dataclass
class Scene:
    """What a host may set, and where the pointer is."""
    width: int = 440
    height: int = 110
    side: str = TOP
    border: bool = False
    gap: int = 0
    bar_width: int = 80
    placement: str = "left"
    tabs: list = dataclasses.field(default_factory=list)
    active: int = 0
    hover: int = -1
    hover_close: int = -1
    close: bool = False
    previous: int = GREY_OF_GREEN
    next: int = OWN_COLOURS
    menu: int = OWN_COLOURS
    picture: object = None


def recoloured(pixel, style):
    """The colour that the decoder makes of an icon's pixel before it mixes it with the background."""
    r, g, b, _ = pixel
    if style == OWN_COLOURS:
        return r, g, b
    if style != EQUAL_VALUE:
        return (pixel[2 - style],) * 3
    hue, saturation, _ = colorsys.rgb_to_hsv(r / 255, g / 255, b / 255)
    return tuple(int(value * 255.9999) for value in colorsys.hsv_to_rgb(hue, saturation, 0.8))


def mixed(source, alpha, back):
    if alpha == 255:
        return source
    return back if alpha == 0 else (source * alpha + back * (255 - alpha) + 255) // 256


class Painter:
    def __init__(self, skin, rects, icons, scene):
        self.skin, self.rects, self.icons, self.scene = skin, rects, icons, scene
        back = rects["FBackPic"]
        self.canvas = Picture(scene.width, scene.height, skin[back.left, back.top])
        self.thickness = rects["BRect"].height
        self.lay_out()

    def lay_out(self):
        scene, thick, band = self.scene, self.thickness, self.rects["TabRect"].height
        self.horizontal = scene.side in (TOP, BOTTOM)
        extent = scene.width if self.horizontal else scene.height
        length = len(scene.tabs) * scene.bar_width
        corner = self.rects["RLeftTopPic"].width
        self.lead = {"left": corner, "middle": round((extent - length) / 2),
                     "right": extent - length - corner}[scene.placement]
        self.end = self.lead + length
        self.cross = {TOP: 0, LEFT: 0, BOTTOM: scene.height - thick, RIGHT: scene.width - thick}[scene.side]
        far = self.cross + thick
        left, top, right, bottom = 0, 0, scene.width, scene.height - 1
        if scene.side == TOP:
            top = band - 1
        elif scene.side == BOTTOM:
            bottom = far - band
        elif scene.side == LEFT:
            left = band - 1
        else:
            right = far - band + 1
        self.client = Rect(left, top, right, bottom)  # right and bottom are exclusive here

    # Pieces -----------------------------------------------------------------------------------------------------

    def copy(self, name, x, y):
        rect = self.rects[name]
        for sx, sy in rect.pixels():
            if self.skin[sx, sy][:3] != KEY_COLOUR:
                self.canvas[x + sx - rect.left, y + sy - rect.top] = self.skin[sx, sy]

    def stretch(self, name, x, y, width, height):
        """Every frame piece is one pixel along the direction in which it is stretched."""
        rect = self.rects[name]
        for row in range(height):
            for column in range(width):
                self.canvas[x + column, y + row] = self.skin[rect.left + column * rect.width // width,
                                                             rect.top + row * rect.height // height]

    def bar_pixel(self, u, v, pixel):
        """A pixel at u along the row and v from its outer edge, turned to the side that carries the bars."""
        across = v if self.scene.side in (TOP, LEFT) else self.thickness - 1 - v
        self.canvas[(u, self.cross + across) if self.horizontal else (self.cross + across, u)] = pixel

    def bar_piece(self, name, u, length=None):
        rect = self.rects[name]
        offset = self.thickness - rect.height
        for column in range(rect.width if length is None else length):
            for row in range(rect.height):
                pixel = self.skin[rect.left + (column if length is None else 0), rect.top + row]
                if pixel[:3] != KEY_COLOUR:
                    self.bar_pixel(u + column, offset + row, pixel)

    def icon(self, name, x, y, style):
        picture = self.icons[name]
        for row in range(picture.height):
            for column in range(picture.width):
                pixel = picture[column, row]
                back = self.canvas[x + column, y + row]
                source = recoloured(pixel, style)
                self.canvas[x + column, y + row] = tuple(
                    mixed(s, pixel[3], b) for s, b in zip(source, back)) + (255,)

    # Layers -----------------------------------------------------------------------------------------------------

    def paint(self):
        self.paint_frame()
        if self.scene.picture:
            self.paint_picture()
        self.paint_corners()
        for index in range(len(self.scene.tabs)):
            self.paint_bar(index)
        self.paint_buttons()
        return self.canvas

    def paint_frame(self):
        left, top, right, bottom = self.client
        height, width = bottom - top, right - left
        self.stretch("FLeftLine", left, top, self.rects["FLeftLine"].width, height)
        self.stretch("FRightLine", right - 1, top, self.rects["FRightLine"].width, height)
        self.stretch("FTopLine", left, top, width, self.rects["FTopLine"].height)
        self.stretch("FBottomLine", left, bottom, width, self.rects["FBottomLine"].height)

    def paint_picture(self):
        left, top, right, bottom = self.client
        for y in range(top + 1, bottom):
            for x in range(left + 1, right - 1):
                self.canvas[x, y] = self.scene.picture(x, y)

    def paint_corners(self):
        left, top, right, bottom = self.client
        self.copy("RLeftTopPic", left, top)
        self.copy("RRightTopPic", right - self.rects["RRightTopPic"].width, top)
        self.copy("RLeftBottom", left, bottom + 1 - self.rects["RLeftBottom"].height)
        self.copy("RRightBottom", right - self.rects["RRightBottom"].width,
                  bottom + 1 - self.rects["RRightBottom"].height)

    def state(self, index):
        return ACTIVE if index == self.scene.active else HOVER if index == self.scene.hover else NORMAL

    def paint_bar(self, index):
        s, scene = self.state(index), self.scene
        lead = self.lead + index * scene.bar_width
        length = scene.bar_width - (scene.gap if scene.border else 0)
        first, last = scene.border or index == 0, scene.border or index == len(scene.tabs) - 1
        ending = f"RightPic{s}" if last else f"Line{s}"
        start = self.rects[f"LeftPic{s}"].width if first else 0
        stop = length - self.rects[ending].width
        self.bar_piece(f"FillPic{s}", lead + start, stop - start)
        if first:
            self.bar_piece(f"LeftPic{s}", lead)
        self.bar_piece(ending, lead + stop)
        self.paint_decorations(index, lead, start)

    def paint_decorations(self, index, lead, start):
        scene, tab = self.scene, self.scene.tabs[index]
        if tab.icon:
            style = OWN_COLOURS if tab.enabled else GREY_OF_GREEN
            self.along(tab.icon, lead + self.rects[f"LeftPic{self.state(index)}"].width, style)
        if scene.close:
            style = OWN_COLOURS if index == scene.hover_close else GREY_OF_BLUE
            widest = max(self.rects[f"RightPic{s}"].width for s in range(3))
            self.along("DELETEBUTTON", lead + scene.bar_width - widest - self.icons["DELETEBUTTON"].width, style)

    def along(self, name, u, style):
        """An icon in the middle of the strip, u along it."""
        across = self.cross + (self.thickness - self.icons[name].height) // 2
        self.icon(name, *((u, across) if self.horizontal else (across, u)), style)

    def paint_buttons(self):
        styles = {"LEFTBUTTON": self.scene.previous, "RIGHTBUTTON": self.scene.next, "MENUBAR": self.scene.menu}
        widths = {name: self.icons[name].width for name in styles}
        u = self.end + 8 if self.scene.placement != "right" else self.lead - 8 - sum(widths.values()) - 2
        for name, style in styles.items():
            u += 2 if name == "MENUBAR" else 0
            self.along(name, u, style)
            u += widths[name]

    def captions(self):
        """(text, x, y, turned, enabled) of every caption, the point being its middle."""
        for index, tab in enumerate(self.scene.tabs):
            lead = self.lead + index * self.scene.bar_width
            start = 5 + (17 if tab.icon else 0)
            stop = self.scene.bar_width - 6 - (14 if self.scene.close else 0)
            along, across = lead + (start + stop) // 2, self.cross + self.thickness // 2
            x, y = (along, across) if self.horizontal else (across, along)
            yield tab.caption, x, y, not self.horizontal, tab.enabled
