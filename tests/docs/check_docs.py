#!/usr/bin/env -S python3 -B
"""The documents: the reference against what it is made of, versions that users copy against the project's, and
links.

usage: tests/docs/check_docs.py         The last line is "N passed, N failed".
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import csharp
from listings import blocks, font_shown, listings, pages_shown, picture_values, settings, skin_of, words

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
sys.path.insert(0, str(ROOT / "docs"))

from reflib.typelibrary import read_library  # noqa: E402

passed = failed = 0


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


def check(what, found, expected):
    global passed, failed
    if found == expected:
        passed += 1
        return
    failed += 1
    print(f"FAILED: {what}\n  found:    {found}\n  expected: {expected}")


# The reference.


def make_reference(root):
    """What the check of a checkout says; nothing where the page is up to date."""
    done = subprocess.run([ROOT / "docs/make-reference", "--check", "--root", root], capture_output=True, text=True)
    return done.stderr.strip() if done.returncode else ""


SOURCES = ("docs/reference.md", "idl", "src/model/Properties.h", "src/model/Properties.cpp")


def copy_of_sources(folder):
    for path in SOURCES:
        target = folder / path
        target.parent.mkdir(parents=True, exist_ok=True)
        (shutil.copytree if (ROOT / path).is_dir() else shutil.copy)(ROOT / path, target)


def check_complaint(what, path, old, new, complaint):
    """What is said of the reference with one thing changed in what it is made of."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        copy_of_sources(folder)
        text = (folder / path).read_text(encoding="utf-8")
        check(f"{what}: the text to change is there", old in text, True)
        (folder / path).write_text(text.replace(old, new, 1), encoding="utf-8")
        check(what, make_reference(folder).removeprefix("make-reference: "), complaint)


OUTDATED = "docs/reference.md is not what idl/ says; run docs/make-reference"


def check_complaints():
    check_complaint("a member that is described twice", "idl/reference/tabs.md", "## RemoveTab\n", "## InsertTab\n",
                    "InsertTab is described twice")
    check_complaint("a property that the table does not know", "idl/VantikFrameTab.idl", " FrameDist(", " FrameGap(",
                    "the property table has no FrameGap")
    check_complaint("a method that is not described", "idl/VantikFrameTab.idl", " RemoveTab(", " DropTab(",
                    "the member DropTab is described 0 times in idl/reference")
    check_complaint("an event that there is not", "idl/reference/events.md", "## TabMove\n", "## TabMoves\n",
                    "the event TabMove is described 0 times in idl/reference")
    check_complaint("an argument that is not described", "idl/reference/tabs.md",
                    "- argument AfterIndex", "- argument After", "InsertTab says nothing of: argument AfterIndex")
    check_complaint("a quantity without unit", "idl/reference/properties.md", "- unit: pixels\n", "",
                    "BarWidth says nothing of: unit")
    check_complaint("an example that is missing", "idl/reference/properties.md", "- example: `tabs.TabPos = 0`\n", "",
                    "TabPos says nothing of: example")
    check_complaint("an event's handler with other arguments", "idl/reference/events.md",
                    "_TabMove(Index", "_TabMove(Tab", "TabMove has no example that begins with: "
                    "Private Sub VantikFrameTab1_TabMove(Index As Integer)")
    check_complaint("errors of a group that there is not", "idl/reference/tabs.md", "- errors of: A full repaint",
                    "- errors of: A repaint", "TabCount names errors that are not described: A repaint")
    check_complaint("an effect beside the table's", "idl/reference/properties.md", "- example: `tabs.TabPos = 0`",
                    "- effect: none\n- example: `tabs.TabPos = 0`", "TabPos says what nobody asks: effect")
    check_complaint("another type", "idl/VantikFrameTab.idl", "BarWidth([in] short", "BarWidth([in] long", OUTDATED)
    check_complaint("another default", "src/model/Properties.h", "BarWidth = 20", "BarWidth = 21", OUTDATED)
    check_complaint("an effect without words", "src/model/Properties.cpp", 'u"BarWidth", Integer16, RepaintAll',
                    'u"BarWidth", Integer16, RepaintRow',
                    "BarWidth has an effect that the reference has no words for: RepaintRow")
    check_complaint("another effect", "src/model/Properties.cpp", 'u"BarWidth", Integer16, RepaintAll',
                    'u"BarWidth", Integer16, RedrawBars', OUTDATED)
    check_complaint("another page", "docs/reference.md", "Shift of icons", "Shifts icons", OUTDATED)


# Links within the checkout, to files and to headings.

FENCE = re.compile(r"^```.*?^```$", re.M | re.S)


