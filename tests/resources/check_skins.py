#!/usr/bin/env -S python3 -B
"""Checks the skins of skins/, and the scripts that make and measure them. Its last line is "N passed, N failed".

The files are read as a stranger would read them, without the scripts' own modules.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import check_resources as art

ROOT = pathlib.Path(__file__).resolve().parents[2]
SKINS = ROOT / "skins"
MAKE, CONTRAST = ROOT / "resources" / "make-skins", ROOT / "resources" / "check-contrast"
PALETTES = ROOT / "resources" / "art" / "skins"

NAMES = ["light", "dark", "contrast", "slim", "segmented", "slanted"]
SCALES = {"": 1, "-150": 1.5, "-200": 2}
BUTTONS = {"SKIN.INI": ("back.png", "forth.png"), "SKIN-SIDES.INI": ("up.png", "down.png")}
SETTINGS = ["BarWidth", "TabToTab", "TabBorder", "CaptionPos", "CaptionXjust", "CaptionYjust", "CaptionColor0",
            "CaptionColor1", "IcoXjust", "IcoYjust"]
MASKED = set(range(5, 18))
KEY = (255, 0, 255)
RENDERING = 2  # levels by which another version of the renderer may differ


def run(*command, folder=None):
    done = subprocess.run([str(part) for part in command], capture_output=True, text=True, cwd=folder, check=False)
    return done.returncode, done.stdout, done.stderr


def each_skin():
    for name in NAMES:
        for suffix, scale in SCALES.items():
            yield name, scale, SKINS / (name + suffix)


def definitions():
    for name, scale, folder in each_skin():
        for file in BUTTONS:
            yield name, scale, folder / file


def read_definition(path):
    """(rectangles by number, icon files by name, bitmap): by the rules of docs/skin-format.md, and no others."""
    lines = path.read_bytes().decode("ascii").split("\r\n")
    start, end = lines.index("Start"), lines.index("End")
    rects, icons, bitmap, section = {}, {}, None, None
    for line in lines[start + 1:end]:
        line = line.partition("//")[0].strip()
        key, _, value = (part.strip() for part in line.partition(":"))
        if line in ("[Tab]", "[Icon]"):
            section = line
        elif section == "[Tab]" and key == "File":
            bitmap = value
        elif section == "[Tab]":
            rects[int(key)] = tuple(map(int, value.split(",")))
        else:
            icons[key] = value
    return rects, icons, bitmap


def read_settings(path):
    pairs = [line.split(" = ") for line in path.read_bytes().decode("ascii").split("\r\n") if " = " in line]
    return dict(pairs)


class Made(unittest.TestCase):
    """The skins are what their sources make."""

    @classmethod
    def setUpClass(cls):
        cls.folders = [pathlib.Path(tempfile.mkdtemp()) for _ in range(2)]
        cls.results = [run(MAKE, folder) for folder in cls.folders]

    @classmethod
    def tearDownClass(cls):
        for folder in cls.folders:
            shutil.rmtree(folder)

    def files(self, folder):
        return sorted(path.relative_to(folder) for path in folder.glob("*/*"))

    def test_they_are_made_without_a_word_of_complaint(self):
        for status, _, errors in self.results:
            self.assertEqual((status, errors), (0, ""))

    def test_they_come_out_the_same_each_time(self):
        first, second = self.folders
        self.assertEqual(self.files(first), self.files(second))
        for file in self.files(first):
            self.assertEqual((first / file).read_bytes(), (second / file).read_bytes(), file)

    def test_the_texts_that_are_shipped_are_what_comes_out(self):
        made = self.folders[0]
        self.assertEqual(self.files(made), self.files(SKINS))
        for file in self.files(made):
            if file.suffix in (".INI", ".TXT"):
                self.assertEqual((made / file).read_bytes(), (SKINS / file).read_bytes(), file)

    def test_the_pictures_that_are_shipped_are_what_comes_out(self):
        made = self.folders[0]
        for file in self.files(made):
            if (made / file).read_bytes() != (SKINS / file).read_bytes():
                self.assertLessEqual(self.distance(made / file, SKINS / file), RENDERING, file)

    def distance(self, one, other):
        """The largest difference of two pictures' values."""
        pixels = [self.pixels(path) for path in (one, other)]
        self.assertEqual(len(pixels[0]), len(pixels[1]))
        return max(abs(a - b) for left, right in zip(*pixels) for a, b in zip(left, right))

    @staticmethod
    def pixels(path):
        if path.suffix == ".png":
            return art.read_png(path)[1]
        return [pixel for row in art.read_bmp(path)[2] for pixel in row]


