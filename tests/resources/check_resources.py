#!/usr/bin/env -S python3 -B
"""Checks the built-in skin and the other pictures in resources/ as a reader of their bytes sees them.

Independent of the scripts that draw them; needs nothing but Python. Its last line is "N passed, N failed".
"""

import colorsys
import pathlib
import re
import struct
import sys
import unittest
import zlib

RESOURCES = pathlib.Path(__file__).resolve().parents[2] / "resources"
SKIN = RESOURCES / "skin"
KEY = (255, 0, 255)

DEFINITION = [
    "Start",
    "[Tab]",
    "File: Skin2.bmp",
    "//Blend Area Size",
    "0: 0,213,0,10//TabRect",
    "//Tab Bar Size",
    "1: 13,0,0,21     //BRect, left, top",
    "2: 79,79,0,21    //FillPic0",
    "3: 120,120,0,21  //FillPic1",
    "4: 120,120,0,21  //FillPic2",
    "",
    "5: 13,16,0,21    //LeftPic0 ",
    "6: 0,3,166,187   //LeftPic1",
    "7: 0,3,166,187   //LeftPic2",
    "",
    "8: 206,210,166,187 //RightPic0",
    "9: 197,200,0,21    //RightPic1",
    "10:197,200,0,21   //RightPic2",
    "",
    "11: 61,61,166,187 //Line0",
    "12: 115,115,0,21  //Line1",
    "13: 115,115,0,21  //Line2",
    "",
    "//Round Size",
    "14: 0,5,10,15     //RLeftTopPic",
    "15: 208,213,10,15 //RRightTopPic",
    "16: 0,5,150,155   //RLeftBottom",
    "17: 208,213,150,155//RRightBottom",
    "",
    "//Frame size",
    "18: 7,7,20,20     //FBackPic",
    "19: 11,11,10,12     //FTopLine",
    "20: 50,50,155,155 //FBottomLine",
    "21: 0,0,60,60     //FLeftLine",
    "22: 213,213,40,40 //FRightLine",
    "[Icon]",
    "HandNo: HandNo.png",
    "Sun: Sun.png",
    "Deletebutton:delete1.png  //此名不可修改。在Tab上显示的删除Tab的按钮图片",
    "LeftButton:bar0.png",
    "RightButton:bar1.png",
    "MenuBar:menubar.png",
    "End",
]

# Left, right, top, bottom, inclusive, as the definition has them.
FILLS = [(79, 79, 0, 21), (120, 120, 0, 21)]
LEFT_ENDS = [(13, 16, 0, 21), (0, 3, 166, 187)]
RIGHT_ENDS = [(206, 210, 166, 187), (197, 200, 0, 21)]
SEPARATORS = [(61, 61, 166, 187), (115, 115, 0, 21)]
CORNERS = {(0, 5, 10, 15): (0, 10), (208, 213, 10, 15): (213, 10),
           (0, 5, 150, 155): (0, 155), (208, 213, 150, 155): (213, 155)}
BACKGROUND = (7, 20)
FRAME_LINE = {"top": (11, 10), "bottom": (50, 155), "left": (0, 60), "right": (213, 40)}

ICONS = {"sun.png": 16, "handno.png": 16, "delete1.png": 14, "bar0.png": 15, "bar1.png": 15, "menubar.png": 15}
BUTTONS = ["bar0.png", "bar1.png", "menubar.png"]
TOOLBOX = {"toolbox.bmp": (16, 16), "toolbox-16x15.bmp": (16, 15)}
CUSTOM = [("SUN", "skin/sun.png"), ("SKINFILE", "skin/skin.ini"), ("SKINBMP", "skin/skin2.bmp"),
          ("MENUBAR", "skin/menubar.png"), ("BAR0", "skin/bar0.png"), ("BAR1", "skin/bar1.png"),
          ("DELETE1", "skin/delete1.png"), ("HANDNO", "skin/handno.png"), ("ABOUT", "about.jpg")]