def anchors(path):
    """As the sites that show Markdown name headings."""
    for heading in re.findall(r"^#+ (.+)$", FENCE.sub("", read(path)), re.M):
        yield re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def broken(page, target):
    name, _, anchor = target.partition("#")
    file = (page.parent / name).resolve() if name else page
    if not file.exists():
        return True
    return bool(anchor) and anchor not in anchors(file.relative_to(ROOT))


def pages():
    return sorted([*ROOT.glob("*.md"), *ROOT.glob("docs/*.md"), *ROOT.glob("samples/*/README.md")])


def check_links():
    for page in pages():
        targets = re.findall(r"\]\(([^)\s]+)\)", FENCE.sub("", page.read_text(encoding="utf-8")))
        check(f"links of {page.relative_to(ROOT)} that lead nowhere",
              [target for target in targets if ":" not in target and broken(page, target)], [])


# The first programs.


def check_listings():
    """Each has the values of the picture beside it: those of its skin, or the script's for the built-in one."""
    script = read("docs/make-getting-started")
    found = [listing for page in ("README.md", "docs/getting-started.md") for listing in listings(read(page))]
    check("listings that lay bars out", len(found) >= 8, True)
    for block, values in found:
        skin = skin_of(values)
        if "TabCount" in values:
            lacking = pages_shown(script, skin is not None) - words(block)
            check("captions and icons that a listing lacks", lacking, set())
            check("a listing names its font", font_shown(script) in block, True)
        expected = settings(read(f"skins/{skin[0]}/{skin[1]}")) if skin else picture_values(script)
        check(f"a listing with {skin or 'the built-in skin'}", {name: values.get(name) for name in expected}, expected)


def check_compiled_listings():
    types = read_library(read("idl/VantikFrameTab.idl"))
    for listing in blocks(read("docs/getting-started.md"), "cs"):
        check("what the compiler says of the listing in C#", csharp.complaints(listing, types), "")


# The control's own messages and verbs.


def check_texts():
    literals = re.findall(r'(?:u"[^"]*"\s*)+;', read("src/skin/SkinLocation.h"))
    messages = ["".join(re.findall(r'u"([^"]*)"', literal)).encode().decode("unicode_escape") for literal in literals]
    check("messages", len(messages), 2)
    troubleshooting = read("docs/troubleshooting.md")
    check("messages that are not translated", [text for text in messages if f"| {text} |" not in troubleshooting], [])
    names = re.findall(r'\{Verb\w+, L"([^"]+)"', read("src/ole/faces/Verbs.cpp"))
    rows = re.findall(r"^\| (\d+).*? \| ([^|]+) \|", read("docs/reference.md").partition("## Verbs")[2], re.M)
    check("verbs", [name for _, name in rows], [name.replace("&", "") for name in names])
    check("their numbers", [number for number, _ in rows], [str(number) for number in range(len(names))])


# The guide's dependency names the assembly that the build describes, whatever the bitness.


def attributes(text):
    return dict(re.findall(r'(\w+)="([^"]*)"', re.search(r"<assemblyIdentity([^>]*)/>", text)[1]))


def check_versions():
    version = re.search(r"project\(\s*\w+\s+VERSION ([\d.]+)", read("CMakeLists.txt"))[1]
    manifest = attributes(read("src/ole/server/VantikFrameTab.manifest.in").replace("@PROJECT_VERSION@", version))
    manifest["processorArchitecture"] = "*"
    check("the guide's manifest", attributes(read("docs/hosting.md")), manifest)
    for path in sorted((ROOT / "samples").glob("*/*.manifest")):
        check(f"the manifest of {path.parent.name}", attributes(path.read_text(encoding="utf-8")), manifest)
    for path in ("README.md", "docs/deployment.md"):
        packages = set(re.findall(r"VantikFrameTab[-.](\d+\.\d+\.\d+)", read(path)))
        check(f"the packages' version in {path}", packages, {version})


def check_smallest_definition():
    """The one in the guide is the one that a new skin begins with."""
    code = re.search(r"Definition =(.*?);", read("tools/skinview/model/NewSkin.cpp"), re.S).group(1)
    lines = re.findall(r'"(.*)\\r\\n"', code)
    listing = "".join(f"    {line}\n" if line else "\n" for line in lines)
    check("the smallest definition has lines", len(lines) >= 30, True)
    check("the smallest definition in the guide", listing in read("docs/skins.md"), True)


if __name__ == "__main__":
    check("the reference", make_reference(ROOT), "")
    check_complaints()
    check_links()
    check_listings()
    check_compiled_listings()
    check_texts()
    check_smallest_definition()
    check_versions()
    print(f"{passed} passed, {failed} failed")
    sys.exit(failed > 0)