class Definitions(unittest.TestCase):
    def test_every_rectangle_is_named_and_lies_inside_the_bitmap(self):
        for _, _, path in definitions():
            rects, _, bitmap = read_definition(path)
            width, height, _ = art.read_bmp(path.parent / bitmap)
            self.assertEqual(sorted(rects), list(range(23)), path)
            for left, right, top, bottom in rects.values():
                self.assertTrue(0 <= left <= right < width and 0 <= top <= bottom < height, path)

    def test_rows_are_32_pixels_thick_and_slim_ones_28(self):
        for name, scale, path in definitions():
            _, _, top, bottom = read_definition(path)[0][1]
            self.assertEqual(bottom - top + 1, (28 if name == "slim" else 32) * scale, path)

    def test_all_bar_pieces_are_as_high_as_the_row(self):
        for _, _, path in definitions():
            rects = read_definition(path)[0]
            for number in range(2, 14):
                self.assertEqual(rects[number][2:], rects[1][2:], (path, number))

    def test_frame_lines_are_of_one_width(self):
        for _, _, path in definitions():
            rects = read_definition(path)[0]
            for number in (19, 20):
                self.assertEqual(rects[number][2], rects[number][3], path)
            for number in (20, 21, 22):
                self.assertEqual(rects[number][0], rects[number][1], path)

    def test_every_file_is_there_and_named_without_a_path(self):
        for _, _, path in definitions():
            _, icons, bitmap = read_definition(path)
            for file in [bitmap, *icons.values()]:
                self.assertRegex(file, r"^[a-z]+\.(png|bmp)$")
                self.assertTrue((path.parent / file).is_file(), file)

    def test_arrows_point_along_the_row(self):
        for _, _, path in definitions():
            icons = read_definition(path)[1]
            self.assertEqual((icons["LeftButton"], icons["RightButton"]), BUTTONS[path.name], path)

    def test_buttons_are_20_pixels_and_grow(self):
        for _, scale, path in definitions():
            icons = read_definition(path)[1]
            for role in ("DeleteButton", "LeftButton", "RightButton", "MenuBar"):
                header = art.read_png(path.parent / icons[role])[0]
                self.assertEqual(header, (20 * scale, 20 * scale, 8, 6, 0, 0, 0), (path, role))

    def test_24_tab_icons_are_of_16_or_20_pixels(self):
        for _, scale, path in definitions():
            icons = read_definition(path)[1]
            names = icons.keys() - {"DeleteButton", "LeftButton", "RightButton", "MenuBar"}
            self.assertEqual(len(names), 24, path)
            size = 16 if scale == 1 else 20
            for name in names:
                self.assertEqual(art.read_png(path.parent / icons[name])[0], (size, size, 8, 6, 0, 0, 0), (path, name))

    def test_the_key_colour_occurs_only_in_pieces_copied_past_it(self):
        for _, _, path in definitions():
            rects, _, bitmap = read_definition(path)
            rows = art.read_bmp(path.parent / bitmap)[2]
            masked = {at for number in MASKED for at in art.pixels_of(rects[number])}
            keyed = {(x, y) for y, row in enumerate(rows) for x, pixel in enumerate(row) if pixel == KEY}
            self.assertEqual(keyed - masked, set(), path)


