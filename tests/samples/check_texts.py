#!/usr/bin/env python3
"""The samples that nothing here can run, against the type library's source: every member that they use exists and takes
that many arguments, every handler has its event's parameters, and the interfaces written by hand are the library's. What
is in C# is compiled. Last line: "N passed, N failed"."""

import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
SAMPLES = ROOT / "samples"
IDL = (ROOT / "idl/VantikFrameTab.idl").read_text(encoding="utf-8")
MEMBER = re.compile(r"\[id\((\w+)\)([^\]]*)\]\s*(HRESULT|void) (\w+)\((.*?)\);", re.S)
ARGUMENT = re.compile(r"\[([^\]]*)\]\s*([\w*]+)\s+\w+")
passed = failed = 0


def check(what, found, expected):
    global passed, failed
    if found == expected:
        passed += 1
        return
    failed += 1
    print(f"FAILED: {what}\n  found:    {found}\n  expected: {expected}")


# --- the library


def part(begin, end):
    return IDL[IDL.index(begin) : IDL.index(end)]


def members(text):
    """(name, kind, arguments as (attributes, type)) in the library's order."""
    for _, attributes, _, name, arguments in MEMBER.findall(text):
        kind = re.search(r"\bprop(get|putref|put)\b", attributes)
        yield name, kind[0] if kind else "method", ARGUMENT.findall(arguments)


METHODS = list(members(part("interface _VantikFrameTab : IDispatch", "dispinterface __VantikFrameTab")))
EVENTS = {name: len(arguments) for name, _, arguments in members(part("dispinterface __VantikFrameTab", "coclass"))}


def counts():
    """How many arguments each member takes, at least and at most; a property takes none."""
    found = {}
    for name, kind, arguments in METHODS:
        given = [attributes for attributes, _ in arguments if "retval" not in attributes]
        found[name] = (0, 0) if kind != "method" else (len([a for a in given if "optional" not in a]), len(given))
    return found


COUNTS = counts()

# --- what samples use of it

BASIC = (".bas", ".cls", ".frm", ".vbs", ".hta")
OBJECT = r"\b(?:VantikFrameTab1|[Tt]abs)"
LATE = [
    path
    for pattern in ("*/*.bas", "*/*.cls", "*/*.frm", "*/*.vbs", "*/*.hta", "*/*.js", "*/*.pas", "*/*.lpr", "csharp-late/*.cs")
    for path in sorted(SAMPLES.glob(pattern))
]


def bare(text, suffix):
    """Without comments, and with empty strings; the designer's part of a form is none of its code."""
    if suffix in BASIC:
        text = text[text.find("Option Explicit") :]
        return re.sub(r'"(?:[^"]|"")*"|\'[^\n]*', lambda m: '""' if m[0][0] == '"' else "", text)
    if suffix in (".pas", ".lpr"):
        text = re.sub(r"\{[^}]*\}", "", text)
        return re.sub(r"'[^'\n]*'|//[^\n]*", lambda m: "''" if m[0][0] == "'" else "", text)
    text = re.sub(r'@"[^"]*"', '""', text)
    return re.sub(r'"(?:\\.|[^"\\\n])*"|//[^\n]*', lambda m: '""' if m[0][0] == '"' else "", text)


def split_arguments(text):
    """Those of a list without its brackets."""
    depth, count = 0, 1
    for letter in text:
        depth += (letter in "([") - (letter in ")]")
        count += letter == "," and depth == 0
    return count if text.strip() else 0


def inside_brackets(text):
    depth = 0
    for at, letter in enumerate(text):
        depth += (letter == "(") - (letter == ")")
        if depth == 0:
            return text[1:at]
    return text[1:]


def uses(text, suffix):
    """(member, number of arguments) of each use."""
    for found in re.finditer(OBJECT + r"\.([A-Za-z]\w*)", text):
        name, rest = found[1], text[found.end() :]
        is_statement = text[: found.start()].rpartition("\n")[2].strip() in ("", "Else", "Then")
        line = rest.partition("\n")[0]
        if rest.startswith("("):
            yield name, split_arguments(inside_brackets(rest))
        elif suffix in BASIC and is_statement and not line.lstrip().startswith("="):
            yield name, split_arguments(line)
        else:
            yield name, 0


def faults(text, suffix):
    """Of a text that was made bare. The place of a control on its form is the form's."""
    for name, given in uses(text, suffix):
        if name in ("Left", "Top", "Width", "Height"):
            continue
        least, most = COUNTS.get(name, (1, 0))
        if not least <= given <= most:
            yield f"{name} with {given} arguments"


