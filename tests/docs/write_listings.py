#!/usr/bin/env -S python3 -B
"""Writes what the listings of the first programs are run from.

usage: tests/docs/write_listings.py FOLDER
"""

import os
import pathlib
import re
import sys

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
sys.path.insert(0, str(ROOT / "docs"))

from cpp_import import header  # noqa: E402
from listings import blocks  # noqa: E402
from programs import as_script, programs, untyped  # noqa: E402
from reflib.typelibrary import read_library  # noqa: E402

PAGE = (ROOT / "docs/getting-started.md").read_text(encoding="utf-8")
TYPES = read_library((ROOT / "idl/VantikFrameTab.idl").read_text(encoding="utf-8"))


def listing(language, word):
    """The one of its language that has the word in it."""
    [found] = [block for block in blocks(PAGE, language) if word in block]
    return found


def constants():
    return "".join(f"Const {name} = {value}\n" for values in TYPES.enumerations.values() for name, value in values.constants)


OFFICE = """Class Frame
    Public Visible
End Class
Function Controls(Name)
    Set Controls = New Frame
End Function
"""


def office():
    """The program of a user form, with the skin where the others have it. VBScript knows no form that would be Me."""
    code = untyped(listing("vb", "UserForm_Initialize")).replace("Me.", "")
    skin = re.sub(r'"[^"]*(Skins\\\w+)"', r'"\1"', code)
    return f"{constants()}{OFFICE}{skin}UserForm_Initialize\n"


def basic():
    """The programs in Basic, by the picture that each gives. What goes on the left is told as a change to another."""
    in_readme, built_in, light, dark = programs(ROOT)
    last = "        .DelButton"
    yield "start-light-readme", in_readme
    yield "start-light", light
    yield "start-built-in", built_in
    yield "start-dark", light.replace(last, dark + last)


def files():
    yield "import/VantikFrameTab.ocx", header(TYPES)
    yield "import/listing.cpp", listing("cpp", "#import")
    yield "listing.inc", listing("pascal", "procedure MakeTabs")
    yield "tabs.vbs", listing("vb", "CreateObject")
    yield "start-light-office.vbs", office()
    for name, block in basic():
        yield f"{name}.vbs", f"{constants()}{as_script('', block)}Form_Load\n"


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv[1])
    (folder / "import").mkdir(parents=True, exist_ok=True)
    for name, text in files():
        (folder / name).write_text(text, encoding="utf-8")