class Looks(unittest.TestCase):
    def at(self, rows, rect, x, y):
        left, right, top, bottom = rect
        return rows[top + y if y >= 0 else bottom + 1 + y][left + x if x >= 0 else right + 1 + x]

    def read(self, path):
        rects, _, bitmap = read_definition(path)
        return rects, art.read_bmp(path.parent / bitmap)[2]

    def test_only_the_active_bar_is_open_to_the_page(self):
        for name, _, path in definitions():
            if name == "segmented":
                continue  # whose bars lie astride the page's edge
            rects, rows = self.read(path)
            page, line = self.at(rows, rects[18], 0, 0), self.at(rows, rects[19], 0, 0)
            self.assertEqual([self.at(rows, rects[number], 0, -1) for number in (2, 3, 4)], [line, line, page], path)

    def test_the_three_looks_differ_in_their_fills(self):
        for _, _, path in definitions():
            rects, rows = self.read(path)
            columns = [tuple(rows[y][rects[n][0]] for y in range(rects[n][2], rects[n][3] + 1)) for n in (2, 3, 4)]
            self.assertEqual(len(set(columns)), 3, path)

    def test_greyed_arrows_are_another_picture(self):
        for _, _, path in definitions():
            for file in BUTTONS[path.name]:
                pixels = art.read_png(path.parent / file)[1]
                self.assertTrue(any(abs(red - green) > 40 and alpha == 255 for red, green, _, alpha in pixels), file)


class Settings(unittest.TestCase):
    def test_each_skin_comes_with_all_of_them(self):
        for _, _, folder in each_skin():
            for file in ("SETTINGS.TXT", "SETTINGS-SIDES.TXT"):
                self.assertEqual(list(read_settings(folder / file)), SETTINGS, folder / file)

    def test_slanted_bars_overlap_by_their_ends_and_slim_ones_by_a_line(self):
        for name, _, folder in each_skin():
            rects = read_definition(folder / "SKIN.INI")[0]
            ends = rects[8][1] - rects[8][0] + 1
            gap = int(read_settings(folder / "SETTINGS.TXT")["TabToTab"])
            if name in ("slanted", "slim"):
                self.assertEqual(gap, -ends if name == "slanted" else -1)
            else:
                self.assertGreaterEqual(gap, 0)

    def test_the_page_of_the_documentation_shows_them(self):
        page = (ROOT / "docs" / "skins.md").read_text(encoding="utf-8")
        for name in NAMES:
            for file in ("SETTINGS.TXT", "SETTINGS-SIDES.TXT"):
                row = " | ".join(read_settings(SKINS / name / file)[key] for key in SETTINGS)
                self.assertIn(f"| {row} |", page, (name, file))