def pixels_of(rect):
    left, right, top, bottom = rect
    return [(x, y) for y in range(top, bottom + 1) for x in range(left, right + 1)]


def read_bmp(path):
    """(header fields, rows of RGB, top row first) of an uncompressed 24-bit BMP."""
    file = path.read_bytes()
    kind, size, offset = struct.unpack_from("<2sI4xI", file)
    header, width, height, planes, depth, compression = struct.unpack_from("<IiiHHI", file, 14)
    if (kind, size, offset, header, planes, depth, compression) != (b"BM", len(file), 54, 40, 1, 24, 0):
        raise AssertionError(f"{path.name} is not a plain 24-bit BMP")
    stride = (width * 3 + 3) & ~3
    if len(file) != offset + stride * height:
        raise AssertionError(f"{path.name} is {len(file)} bytes long")
    rows = [file[offset + stride * y:][:3 * width] for y in reversed(range(height))]
    return width, height, [[(row[i + 2], row[i + 1], row[i]) for i in range(0, 3 * width, 3)] for row in rows]


def png_chunks(file):
    at = 8
    while at < len(file):
        length, kind = struct.unpack_from(">I4s", file, at)
        data = file[at + 8:at + 8 + length]
        crc, = struct.unpack_from(">I", file, at + 8 + length)
        if crc != zlib.crc32(kind + data):
            raise AssertionError(f"bad CRC in {kind}")
        yield kind, data
        at += 12 + length


def paeth(left, up, corner):
    distances = [(abs(up - corner), left), (abs(left - corner), up), (abs(left + up - 2 * corner), corner)]
    return min(distances, key=lambda pair: pair[0])[1]


