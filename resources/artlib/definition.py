"""The skin definition, read for drawing: its rectangles and icons by name."""

import pathlib
from typing import NamedTuple

NAMES = ["TabRect", "BRect", "FillPic0", "FillPic1", "FillPic2", "LeftPic0", "LeftPic1", "LeftPic2", "RightPic0",
         "RightPic1", "RightPic2", "Line0", "Line1", "Line2", "RLeftTopPic", "RRightTopPic", "RLeftBottom",
         "RRightBottom", "FBackPic", "FTopLine", "FBottomLine", "FLeftLine", "FRightLine"]
CORNERS = ["RLeftTopPic", "RRightTopPic", "RLeftBottom", "RRightBottom"]
# Copied past the key colour; every other piece is stretched and covers what lies beneath.
MASKED = [name for name in NAMES if name.startswith(("LeftPic", "RightPic", "Line"))] + CORNERS
KEY_COLOUR = (255, 0, 255)


class Rect(NamedTuple):
    """Inclusive pixel coordinates."""
    left: int
    top: int
    right: int
    bottom: int

    @property
    def width(self):
        return self.right - self.left + 1

    @property
    def height(self):
        return self.bottom - self.top + 1

    def pixels(self):
        return ((x, y) for y in range(self.top, self.bottom + 1) for x in range(self.left, self.right + 1))


def read_definition(path):
    """(rectangles by name, icon files by upper-case key)"""
    rects, icons, section = {}, {}, ""
    for line in pathlib.Path(path).read_bytes().decode("gbk").split("\r\n"):
        line = line.strip()
        if line.startswith("["):
            section = line
        key, colon, value = line.partition("//")[0].partition(":")
        if not colon:
            continue
        if section == "[Icon]":
            icons[key.upper()] = value.strip().lower()
        elif key.strip().isdigit():
            left, right, top, bottom = map(int, value.split(","))
            rects[NAMES[int(key)]] = Rect(left, top, right, bottom)
    return rects, icons