class ContrastScript(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.skin = self.folder / "light"
        shutil.copytree(SKINS / "light", self.skin)

    def tearDown(self):
        shutil.rmtree(self.folder)

    def measure(self, *options):
        return run(CONTRAST, *options, self.skin / "SKIN.INI")

    def repaint(self, colours):
        """Other colours in the bitmap."""
        bitmap = bytearray((self.skin / "skin.bmp").read_bytes())
        for at in range(54, len(bitmap) - 2):
            found = tuple(reversed(bitmap[at:at + 3]))
            if found in colours:
                bitmap[at:at + 3] = bytes(reversed(colours[found]))
        (self.skin / "skin.bmp").write_bytes(bitmap)

    def bad(self):
        status, output, _ = self.measure()
        return status, re.findall(r"BAD +[\d.]+  (.*?):", output)

    def test_every_shipped_skin_holds(self):
        status, output, errors = run(CONTRAST)
        self.assertEqual((status, errors), (0, ""), re.findall("BAD.*", output))
        self.assertIn("37 of 37 skins hold", output)
        strictly = [table for table in output.split("\n/") if "skins/contrast" in table.partition("\n")[0]]
        self.assertEqual(len(strictly), 6)
        for table in strictly:
            self.assertIn("caption on a normal bar: at least 7.00", table)

    def test_a_ratio_is_that_of_the_guidelines(self):
        # black on a fill of 231, 233, 238 would be 17.23; the caption is 58, 63, 73
        self.assertIn(f"{art.contrast((58, 63, 73), (231, 233, 238)):6.2f}  caption on a normal bar", self.measure()[1])

    def test_other_skins_are_not_strict_enough_for_seven_to_one(self):
        self.assertEqual(self.measure("--strict")[0], 1)

    def test_captions_that_are_too_faint_are_found(self):
        text = (self.skin / "SETTINGS.TXT").read_text(encoding="ascii")
        text = re.sub("CaptionColor0 = .*", "CaptionColor0 = #9a9fa9", text)
        (self.skin / "SETTINGS.TXT").write_text(text, encoding="ascii")
        self.assertEqual(self.bad(), (1, ["caption on a normal bar", "caption on a hover bar"]))

    def test_a_mark_that_is_too_faint_is_found(self):
        self.repaint({(81, 71, 213): (190, 190, 240)})
        status, bad = self.bad()
        self.assertEqual((status, [each for each in bad if "mark" in each]),
                         (1, ["mark on a active bar", "mark of a active bar on the page"]))

    def test_edges_that_are_too_faint_are_found(self):
        self.repaint({(133, 138, 148): (200, 200, 205)})
        self.assertEqual([each for each in self.bad()[1] if "Line" in each],
                         [f"{line} on the page" for line in ("FTopLine", "FBottomLine", "FLeftLine", "FRightLine")])

    def test_a_button_that_does_not_grey_is_found(self):
        shutil.copy(self.skin / "close.png", self.skin / "back.png")
        self.assertIn("previous button, greyed", self.bad()[1])

    def test_a_skin_that_cannot_be_read_fails(self):
        (self.skin / "skin.bmp").unlink()
        status, output, errors = self.measure()
        self.assertEqual((status, errors), (1, ""))
        self.assertIn("cannot be measured", output)

    def test_the_command_line(self):
        for script in (CONTRAST, MAKE):
            self.assertEqual(run(script, "--help")[0], 0)
            self.assertIn("Usage", run(script, "--help")[1])
            status, output, errors = run(script, "--colour")
            self.assertEqual((status, output), (2, ""))
            self.assertIn("Usage", errors)


class Palettes(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp())
        shutil.copytree(ROOT / "resources" / "artlib", self.root / "artlib")
        shutil.copytree(PALETTES, self.root / "art" / "skins")
        shutil.copy(MAKE, self.root)

    def tearDown(self):
        shutil.rmtree(self.root)

    def error_of(self, old, new):
        """What is said of a palette that was changed for the worse."""
        path = self.root / "art" / "skins" / "contrast.palette"
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new), encoding="utf-8")
        status, _, errors = run(self.root / "make-skins", self.root / "out")
        self.assertEqual(status, 1)
        self.assertNotIn("Traceback", errors)
        self.assertFalse((self.root / "out").exists())
        return errors.strip()

    def test_a_line_that_says_nothing_is_refused(self):
        self.assertRegex(self.error_of("Height: 32", "Height 32"), r"contrast\.palette, line \d+: expected Key: value")

    def test_a_colour_that_is_none_is_refused(self):
        self.assertRegex(self.error_of("Mark2: #ffff00", "Mark2: yellow"), r"line \d+: 'Mark2: yellow' is no entry")

    def test_an_unknown_shape_is_refused(self):
        self.assertRegex(self.error_of("Shape: square", "Shape: sqare"), "no shape 'sqare'")

    def test_a_missing_colour_is_named(self):
        self.assertRegex(self.error_of("Fill1: #000000\n", ""), r"contrast\.palette: no Fill1")


if __name__ == "__main__":
    sys.exit(art.run_tests_of(sys.modules[__name__]))
