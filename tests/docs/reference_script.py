#!/usr/bin/env -S python3 -B
"""Writes a script that runs every example of the reference, and every statement that is said to raise an error, each on
a new control with three tabs; and the first programs in Basic, as far as VBScript is Basic.

usage: tests/docs/reference_script.py >FILE.vbs
"""

import os
import pathlib
import sys

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
sys.path.insert(0, str(ROOT / "docs"))

from programs import programs, run_of  # noqa: E402
from reflib.sources import read_sources  # noqa: E402

HEAD = """Option Explicit
Const AlignLeft = 0, AlignMiddle = 1, WindowLeft = 0
Dim tabs, VantikFrameTab1, passed, failed
passed = 0
failed = 0

Sub NewTabs
    Set tabs = CreateObject("VantikFrameTabProject.VantikFrameTab")
    tabs.TabCount = 3
End Sub

Sub Expect(statement, number)
    If Err.Number = number Then
        passed = passed + 1
    Else
        failed = failed + 1
        WScript.Echo "FAILED: " & statement & ": error " & Err.Number & " (" & Err.Description & ") instead of " & number
    End If
    Err.Clear
End Sub

On Error Resume Next
"""
TAIL = 'WScript.Echo passed & " passed, " & failed & " failed"'


def statements():
    """Each with the number of the error that it raises."""
    for _, entries in read_sources(ROOT).values():
        for entry in entries.values():
            if entry.statement:
                yield entry.statement, 0
            yield from ((error.statement, error.number) for error in entry.errors if error.statement)


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


if __name__ == "__main__":
    body = [f"NewTabs\n{text}\nExpect {quoted(text)}, {number}" for text, number in statements()]
    body += [line for number, block in enumerate(programs(ROOT)) for line in run_of(number, block)]
    print("\n".join([HEAD, *body, TAIL]).replace("\n", "\r\n"))
