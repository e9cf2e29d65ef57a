"""What the listings of docs/getting-started.md assign, against what its pictures show."""

import re

ASSIGNMENT = re.compile(r"(?:\.|->)(\w+)\s*:?=\s*(@?\"[^\"]*\"|L\"[^\"]*\"|'[^']*'|[\w.]+(?:\([^)]*\))?|-\d+)")
COLOUR = re.compile(r"(?:RGB|Color\.FromArgb)\(\D*?(?:&H|0x|\$)(\w\w), (?:&H|0x|\$)(\w\w), (?:&H|0x|\$)(\w\w)\)", re.I)
WORDS = {"VARIANT_TRUE": "True", "VARIANT_FALSE": "False", "true": "True", "false": "False"}
CONSTANTS = {"CaptionPos": ["AlignLeft", "AlignMiddle", "AlignRight"]}


def blocks(page, language=r"\w+"):
    return re.findall(rf"^```{language}\n(.*?)^```$", page, re.M | re.S)


def listings(page):
    """Each listing that lays bars out, with what it assigns."""
    for block in blocks(page):
        values = {name: plain(name, value) for name, value in ASSIGNMENT.findall(block)}
        if "BarWidth" in values:
            yield block, values


def pages_shown(script, with_icons):
    """The words that a listing has to give the control so that it shows the same tabs."""
    lists = ("Captions", "Icons") if with_icons else ("Captions",)
    return {word for name in lists for word in re.search(rf"^{name}=\((.*)\)$", script, re.M)[1].split()}


def font_shown(script):
    return re.search(r'"Font=([^,]+),', script)[1]


def words(block):
    return set(re.findall(r"[\"'](\w+)[\"']", block))


def plain(name, value):
    """As settings files have it."""
    colour = COLOUR.fullmatch(value)
    if colour:
        return "#" + "".join(colour.groups()).lower()
    text = re.fullmatch(r"[@L]?[\"'](.*)[\"']", value)
    if text:
        return text[1].replace("\\\\", "\\")
    value = WORDS.get(value, value.rsplit(".", 1)[-1])
    return CONSTANTS[name][int(value)] if name in CONSTANTS and value.isdigit() else value


def skin_of(values):
    """The shipped skin's folder and the file of its settings; nothing for the built-in one."""
    if "SkinPath" not in values:
        return None
    variant = values["SkinFile"].removeprefix("SKIN").removesuffix(".INI")
    return values["SkinPath"].rsplit("\\", 1)[-1], f"SETTINGS{variant}.TXT"


def settings(text):
    return dict(re.findall(r"^(\w+) = (\S+)", text, re.M))


def picture_values(script):
    """What the picture in the built-in skin is taken with."""
    line = re.search(r"picture start-built-in (.*)", script)[1]
    return dict(re.findall(r"--set (\w+)=(\S+)", line))
