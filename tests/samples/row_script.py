#!/usr/bin/env -S python3 -B
"""Writes a program for basic_form of how a sample in Basic brings a page into view, with the sample's own procedures; the
row is the control's. Ends in an error where a page does not come into view.

usage: tests/samples/row_script.py SAMPLE.bas >FILE.vbs
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/docs"))

from programs import untyped  # noqa: E402

BEGIN = """Function FindWindowEx(Parent, After, ClassName, Title)
End Function
Function FindControl(Window)
End Function
Function RowOf(Window)
    Set RowOf = Row
End Function
"""
END = """Sub Expect(Page)
    If (Row.accState(Page + 1) And OffScreen) = 0 Then Err.Raise 5 ' it shows without being brought
    BringIntoView {arguments}
    If (Row.accState(Page + 1) And OffScreen) <> 0 Then Err.Raise 5
End Sub
VantikFrameTab1.BarWidth = 100
VantikFrameTab1.TabCount = 40
Expect 29
Expect 0
Expect 39
Expect 12
"""


def procedure(text, name):
    return re.search(rf"^(?:Public|Private) (Sub|Function) {name}\(.*?^End \1\n", text, re.M | re.S)[0]


if __name__ == "__main__":
    text = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    moving = procedure(text, "BringIntoView")
    takes_form = "ByVal Form" in moving
    constants = re.search(r"^Private Const .*OffScreen.*\n", text, re.M)[0]
    end = END.replace("{arguments}", "0, Page, 40" if takes_form else "Page")
    print(BEGIN + constants + untyped(moving + procedure(text, "Has")).replace("Me.Caption", '""') + end)
