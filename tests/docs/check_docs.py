#!/usr/bin/env python3
"""The reference against the type library's source and the property table, and the hosting guide against the manifest.
Last line: "N passed, N failed"."""

import os
import pathlib
import re
import sys

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
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


def section(text, heading):
    return re.search(rf"^## {heading}$(.*?)(?=^## |\Z)", text, re.M | re.S).group(1)


def rows(text):
    """The cells of a table's rows, the heading left out."""
    lines = [line for line in text.splitlines() if line.startswith("|")]
    return [[cell.strip() for cell in line.strip("|").split("|")] for line in lines[2:]]


def quoted(cell):
    return re.findall(r"`([^`]+)`", cell)


# What the type library declares.

IDL = re.sub(r"//.*", "", read("idl/VantikFrameTab.idl"))
MEMBER = re.compile(r"\[id\((\w+)\)(.*?)\]\s*(?:HRESULT|void)\s+(\w+)\((.*?)\);", re.S)
ARGUMENT = re.compile(r"\[([^\]]*)\]\s*([\w*]+)\s+(\w+)")


def members(text):
    return [(m[1], m[2], m[3], ARGUMENT.findall(m[4])) for m in MEMBER.finditer(text)]


interface, events = re.search(r"interface _VantikFrameTab(.*?)dispinterface __VantikFrameTab(.*?)coclass", IDL, re.S).groups()


def signature(name, arguments):
    shown = [f"[{a}]" if "optional" in flags else a for flags, _, a in arguments if "retval" not in flags]
    return f"{name}({', '.join(shown)})"


methods = [signature(name, arguments) for _, flags, name, arguments in members(interface)
           if "prop" not in flags and name not in ("About", "zSubclass_Proc")]
types = {name: arguments[0][1] for _, flags, name, arguments in members(interface) if "propput" in flags}
TYPE_NAMES = {"short": "16-bit", "long": "32-bit", "BSTR": "string", "VARIANT_BOOL": "boolean", "OLE_COLOR": "colour",
              "IFontDisp*": "font", "IPictureDisp*": "picture"}
enumerations = {m[1]: re.findall(r"(\w+) = (\d)", m[2]) for m in re.finditer(r"typedef enum (\w+) \{(.*?)\}", IDL)}

# What the property table sets at first; objects have no field there.

defaults = {name: value for name, value in re.findall(
    r"^    (?:std::\w+|Boolean) (\w+)(?: = (.+?))?;$", read("src/model/Properties.h"), re.M)}


def default_text(name):
    value = defaults[name]
    text = re.fullmatch(r'u"(.*)"', value)
    if text:
        return '"' + text[1].replace("\\\\", "\\") + '"'
    return value or '""'


reference = read("docs/reference.md")

# Methods and the two properties among them, in interface order.
documented = [text for row in rows(section(reference, "Tabs")) for text in quoted(row[0])]
check("tab operations", documented, ["TabCount", "ActiveTab"] + methods)

# Properties: all of them, in interface order, with type and default.
table = [(name, row) for row in rows(section(reference, "Properties")) for name in quoted(row[0])]
check("properties", [name for name, _ in table], [name for name in types if name not in ("TabCount", "ActiveTab")])
for name, row in table:
    declared = types.get(name, "?")
    check(f"type of {name}", row[1].strip("`"), TYPE_NAMES.get(declared, declared))
    if declared in ("IFontDisp*", "IPictureDisp*"):
        continue
    shown = {"black": "0"}.get(row[2], row[2].strip("`"))
    check(f"default of {name}", shown, default_text(name))

# Enumerations: the column is the value.
for row in rows(section(reference, "Enumerations")):
    name = quoted(row[0])[0]
    found = [(constant, str(value)) for value, cell in enumerate(row[1:]) for constant in quoted(cell)]
    check(f"enumeration {name}", found, enumerations.pop(name, None))
check("enumerations that are not described", list(enumerations), [])

# Events, by number.
check("events", [(row[0], quoted(row[1])[0]) for row in rows(section(reference, "Events"))],
      [(number, signature(name, arguments)) for number, _, name, arguments in members(events)])
for name in ("About", "zSubclass_Proc"):
    check(f"{name} is mentioned", f"`{name}`" in reference, True)

# The guide's dependency names the assembly that the build describes, whatever the bitness.
identity = re.compile(r"<assemblyIdentity([^>]*)/>")
attributes = lambda text: dict(re.findall(r'(\w+)="([^"]*)"', identity.search(text)[1]))
version = re.search(r"project\(\s*\w+\s+VERSION ([\d.]+)", read("CMakeLists.txt"))[1]
manifest = attributes(read("src/ole/server/VantikFrameTab.manifest.in").replace("@PROJECT_VERSION@", version))
manifest["processorArchitecture"] = "*"
check("the guide's manifest", attributes(read("docs/hosting.md")), manifest)

print(f"{passed} passed, {failed} failed")
sys.exit(failed > 0)
