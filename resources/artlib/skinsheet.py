"""A skin's bitmap: three whole bars side by side, their separators, and a page's frame below; and its rectangles."""

from artlib.definition import CORNERS, KEY_COLOUR, MASKED, NAMES, Rect
from artlib.palette import rgb
from artlib.pixels import Picture, render_svg
from artlib.shapes import ENDS, FILL_WIDTH, SHAPES, Bar, rectangle

LOOKS = range(3)
CORNER = 6          # of the page's frame, at 100 percent
FRAME_STRETCH = 4   # of its edges between the corners
# A bar's edge pixel fainter than this is better left to what lies beneath than painted in nearly the page's colour.
FAINTEST_EDGE = 40


class SkinSheet:
    def __init__(self, palette, scale):
        self.palette, self.scale = palette, scale
        self.height = self.px(palette["Height"])
        self.end = self.px(ENDS[palette["Shape"]])
        self.bar_width = 2 * self.end + FILL_WIDTH
        self.corner = self.px(CORNER)
        self.rects = self.place()
        self.width = max(rect.right for rect in self.rects.values()) + 1

    def px(self, length):
        return int(length * self.scale + 0.5)

    @property
    def band(self):
        """How deep the page's frame lies beneath the row: at its end, or in its middle for bars astride it."""
        return self.height // 2 + 1 if self.palette["Shape"] == "segmented" else self.height

    @property
    def frame(self):
        side = 2 * self.corner + FRAME_STRETCH
        return Rect(0, self.height + 2, side - 1, self.height + 1 + side)

    def bar_left(self, look):
        return look * (self.bar_width + 1)

    def place(self):
        return self.place_bars() | self.place_frame()

    def place_bars(self):
        bottom = self.height - 1
        rects = {}
        for look in LOOKS:
            left = self.bar_left(look)
            right, line = left + self.bar_width - 1, 3 * (self.bar_width + 1) + 2 * look
            middle = left + self.end + FILL_WIDTH // 2
            rects[f"FillPic{look}"] = Rect(middle, 0, middle, bottom)
            rects[f"LeftPic{look}"] = Rect(left, 0, left + self.end - 1, bottom)
            rects[f"RightPic{look}"] = Rect(right - self.end + 1, 0, right, bottom)
            rects[f"Line{look}"] = Rect(line, 0, line, bottom)
        return rects

    def place_frame(self):
        left, top, right, bottom = self.frame
        reach, middle_x, middle_y = self.corner - 1, (left + right) // 2, (top + bottom) // 2
        rects = {"TabRect": Rect(0, 0, self.bar_width - 1, self.band - 1),
                 "BRect": Rect(0, 0, self.bar_width - 1, self.height - 1),
                 "RLeftTopPic": Rect(left, top, left + reach, top + reach),
                 "RRightTopPic": Rect(right - reach, top, right, top + reach),
                 "RLeftBottom": Rect(left, bottom - reach, left + reach, bottom),
                 "RRightBottom": Rect(right - reach, bottom - reach, right, bottom),
                 "FBackPic": Rect(middle_x, middle_y, middle_x, middle_y),
                 "FTopLine": Rect(middle_x, top, middle_x, top), "FBottomLine": Rect(middle_x, bottom, middle_x, bottom),
                 "FLeftLine": Rect(left, middle_y, left, middle_y), "FRightLine": Rect(right, middle_y, right, middle_y)}
        return rects

    # The drawing ------------------------------------------------------------------------------------------------

    def style(self):
        p = self.palette
        rules = [f".line {{ fill: {p['Line']} }} .separator {{ fill: {p['Separator']} }}",
                 f".frame {{ fill: none; stroke: {p['Line']} }} .outside {{ fill: {p['Page']} }}"]
        for look in LOOKS:
            rules.append(f".fill{look} {{ fill: {p[f'Fill{look}']} }} .edge{look} {{ fill: none; "
                         f"stroke: {p[f'Edge{look}']} }}")
            if look:
                rules.append(f".mark{look} {{ fill: {p[f'Mark{look}']} }}")
        return f"<style>{' '.join(rules)}</style>"

    def draw_bars(self):
        shape = SHAPES[self.palette["Shape"]]
        for look in LOOKS:
            bar = Bar(self.scale, self.height, self.end, self.end, look)
            yield f'<g transform="translate({self.bar_left(look)} 0)">{shape(bar)}</g>'
            line = self.rects[f"Line{look}"]
            yield rectangle("line", line.left, 0, 1, self.height)

    def draw_frame(self):
        """The frame's square corners would show through round ones, so the outside of these is painted."""
        left, top, right, bottom = self.frame
        radius = self.px(4)
        side = right - left
        square = f"M{left} {top}H{right + 1}V{bottom + 1}H{left}z"
        arc = f"a{radius} {radius} 0 0 1"
        straight = side - 2 * radius
        line = (f"M{left + 0.5} {top + 0.5 + radius}{arc} {radius} {-radius}h{straight}{arc} {radius} {radius}"
                f"v{straight}{arc} {-radius} {radius}h{-straight}{arc} {-radius} {-radius}z")
        yield f'<path class="outside" fill-rule="evenodd" d="{square}{line}"/><path class="frame" d="{line}"/>'

    def svg(self):
        size = f'width="{self.width}" height="{self.frame.bottom + 1}"'
        return (f'<svg xmlns="http://www.w3.org/2000/svg" {size}>{self.style()}{"".join(self.draw_bars())}'
                f'{"".join(self.draw_frame())}</svg>')

    # The bitmap -------------------------------------------------------------------------------------------------

    def bitmap(self):
        page = rgb(self.palette["Page"])
        drawing = render_svg(self.svg().encode())
        skin = Picture(drawing.width, drawing.height)
        skin.rows = [[laid_over(page, pixel) for pixel in row] for row in drawing.rows]
        for name in MASKED:
            faintest = 128 if name in CORNERS else FAINTEST_EDGE
            for at in self.rects[name].pixels():
                if drawing[at][3] < faintest:
                    skin[at] = KEY_COLOUR + (255,)
        return skin

    def entries(self):
        """The definition's lines."""
        for number, name in enumerate(NAMES):
            rect = self.rects[name]
            yield f"{number}: {rect.left},{rect.right},{rect.top},{rect.bottom} //{name}"


def laid_over(back, pixel):
    alpha = pixel[3]
    return tuple((value * alpha + below * (255 - alpha) + 127) // 255
                 for value, below in zip(pixel, back)) + (255,)
