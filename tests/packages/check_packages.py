#!/usr/bin/env python3
"""The packages of the builds that the other suites test, looked at as their users find them. Last line: "N passed, N failed"."""

import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree
import zipfile
from html.parser import HTMLParser

ROOT = pathlib.Path(os.environ.get("ROOT") or pathlib.Path(__file__).resolve().parents[2])
BUILDS = {"x86": ROOT / "build/win32", "x64": ROOT / "build/win64"}
COMPILERS = {"x86": "i686-w64-mingw32", "x64": "x86_64-w64-mingw32"}
VERSION = re.search(r"project\(\w+ VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
TITLE = f"VantikFrameTab-{VERSION}"
passed = failed = 0


def check(what, found, expected):
    global passed, failed
    if found == expected:
        passed += 1
        return
    failed += 1
    print(f"FAILED: {what}\n  found:    {found}\n  expected: {expected}")


def make(folder, **environment):
    subprocess.run([sys.executable, ROOT / "packaging/make_packages.py", "--tested", folder], check=True,
                   env={**os.environ, "PYTHONDONTWRITEBYTECODE": "1", **environment})
    return {path.name: path.read_bytes() for path in pathlib.Path(folder).iterdir()}


def files_of(package):
    with zipfile.ZipFile(package) as archive:
        return {name: archive.read(name) for name in archive.namelist()}


def same_in_both_builds(packed, folder_of):
    """What was packed of the control is what the other suites test."""
    for processor, build in BUILDS.items():
        for name in ("VantikFrameTab.ocx", "VantikFrameTab.manifest"):
            check(f"{name} for {processor} in {folder_of(processor)}", packed[f"{folder_of(processor)}/{name}"],
                  (build / "src/ole" / name).read_bytes())


# Nothing but the commit decides: neither the day, nor the folder, nor what was there before.

made = make("packages")
elsewhere = pathlib.Path("some other place")
elsewhere.mkdir()
(elsewhere / "VantikFrameTab-0.1.0.zip").write_text("an older one")
(elsewhere / "notes.txt").write_text("the user's own")
again = make(elsewhere, TZ="Asia/Tokyo", LC_ALL="C", TMPDIR=os.getcwd())
check("files beside the packages stay", again.pop("notes.txt", None), b"the user's own")
check("the same packages twice", {name: hashlib.sha256(data).hexdigest() for name, data in again.items()},
      {name: hashlib.sha256(data).hexdigest() for name, data in made.items()})
sums = dict(reversed(line.split("  ")) for line in made.pop("SHA256SUMS").decode().splitlines())
check("check sums", sums, {name: hashlib.sha256(data).hexdigest() for name, data in made.items()})
check("packages", sorted(made), [f"{TITLE}-setup.exe", f"{TITLE}.zip", f"VantikFrameTab.{VERSION}.nupkg"])
check("paths of this machine", [name for name, data in made.items() if str(ROOT).encode() in data], [])

# The sources without their history: all files, and the time of the newest entry of the list of changes.
sys.path.insert(0, str(ROOT / "packaging"))
sys.dont_write_bytecode = True
import checkout  # noqa: E402

checkout.ROOT = pathlib.Path("handed on").resolve()
for name in ("skins/b/x.png", "skins/a.txt", "CHANGELOG.md"):
    path = checkout.ROOT / name
    path.parent.mkdir(parents=True, exist_ok=True)
    path.touch()
os.utime(checkout.ROOT / "CHANGELOG.md", (1_700_000_000, 1_700_000_000))
check("files of sources without a history", checkout.tracked("skins"), ["skins/a.txt", "skins/b/x.png"])
check("their time", checkout.epoch(), int(os.environ.get("SOURCE_DATE_EPOCH", 1_700_000_000)))

# The zip.

with zipfile.ZipFile(f"packages/{TITLE}.zip") as archive:
    entries = archive.infolist()
    archive.extractall(".")
check("the zip is in order", [entry.filename for entry in entries], sorted(entry.filename for entry in entries))
check("times in the zip", len({entry.date_time for entry in entries}), 1)
unpacked = pathlib.Path(TITLE)
zipped = {name.removeprefix(f"{TITLE}/"): data for name, data in files_of(f"packages/{TITLE}.zip").items()}
check("all in one folder", sorted(path.name for path in unpacked.iterdir()), sorted({name.split("/")[0] for name in zipped}))

same_in_both_builds(zipped, lambda processor: processor)
for sample in ("atl-window", "plain-dialog", "plain-window"):
    same_in_both_builds(zipped, lambda processor: f"samples/{sample}/{processor}")
for processor, build in BUILDS.items():
    check(f"type library for {processor}", zipped[f"{processor}/VantikFrameTab.tlb"],
          (build / "idl/VantikFrameTab.tlb").read_bytes())
check("what is for git alone", [name for name in zipped if "/.git" in name], [])
check("paths of this machine in the zip", [name for name, data in zipped.items() if str(ROOT).encode() in data], [])

readme = zipped["README.txt"].decode()
named = re.findall(r"^  (\w[\w.]*)\\? ", readme, re.M)
check("README.txt names all there is, and nothing else", sorted(named),
      sorted({name.split("/")[0] for name in zipped} - {"README.txt"}))
check("README.txt says which version it is of", f"VantikFrameTab {VERSION}\r\n" in readme, True)
check("places that README.txt names", [place for place in re.findall(r"[\w]+\\[\w.\\]+\w", readme)
                                       if "regsvr32" not in place and place.replace("\\", "/") not in zipped], [])
check("texts for every editor", [name for name in zipped if name.endswith(".txt") and
                                 zipped[name].count(b"\n") != zipped[name].count(b"\r\n")], [])
check("the licence", zipped["LICENSE.txt"].decode().replace("\r\n", "\n"), (ROOT / "LICENSE").read_text())

# Every library that the linker took something from has its notice. What leads to a library of the system is none.
notices = zipped["NOTICES.txt"].decode()
OWN = {"core", "engine", "shell", "interfaces", "stack_guard"}


def imported(processor):
    headers = subprocess.run([f"{COMPILERS[processor]}-objdump", "-p", BUILDS[processor] / "src/ole/VantikFrameTab.ocx"],
                             check=True, capture_output=True, text=True).stdout
    return {name.lower() for name in re.findall(r"DLL Name: (\w+)\.", headers)}


for processor, build in BUILDS.items():
    linked = (build / "src/ole/VantikFrameTab.map").read_text().partition("\nDiscarded input sections")[0]
    libraries = set(re.findall(r"lib([\w+]+)\.a\(", linked)) - OWN - (imported(processor) - {"msvcrt"})
    check(f"libraries of {processor} without a notice", [name for name in libraries if f"lib{name}" not in notices], [])
    check(f"libraries of {processor} are known", "stdc++" in libraries, True)

# Skins: each folder whole, the built-in one too.
skins = {name.split("/")[1] for name in zipped if name.startswith("skins/")}
check("skins", skins, {path.name for path in (ROOT / "skins").iterdir() if path.is_dir()} | {"built-in"})
for path in (ROOT / "resources/skin").iterdir():
    check(f"the built-in skin's {path.name}", zipped.get(f"skins/built-in/{path.name}"), path.read_bytes())

# The documents: every link and every picture leads somewhere, in the package.


class Page(HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.leads, self.names, self.headings = [], set(), 0
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.leads += [attributes[key] for key in ("href", "src") if key in attributes]
        self.names |= {attributes["id"]} if "id" in attributes else set()
        self.headings += tag == "h1"


pages = {name: Page(data.decode()) for name, data in zipped.items() if name.endswith(".html")}
check("a page for each document", sorted(pages), sorted(
    [f"docs/{path.stem}.html" for path in (ROOT / "docs").glob("*.md")] +
    ["docs/changes.html", "docs/index.html", "docs/security.html"]))


def leads_nowhere(name, address):
    if re.match(r"[a-z]+:", address):
        return not address.startswith("https://")
    path, _, heading = address.partition("#")
    target = os.path.normpath(os.path.join(os.path.dirname(name), path)) if path else name
    if heading:
        return target not in pages or heading not in pages[target].names
    return not (unpacked / target).exists() or target.startswith("..")


for name, page in pages.items():
    check(f"links of {name} that lead nowhere", [lead for lead in page.leads if leads_nowhere(name, lead)], [])
    check(f"titles of {name}", page.headings, 1)
reached, waiting = set(), ["docs/index.html"]
while waiting:
    name = waiting.pop()
    if name in pages and name not in reached:
        reached.add(name)
        waiting += [os.path.normpath(f"docs/{lead.partition('#')[0]}") for lead in pages[name].leads]
check("documents that no way leads to from the first", sorted(set(pages) - reached), [])
check("what only the checkout has is left out", "./test" in zipped["docs/index.html"].decode(), False)

# The sample compiles as its README says, from what is in the zip alone.
commands = re.findall(r"^    (.*)$", zipped["samples/plain-window/README.md"].decode(), re.M)
check("commands of the sample", len(commands), 2)
for processor, compiler in COMPILERS.items():
    tools = pathlib.Path(f"tools-{processor}").resolve()
    tools.mkdir()
    for tool, program in {"g++": "g++-win32", "windres": "windres"}.items():
        (tools / tool).symlink_to(shutil.which(f"{compiler}-{program}"))
    folder = unpacked / "samples/plain-window"
    done = subprocess.run("\n".join(["set -e", *commands]), shell=True, cwd=folder, capture_output=True, text=True,
                          env={**os.environ, "PATH": f"{tools}:{os.environ['PATH']}"})
    check(f"the sample compiles for {processor}", (done.returncode, done.stderr), (0, ""))
    check(f"and is a program of {processor}", (folder / "plain-window.exe").is_file(), True)
    (folder / "plain-window.exe").unlink(missing_ok=True)

# The NuGet package.

nuget = files_of(f"packages/VantikFrameTab.{VERSION}.nupkg")
same_in_both_builds(nuget, {"x86": "build/native/Win32", "x64": "build/native/x64"}.get)
documents = {name: xml.etree.ElementTree.fromstring(data) for name, data in nuget.items()
             if name.endswith((".nuspec", ".targets", ".rels", ".xml"))}
typed = {element.get("Extension") for element in documents["[Content_Types].xml"]}
check("every file has a type", [name for name in nuget if name.rpartition(".")[2] not in typed | {"xml"}], [])
check("the package says what describes it", documents["_rels/.rels"][0].get("Target"), "/VantikFrameTab.nuspec")
metadata = {element.tag.rpartition("}")[2]: element.text for element in documents["VantikFrameTab.nuspec"][0]}
check("name, version and licence", [metadata[key] for key in ("id", "version", "license")], ["VantikFrameTab", VERSION, "MIT"])
for name in ("VantikFrameTabProject.h", "VantikFrameTabProject_i.c"):
    check(f"the package's {name}", nuget[f"build/native/include/{name}"], zipped[f"include/{name}"])
targets = nuget["build/native/VantikFrameTab.targets"].decode()
identity = re.search(r'<assemblyIdentity type="win32" name="(\w+)" version="([\d.]+)"', zipped["x86/VantikFrameTab.manifest"].decode())
check("the dependency that projects get is the control's manifest",
      re.search(r"name='(\w+)' version='([\d.]+)' processorArchitecture='\*'", targets).groups(), identity.groups())

# What a project gets that is built with the package.

PROJECT = """<Project ToolsVersion="4.0" DefaultTargets="Build" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup><OutDir>out-$(Platform)/</OutDir></PropertyGroup>
  <Import Project="nuget/build/native/VantikFrameTab.targets"/>
  <Target Name="Build"/>
</Project>
"""

with zipfile.ZipFile(f"packages/VantikFrameTab.{VERSION}.nupkg") as archive:
    archive.extractall("nuget")
pathlib.Path("program.proj").write_text(PROJECT)


def build_project(platform):
    """The exit code and what was built."""
    done = subprocess.run(["xbuild", "/nologo", f"/p:Platform={platform}", "program.proj"], capture_output=True, text=True)
    out = pathlib.Path(f"out-{platform}")
    return done.returncode, {path.name: path.read_bytes() for path in (out.iterdir() if out.is_dir() else ())}, done.stdout


for platform, processor in {"Win32": "x86", "x64": "x64"}.items():
    status, copied, said = build_project(platform)
    check(f"a project for {platform} builds", status, 0)
    check("and has the control beside it", copied, {name: zipped[f"{processor}/{name}"] for name in
                                                     ("VantikFrameTab.ocx", "VantikFrameTab.manifest")})
status, copied, said = build_project("ARM64")
check("a project for another processor is told so", (status != 0, copied, "not for ARM64" in said), (True, {}, True))

print(f"{passed} passed, {failed} failed")
sys.exit(failed > 0)