def wrong_handlers(text):
    for name, parameters in re.findall(r"(?:Sub VantikFrameTab1_|for=\"tabs\" event=\")(\w+)\(([^)]*)\)", text):
        if EVENTS.get(name) != split_arguments(parameters):
            yield name


# --- interfaces in C#

TYPES = {"long": "int", "BSTR": "string", "VARIANT_BOOL": "bool", "OLE_COLOR": "uint"}
PREFIXES = {"propget": "get_", "propput": "put_", "propputref": "putref_", "method": ""}


def csharp_type(name):
    name = name[:-1] if name.endswith("*") and name not in ("IFontDisp*", "IPictureDisp*") else name
    return "object" if name.endswith("Disp*") else TYPES.get(name, name)


def csharp_signature(name, kind, arguments):
    result, given = "void", []
    for attributes, kind_of in arguments:
        if "retval" in attributes:
            result = csharp_type(kind_of[:-1])
        else:
            given.append(("ref " if "out" in attributes else "") + csharp_type(kind_of))
    return f"{result} {PREFIXES[kind]}{name}({', '.join(given)})"


def written_signatures(text):
    for result, name, arguments in re.findall(r"(\w+) (\w+)\(([^()]*)\);", re.sub(r"\[[^\]]*\] ", "", text)):
        given = [argument.rpartition(" ")[0] for argument in arguments.split(", ") if argument]
        yield f"{result} {name}({', '.join(given)})"


def check_interfaces():
    text = (SAMPLES / "windows-forms/VantikFrameTab.cs").read_text(encoding="utf-8")
    check("the identifiers", [i for i in re.findall(r'Guid\("([^"]*)"\)', text) if i not in IDL], [])
    calls, _, events = text.partition("[ComImport, Guid(\"DFDC")
    written = list(written_signatures(calls))
    for number, (found, member) in enumerate(zip(written, METHODS)):
        check(f"call {number} of the interface", found, csharp_signature(*member))
    check("calls of the interface", len(written), len(METHODS))
    numbers = [int(number) for number in re.findall(r"\[DispId\((\d+)\)\]", events)]
    written = dict(zip([s.split()[1].partition("(")[0] for s in written_signatures(events)], numbers))
    identified = {name: int(number) for number, _, _, name, _ in MEMBER.findall(part("dispinterface __", "coclass"))}
    check("the events and their numbers", written, identified)


def compile_csharp(folder, *options):
    command = ["mcs", "-warnaserror", f"-out:{folder}.exe", *options, *map(str, (SAMPLES / folder).glob("*.cs"))]
    run = subprocess.run(command, capture_output=True, text=True)
    check(f"{folder} compiles", (run.returncode, run.stdout + run.stderr), (0, ""))


# A check that finds nothing has to be one that could.
planted = 'tabs.NoSuch\ntabs.RemoveTab\ntabs.SetBarIco 1, "a, b", 2\ntabs.GetTabCaption()\ntabs.TabCount = 1\ntabs.RemoveTab 1\n'
check(
    "faults are seen",
    list(faults(bare("Option Explicit\n" + planted, ".vbs"), ".vbs")),
    ["NoSuch with 0 arguments", "RemoveTab with 0 arguments", "SetBarIco with 3 arguments", "GetTabCaption with 0 arguments"],
)
check("wrong handlers are seen", list(wrong_handlers("Sub VantikFrameTab1_TabDown(Index As Integer)")), ["TabDown"])
check("wrong handlers of a page are seen", list(wrong_handlers('for="tabs" event="DownBarDown(Index)"')), ["DownBarDown"])

idle = {path.parent.name for path in LATE}
for path in LATE:
    name = path.relative_to(SAMPLES).as_posix()
    text = bare(path.read_text(encoding="utf-8"), path.suffix)
    check(f"{name} uses members as they are", list(faults(text, path.suffix)), [])
    check(f"{name} has handlers of events as they are", list(wrong_handlers(path.read_text(encoding="utf-8"))), [])
    if list(uses(text, path.suffix)):
        idle.discard(path.parent.name)
check("samples in which no use of the control was found", idle, set())

parts = sorted(path.name for pattern in ("*.bas", "*.cls", "*.frm") for path in (SAMPLES / "basic-form").glob(pattern))
project = (SAMPLES / "basic-form/TabForm.vbp").read_text(encoding="utf-8")
check("the parts of the Basic project", sorted(re.findall(r"^(?:Form|Class|Module)=(?:\w+; )?(\S+)", project, re.M)), parts)

check_interfaces()
compile_csharp("windows-forms", "-target:winexe", "-r:System.Windows.Forms", "-r:System.Drawing", "-r:Accessibility")
compile_csharp("csharp-late", "-r:Microsoft.CSharp")

print(f"{passed} passed, {failed} failed")
sys.exit(failed > 0)
