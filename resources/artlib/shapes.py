"""The vector source of the skins' bars: each shape draws one bar in one look, for bars on top.

A drawing begins at 0, 0; everything is placed on whole pixels at every scale, lines are one pixel wide at each.
"""

import dataclasses

NORMAL, HOVER, ACTIVE = range(3)
FILL_WIDTH = 8  # of the drawing; one column of it is what the skin repeats


@dataclasses.dataclass
class Bar:
    """What a shape has to know of a bar."""
    scale: float
    height: int  # of the row, the page's line included
    left: int    # width of the leading end
    right: int   # width of the trailing end
    look: int

    @property
    def width(self):
        return self.left + FILL_WIDTH + self.right

    def px(self, length):
        return int(length * self.scale + 0.5)


def rectangle(colour, x, y, width, height):
    return f'<rect class="{colour}" x="{x}" y="{y}" width="{width}" height="{height}"/>'


def body(bar, path, closed=False):
    """The fill and the line around it. The path is the middle of the line; open, it ends at the page."""
    edge = path + ("z" if closed else "")
    return f'<path class="fill{bar.look}" d="{path}z"/><path class="edge{bar.look}" d="{edge}"/>'


def within(bar, path, drawing):
    """A drawing cut off at a closed path."""
    clip = f"within{bar.look}"
    return f'<clipPath id="{clip}"><path d="{path}z"/></clipPath><g clip-path="url(#{clip})">{drawing}</g>'


def page_line(bar):
    """The page's upper line, which runs under every bar but the active one."""
    return "" if bar.look == ACTIVE else rectangle("line", 0, bar.height - 1, bar.width, 1)


def mark_on_top(bar, top, thickness):
    if bar.look == NORMAL:
        return ""
    return rectangle(f"mark{bar.look}", 0, top, bar.width, thickness)


def rounded(bar):
    """A card's tab; the active one stands a little higher."""
    top = 0 if bar.look == ACTIVE else bar.px(2)
    thickness = bar.px(3 if bar.look == ACTIVE else 2)
    radius = bar.px(5)

    def path(inset):
        return (f"M{inset} {bar.height}V{top + inset + radius}a{radius} {radius} 0 0 1 {radius} {-radius}"
                f"H{bar.width - inset - radius}a{radius} {radius} 0 0 1 {radius} {radius}V{bar.height}")

    return body(bar, path(0.5)) + within(bar, path(0), mark_on_top(bar, top, thickness)) + page_line(bar)


def square(bar):
    """Square corners and thick marks."""
    top = 0 if bar.look == ACTIVE else bar.px(3)
    thickness = bar.px(5 if bar.look == ACTIVE else 3)
    path = f"M0.5 {bar.height}V{top + 0.5}H{bar.width - 0.5}V{bar.height}"
    return body(bar, path) + mark_on_top(bar, top, thickness) + page_line(bar)


def flat(bar):
    """No edges but the active bar's, and short separators between the others. A bar's first column lies over the one
    before it: there an active bar hides the separator, and any other shows it, or an active bar's edge."""
    height, width = bar.height, bar.width
    if bar.look == ACTIVE:
        return (rectangle("fill2", 0, 0, width, height)
                + f'<path class="edge2" d="M0.5 {height}V0M{width - 0.5} {height}V0"/>' + mark_on_top(bar, 0, bar.px(3)))
    margin = bar.px(8)
    covers = rectangle(f"fill{bar.look}", 1, 0, width - 1, height)
    if bar.look == NORMAL:
        covers += rectangle("separator", width - 1, margin, 1, height - 1 - 2 * margin)
    else:
        covers += rectangle("mark1", 1, 0, width - 1, bar.px(2))
    return covers + rectangle("line", 1, height - 1, width - 1, 1)


def segmented(bar):
    """A closed bar astride the page's line, with its mark at the inner edge."""
    thickness = bar.px(3 if bar.look == ACTIVE else 2)
    radius = bar.px(4)

    def path(inset):
        across, along = bar.width - 2 * (inset + radius), bar.height - 2 * (inset + radius)
        return (f"M{inset} {inset + radius}a{radius} {radius} 0 0 1 {radius} {-radius}h{across}"
                f"a{radius} {radius} 0 0 1 {radius} {radius}v{along}a{radius} {radius} 0 0 1 {-radius} {radius}"
                f"h{-across}a{radius} {radius} 0 0 1 {-radius} {-radius}")

    mark = rectangle(f"mark{bar.look}", 0, bar.height - thickness, bar.width, thickness)
    return body(bar, path(0.5), closed=True) + ("" if bar.look == NORMAL else within(bar, path(0), mark))


def slanted(bar):
    """A bar leans away from its predecessor's end and lies behind it; the active one stands in front of both neighbours."""
    height, run = bar.height, bar.left - 1
    top = 0 if bar.look == ACTIVE else bar.px(2)
    trailing = bar.width - bar.right

    def leaning(y):
        return 0.5 + run * y / height

    def leading(y):
        return run + 1 - leaning(y) if bar.look == ACTIVE else leaning(y)

    def path(inset):
        upper = top + inset
        return (f"M{leading(height)} {height}L{leading(upper)} {upper}"
                f"H{trailing + leaning(upper)}L{trailing + leaning(height)} {height}")

    line = "" if bar.look == ACTIVE else rectangle("line", bar.left, height - 1, bar.width - bar.left, 1)
    thickness = bar.px(3 if bar.look == ACTIVE else 2)
    return body(bar, path(0.5)) + within(bar, path(0), mark_on_top(bar, top, thickness)) + line


SHAPES = {"rounded": rounded, "square": square, "flat": flat, "segmented": segmented, "slanted": slanted}
# Widths of a bar's ends at 100 percent.
ENDS = {"rounded": 8, "square": 8, "flat": 8, "segmented": 8, "slanted": 17}
