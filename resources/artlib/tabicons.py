"""The tab icons: one drawing on a grid of 16 units, set onto whole pixels at every size."""

import pathlib
import re
import xml.etree.ElementTree as xml

SVG = "{http://www.w3.org/2000/svg}"
GRID = 16
ALONG = re.compile(r"-?\d+(?:\.\d+)?")


def on_pixel(value, size):
    """Whole units stay edges between pixels, halves stay the middle of one: lines stay one pixel wide."""
    whole, half = divmod(value, 1)
    if half:
        return int(whole * size / GRID + size / GRID / 2) + 0.5
    return int(value * size / GRID + 0.5)


def fitted(element, size):
    """The attributes of an element that say where it is."""
    number = {name: float(element.get(name)) for name in ("x", "y", "width", "height", "cx", "cy", "r", "rx")
              if element.get(name)}
    place = {}
    for start, extent in (("x", "width"), ("y", "height")):
        if start in number:
            place[start] = on_pixel(number[start], size)
            place[extent] = on_pixel(number[start] + number[extent], size) - place[start]
    for centre in ("cx", "cy"):
        if centre in number:
            place[centre] = on_pixel(number[centre], size)
    if "r" in number:  # the circle ends where a line or an edge would
        place["r"] = abs(on_pixel(number["cx"] + number["r"], size) - place["cx"])
    if "rx" in number:
        place["rx"] = number["rx"] * size / GRID
    if element.get("d"):
        place["d"] = ALONG.sub(lambda found: f"{on_pixel(float(found[0]), size):g}", element.get("d"))
    return place


def drawing(icon, size):
    parts = []
    for element in icon:
        tag = element.tag.removeprefix(SVG)
        place = " ".join(f'{name}="{value}"' for name, value in fitted(element, size).items())
        parts.append(f'<{tag} class="{element.get("class")}" {place}/>')
    return "".join(parts)


def style(palette):
    line, fill, mark = palette["IconLine"], palette["IconFill"], palette["IconMark"]
    return (f"<style>.o {{ fill: {fill}; stroke: {line} }} .l {{ fill: none; stroke: {line} }} "
            f".s {{ fill: {line} }} .m {{ fill: {mark} }} .ml {{ fill: none; stroke: {mark} }} "
            ".o, .l, .ml { stroke-linejoin: round; stroke-linecap: round }</style>")


def read_icons(path):
    """Elements by name, in the order of the file."""
    root = xml.fromstring(pathlib.Path(path).read_bytes())
    return {group.get("id"): list(group) for group in root.iter(f"{SVG}g")}
