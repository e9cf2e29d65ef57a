#!/usr/bin/env python3
"""The includes of the source against the table of rooms and floors in CONTRIBUTING.md: an include leads into the file's
own room or to a floor below. Last line: "N passed, N failed"."""

import os
import pathlib
import re
import sys

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
SOURCE = ROOT / "src"
ROW = re.compile(r"^\| (\d+) \| `src/([^`]+)/` \|", re.M)
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)
passed = failed = 0


def check(what, found, expected):
    global passed, failed
    if found == expected:
        passed += 1
        return
    failed += 1
    print(f"FAILED: {what}\n  found:    {found}\n  expected: {expected}")


def room_of(path):
    """The folder of a file, as the table names it."""
    return path.rpartition("/")[0]


def wrong_turns(path, includes, floors):
    """The includes that lead to a higher floor, or into another room of the same."""
    here = room_of(path)
    return [
        include
        for include in includes
        if room_of(include) != here and floors[room_of(include)] >= floors[here]
    ]


def files():
    for path in sorted(SOURCE.rglob("*")):
        if path.suffix in (".h", ".cpp"):
            yield path.relative_to(SOURCE).as_posix(), path.read_text(encoding="utf-8")


floors = {room: int(floor) for floor, room in ROW.findall((ROOT / "CONTRIBUTING.md").read_text(encoding="utf-8"))}
texts = dict(files())
check("the rooms of the table", sorted(floors), sorted({room_of(path) for path in texts}))

# A check that finds nothing has to be one that could.
sample = {"low": 1, "beside": 2, "room": 2, "high": 3}
check(
    "wrong turns are seen",
    wrong_turns("room/A.cpp", ["room/A.h", "low/B.h", "beside/C.h", "high/D.h"], sample),
    ["beside/C.h", "high/D.h"],
)

for path, text in texts.items():
    includes = INCLUDE.findall(text)
    check(f"{path} includes files of the source", [name for name in includes if name not in texts], [])
    known = [name for name in includes if room_of(name) in floors]
    check(f"{path} includes nothing of higher floors", wrong_turns(path, known, floors), [])

print(f"{passed} passed, {failed} failed")
sys.exit(failed > 0)
