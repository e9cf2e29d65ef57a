"""The first programs in Basic, as far as VBScript is Basic."""

import re

from listings import blocks


def programs(root):
    """Those for forms of a Basic language; user forms have more than VBScript knows."""
    for page in ("README.md", "docs/getting-started.md"):
        for block in blocks((root / page).read_text(encoding="utf-8"), "vb"):
            if "VantikFrameTab1" in block or block.lstrip().startswith("."):
                if "Me." not in block:
                    yield block


def untyped(block):
    return re.sub(r" As \w+", "", block)


def as_script(number, block):
    """Without types; under names of its own, the part that runs at once as a procedure."""
    block = untyped(block)
    block = re.sub(r"\b(Form_Load|Page|VantikFrameTab1_\w+)\b", rf"\g<1>{number}", block)
    if block.lstrip().startswith("."):
        block = f"With VantikFrameTab1\n{block}End With\n"
    return block if "Form_Load" in block else f"Sub Form_Load{number}\n{block}End Sub\n"


def run_of(number, block):
    yield f'{as_script(number, block)}Set VantikFrameTab1 = CreateObject("VantikFrameTabProject.VantikFrameTab")'
    yield f"Form_Load{number}\nExpect \"program {number}\", 0"
    if "Settings" in block:
        yield f'If VantikFrameTab1.GetTabCaption(3) <> "Settings" Then Err.Raise 5'
        yield f'Expect "what program {number} shows", 0'