def unfiltered(data, stride, height):
    """The bytes of 4-byte pixels from scanlines with a filter byte each."""
    rows, up = [], bytes(stride)
    for y in range(height):
        kind, row = data[y * (stride + 1)], bytearray(data[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            left, corner = (row[i - 4], up[i - 4]) if i >= 4 else (0, 0)
            row[i] = (row[i] + (0, left, up[i], (left + up[i]) // 2, paeth(left, up[i], corner))[kind]) & 255
        rows.append(row)
        up = row
    return rows


def read_png(path):
    """(IHDR fields, all pixels as RGBA) of an 8-bit RGBA PNG."""
    file = path.read_bytes()
    if file[:8] != b"\x89PNG\r\n\x1a\n":
        raise AssertionError(f"{path.name} has no PNG signature")
    chunks = list(png_chunks(file))
    header = struct.unpack(">IIBBBBB", chunks[0][1])
    width, height = header[:2]
    data = zlib.decompress(b"".join(data for kind, data in chunks if kind == b"IDAT"))
    rows = unfiltered(data, 4 * width, height)
    return header, [tuple(row[i:i + 4]) for row in rows for i in range(0, 4 * width, 4)]


def jpeg_frames(path):
    """The frame headers of a JPEG: (marker, precision, height, width, components)."""
    file, at = path.read_bytes(), 2
    if file[:2] != b"\xff\xd8" or file[-2:] != b"\xff\xd9":
        raise AssertionError(f"{path.name} is not a whole JPEG")
    frames = []
    while file[at + 1] != 0xDA:
        marker, length = struct.unpack_from(">HH", file, at)
        if 0xFFC0 <= marker <= 0xFFCF and marker not in (0xFFC4, 0xFFC8, 0xFFCC):
            frames.append((marker, *struct.unpack_from(">BHHB", file, at + 4)))
        at += 2 + length
    return frames


def contrast(one, other):
    """The contrast ratio of two colours as the Web Content Accessibility Guidelines define it."""
    def luminance(colour):
        linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in (v / 255 for v in colour)]
        return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]

    dark, light = sorted((luminance(one), luminance(other)))
    return (light + 0.05) / (dark + 0.05)


def spread(colour):
    return max(colour[:3]) - min(colour[:3])


class Definition(unittest.TestCase):
    def setUp(self):
        self.bytes = (SKIN / "skin.ini").read_bytes()

    def test_the_text_is_the_stated_one_byte_for_byte(self):
        expected = "".join(line + "\r\n" for line in DEFINITION).encode("gbk")
        self.assertEqual(self.bytes[:len(expected)], expected)

    def test_the_last_line_is_a_comment_behind_end(self):
        last = self.bytes.split(b"\r\n")[len(DEFINITION):]
        self.assertEqual(len(last), 2)
        self.assertTrue(last[0].startswith(b"//"))
        self.assertEqual(last[1], b"")

    def test_every_rectangle_lies_inside_the_bitmap(self):
        entries = [re.match(r"(\d+): ?(\d+),(\d+),(\d+),(\d+)", line) for line in DEFINITION]
        rects = [tuple(map(int, entry.groups())) for entry in entries if entry]
        self.assertEqual([rect[0] for rect in rects], list(range(23)))
        for _, left, right, top, bottom in rects:
            self.assertLess(max(left, right), 214)
            self.assertLess(max(top, bottom), 188)

    def test_every_named_file_is_there(self):
        names = re.findall(r"^\w+: ?(\S+\.(?:png|bmp))", "\n".join(DEFINITION), re.MULTILINE)
        self.assertEqual(len(names), 7)
        for name in names:
            self.assertTrue((SKIN / name.lower()).is_file(), name)


class SkinBitmap(unittest.TestCase):
    def setUp(self):
        self.width, self.height, self.rows = read_bmp(SKIN / "skin2.bmp")

    def at(self, place):
        x, y = place
        return self.rows[y][x]

    def test_it_is_214_by_188_pixels_of_24_bits(self):
        self.assertEqual((self.width, self.height), (214, 188))

    def test_the_key_colour_occurs_only_in_pieces_copied_past_it(self):
        masked = {at for rect in LEFT_ENDS + RIGHT_ENDS + SEPARATORS + list(CORNERS) for at in pixels_of(rect)}
        keyed = {(x, y) for y in range(self.height) for x in range(self.width) if self.at((x, y)) == KEY}
        self.assertTrue(keyed)
        self.assertEqual(keyed - masked, set())

    def test_bar_ends_are_rounded_against_the_key_colour(self):
        for left, right, top, bottom in LEFT_ENDS:
            self.assertEqual([self.at((left, top)), self.at((left, bottom))], [KEY, KEY])
        for left, right, top, bottom in RIGHT_ENDS:
            self.assertEqual([self.at((right, top)), self.at((right, bottom))], [KEY, KEY])

    def test_bars_with_two_edges_stand_one_pixel_apart(self):
        for left, right, top, bottom in RIGHT_ENDS:
            self.assertEqual({self.at((right, y)) for y in range(top, bottom + 1)}, {KEY})
            self.assertNotEqual(self.at((right - 1, (top + bottom) // 2)), KEY)

    def test_the_outside_of_a_corner_hides_the_square_line_beneath(self):
        for tip in CORNERS.values():
            self.assertEqual(self.at(tip), self.at(BACKGROUND))

    def test_the_inside_of_a_corner_lets_the_page_through(self):
        for (left, right, top, bottom), tip in CORNERS.items():
            self.assertEqual(self.at((left + right - tip[0], top + bottom - tip[1])), KEY)

    def test_each_corner_joins_the_lines_beside_it(self):
        line = self.at(FRAME_LINE["top"])
        for (left, right, top, bottom), (x, y) in CORNERS.items():
            for joint in ((left + right - x, y), (x, top + bottom - y)):
                for value, wanted in zip(self.at(joint), line):
                    self.assertAlmostEqual(value, wanted, delta=2)

    def test_the_frame_is_one_pixel_of_one_colour(self):
        self.assertEqual(len({self.at(place) for place in FRAME_LINE.values()}), 1)
        x, y = FRAME_LINE["top"]
        self.assertEqual([self.at((x, y + 1)), self.at((x, y + 2))], [self.at(BACKGROUND)] * 2)
        self.assertGreater(contrast(self.at((x, y)), self.at(BACKGROUND)), 3)

    def test_fills_and_separators_are_closed_at_both_edges(self):
        line = self.at(FRAME_LINE["top"])
        for left, _, top, bottom in [FILLS[0]] + SEPARATORS:
            self.assertEqual([self.at((left, top)), self.at((left, bottom))], [line, line])
        left, _, top, bottom = FILLS[1]
        self.assertEqual(self.at((left, top)), line)
        self.assertEqual(self.at((left, bottom)), self.mark()[-1])

    def mark(self):
        """The coloured rows at the inner edge of a lit bar."""
        left, _, _, bottom = FILLS[1]
        return [self.at((left, bottom - 1)), self.at((left, bottom))]

    def test_a_lit_bar_has_a_mark_that_is_seen_on_it_and_on_the_page(self):
        left, _, top, _ = FILLS[1]
        one, other = self.mark()
        self.assertEqual(one, other)
        for beside in (self.at((left, top + 10)), self.at(BACKGROUND)):
            self.assertGreater(contrast(one, beside), 4.5)

    def test_there_is_air_between_an_icon_and_the_mark(self):
        left, _, top, bottom = FILLS[1]
        last = (bottom - top + 1 - 16) // 2 + 15  # of the rows that an icon of 16 pixels in the middle covers
        self.assertEqual(self.at((left, top + last + 1)), self.at((left, top + 10)))

    def test_left_and_right_ends_have_the_fill_of_their_look(self):
        for fill, left_end, right_end in zip(FILLS, LEFT_ENDS, RIGHT_ENDS):
            for row in range(4, 18):
                colour = self.at((fill[0], fill[2] + row))
                self.assertEqual(self.at((left_end[1], left_end[2] + row)), colour)
                self.assertEqual(self.at((right_end[0], right_end[2] + row)), colour)

    def test_a_lit_bar_is_told_from_a_plain_one_by_its_fill_and_by_its_mark(self):
        plain, lit = [[self.at((left, y)) for y in range(top, bottom + 1)] for left, _, top, bottom in FILLS]
        self.assertTrue(all(one != other for one, other in zip(plain[1:-1], lit[1:-1])))
        self.assertGreater(max(map(spread, lit)), 128)
        self.assertLess(max(map(spread, plain)), 32)

    def test_black_and_grey_captions_are_readable_on_both_looks(self):
        for left, _, top, _ in FILLS:
            for row in range(4, 18):
                self.assertGreater(contrast((0, 0, 0), self.at((left, top + row))), 12)
                self.assertGreater(contrast((109, 109, 109), self.at((left, top + row))), 4)


class Icons(unittest.TestCase):
    def solid(self, name):
        return [pixel for pixel in read_png(SKIN / name)[1] if pixel[3] == 255]

    def test_each_is_8_bit_rgba_of_its_size(self):
        for name, size in ICONS.items():
            self.assertEqual(read_png(SKIN / name)[0], (size, size, 8, 6, 0, 0, 0), name)

    def test_each_is_transparent_solid_and_smooth_at_its_edges(self):
        for name in ICONS:
            alphas = {pixel[3] for pixel in read_png(SKIN / name)[1]}
            self.assertTrue({0, 255} <= alphas and len(alphas) > 2, name)

    def test_the_close_button_is_middle_grey_at_rest_and_coloured_under_the_pointer(self):
        for pixel in self.solid("delete1.png"):
            self.assertTrue(60 <= pixel[2] <= 140, pixel)
            self.assertGreater(spread(pixel), 100)

    def test_the_close_sign_fills_its_picture_but_for_a_margin(self):
        pixels = read_png(SKIN / "delete1.png")[1]
        shown = [at for at, pixel in enumerate(pixels) if pixel[3] > 127]
        columns, rows = [at % 14 for at in shown], [at // 14 for at in shown]
        for extent in (columns, rows):
            self.assertEqual((min(extent), max(extent)), (2, 11))

    def sign_and_disc(self, name):
        solid = self.solid(name)
        return max(solid, key=spread), min(solid, key=lambda pixel: sum(pixel[:3]))

    def test_greyed_buttons_are_much_weaker_than_enabled_ones_and_still_there(self):
        for name in BUTTONS:
            sign, disc = self.sign_and_disc(name)
            enabled, greyed = contrast(sign[:3], disc[:3]), contrast((sign[1],) * 3, (disc[1],) * 3)
            self.assertGreater(enabled, 3)
            self.assertGreater(greyed, 1.5)
            self.assertLess(greyed, 0.75 * enabled)

    def test_pressed_buttons_are_turned_from_dark_to_light_and_stay_readable(self):
        def pressed(pixel):
            hue, saturation, _ = colorsys.rgb_to_hsv(*(value / 255 for value in pixel[:3]))
            return tuple(value * 255 for value in colorsys.hsv_to_rgb(hue, saturation, 0.8))

        for name in BUTTONS:
            sign, disc = self.sign_and_disc(name)
            self.assertGreater(contrast(pressed(disc), disc[:3]), 4.5)
            self.assertGreater(contrast(pressed(sign), pressed(disc)), 2)

    def test_tab_icons_are_seen_on_both_looks(self):
        _, _, rows = read_bmp(SKIN / "skin2.bmp")
        for left, _, top, _ in FILLS:
            for name in ("sun.png", "handno.png"):
                ratios = [contrast(pixel[:3], rows[top + 10][left]) for pixel in self.solid(name)]
                self.assertGreater(max(ratios), 3, name)

    def test_previous_and_next_mirror_each_other(self):
        size = ICONS["bar0.png"]
        previous, following = read_png(SKIN / "bar0.png")[1], read_png(SKIN / "bar1.png")[1]
        for y in range(size):
            for x in range(size):
                for one, other in zip(previous[y * size + x], following[y * size + size - 1 - x]):
                    self.assertAlmostEqual(one, other, delta=40)

    def test_a_disabled_tab_shows_lighter_icons(self):
        for name in ("sun.png", "handno.png"):
            greens = [pixel[1] for pixel in self.solid(name)]
            self.assertGreater(min(greens), 90, name)


class OtherPictures(unittest.TestCase):
    def test_toolbox_bitmaps_have_one_colour_in_all_corners(self):
        for name, size in TOOLBOX.items():
            width, height, rows = read_bmp(RESOURCES / name)
            self.assertEqual((width, height), size)
            self.assertEqual(len({rows[0][0], rows[0][-1], rows[-1][0], rows[-1][-1]}), 1, name)

    def test_the_about_card_is_a_baseline_jpeg_of_400_by_300(self):
        self.assertEqual(jpeg_frames(RESOURCES / "about.jpg"), [(0xFFC0, 8, 300, 400, 3)])

    def test_the_resource_script_lists_every_file_in_order(self):
        entries = re.findall(r'^(\w+)\s+CUSTOM\s+"(.*)"$', (RESOURCES / "custom.rc").read_text(), re.MULTILINE)
        self.assertEqual(entries, CUSTOM)
        for _, file in entries:
            self.assertTrue((RESOURCES / file).is_file(), file)


def run_tests_of(module):
    """Prints how many passed and failed, for scripts of other tests of the art, too."""
    suite = unittest.defaultTestLoader.loadTestsFromModule(module)
    result = unittest.TextTestRunner(stream=sys.stdout).run(suite)
    failed = len(result.failures) + len(result.errors)
    print(f"{result.testsRun - failed} passed, {failed} failed")
    return 0 if failed == 0 and result.testsRun > 0 else 1


if __name__ == "__main__":
    sys.exit(run_tests_of(sys.modules[__name__]))
