"""What the control makes of an icon's colours before and while it mixes them with what lies beneath."""

import colorsys

GREY_OF_BLUE, GREY_OF_GREEN, OWN_COLOURS, EQUAL_VALUE = 0, 1, 3, 4


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
