"""The property values that go with a skin, as they stand in its SETTINGS.TXT."""

from artlib.buttons import SIZE as BUTTON_SIZE

BAR_WIDTH = 132     # at 100 percent, with room for nine letters between icon and close button
BEFORE_ICON = 2
BEHIND_ICON = 4
LETTER_HEIGHT = 14  # of nine points at 96 dots per inch


def icon_size(scale):
    """The control draws no more of a tab icon than 20 pixels."""
    return 16 if scale == 1 else 20


def before_icon(sheet):
    """The ends of slanted bars keep enough of a distance."""
    return 0 if sheet.palette["Shape"] == "slanted" else sheet.px(BEFORE_ICON)


def common(sheet):
    palette = sheet.palette
    return {"BarWidth": sheet.px(BAR_WIDTH), "TabToTab": gap(sheet),
            "TabBorder": palette["Shape"] != "segmented",
            "CaptionColor0": palette["Caption0"], "CaptionColor1": palette["Caption1"]}


def gap(sheet):
    """Bars of some shapes overlap: slanted ones by just the width of their ends, flat ones by a line."""
    overlaps = {"slanted": -sheet.end, "flat": -1}
    return overlaps.get(sheet.palette["Shape"], sheet.px(sheet.palette["Gap"]))


def lying(sheet):
    """Bars on the top and the bottom: captions begin behind the icon."""
    lead = sheet.end + before_icon(sheet)
    return common(sheet) | {
        "CaptionPos": "AlignLeft", "CaptionXjust": lead + icon_size(sheet.scale) + sheet.px(BEHIND_ICON),
        "CaptionYjust": (sheet.height - sheet.px(LETTER_HEIGHT)) // 2, "IcoXjust": before_icon(sheet), "IcoYjust": 0}


def standing(sheet):
    """Bars on the left and the right: captions stand in the middle between icon and close button."""
    slot = sheet.px(BAR_WIDTH)
    icon_end = sheet.end + before_icon(sheet) + icon_size(sheet.scale)
    close = slot - gap(sheet) - sheet.end - round(BUTTON_SIZE * sheet.scale)
    middle = slot - max(gap(sheet), 0)  # twice; the control knows no caption beyond a bar's own place
    return common(sheet) | {
        "CaptionPos": "AlignMiddle", "CaptionXjust": 0, "CaptionYjust": (icon_end + close - middle) // 2,
        "IcoXjust": 0, "IcoYjust": before_icon(sheet)}


ORDER = ["BarWidth", "TabToTab", "TabBorder", "CaptionPos", "CaptionXjust", "CaptionYjust", "CaptionColor0",
         "CaptionColor1", "IcoXjust", "IcoYjust"]


def text(heading, values):
    lines = [f"// {heading}"] + [f"{name} = {values[name]}" for name in ORDER]
    return "".join(line + "\r\n" for line in lines)
