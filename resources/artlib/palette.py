"""The palette of a skin: its shape and its colours."""

import pathlib
import re

from artlib.shapes import SHAPES

NUMBERS = {"Height", "Gap"}
COLOURS = {"Page", "Line", "Fill0", "Fill1", "Fill2", "Mark1", "Mark2", "Caption0", "Caption1", "Plate", "Sign",
           "ClosePlate", "CloseSign", "IconLine", "IconFill", "IconMark"}
# What stands for a colour that a palette does not name.
STAND_INS = {"Edge0": "Line", "Edge1": "Line", "Edge2": "Line", "Separator": "Line", "Ring": "Plate",
             "CloseRing": "ClosePlate"}


class PaletteError(Exception):
    """A palette that cannot be used; says where and why."""


def entry_of(where, line):
    key, colon, value = (part.strip() for part in line.partition(":"))
    if not colon:
        raise PaletteError(f"{where}: expected Key: value")
    if key in NUMBERS and re.fullmatch(r"-?\d+", value):
        return key, int(value)
    if key in COLOURS | set(STAND_INS) and re.fullmatch(r"#[0-9a-f]{6}", value):
        return key, value
    if key == "Shape" and value not in SHAPES:
        raise PaletteError(f"{where}: there is no shape {value!r}")
    if key == "Shape":
        return key, value
    raise PaletteError(f"{where}: {line.strip()!r} is no entry of a palette")


def read_palette(path):
    """Values by key: numbers, and colours as #rrggbb."""
    palette = {}
    for number, line in enumerate(pathlib.Path(path).read_text(encoding="utf-8").splitlines(), 1):
        if line.strip() and not line.startswith("//"):
            key, value = entry_of(f"{path}, line {number}", line)
            palette[key] = value
    missing = ({"Shape"} | NUMBERS | COLOURS) - palette.keys()
    if missing:
        raise PaletteError(f"{path}: no {', '.join(sorted(missing))}")
    return {key: palette[source] for key, source in STAND_INS.items()} | palette


def rgb(colour):
    return tuple(int(colour[at:at + 2], 16) for at in (1, 3, 5))
