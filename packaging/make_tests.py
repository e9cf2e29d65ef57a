#!/usr/bin/env python3
"""Packs the test programs of both builds with all that they need, to be run on a Windows machine: run-tests.cmd."""

import argparse
import pathlib

import checkout
from archive import write_zip

BUILDS = ("win32", "win64")
SLOWER = 4  # than where the suites' time limits are from
NEEDED = {".exe", ".dll", ".ocx", ".manifest"}
SKINS = "Skins"  # beside a program, the folder of those that it uses


def suites():
    """The suites that are Windows programs, as run-tests.cmd reads them."""
    for name in checkout.tracked("tests/suites"):
        lines = [line.partition(" = ") for line in checkout.text(name).splitlines() if " = " in line and line[0] != "#"]
        suite = {key: value.strip() for key, _, value in lines}
        if "program" in suite and set(BUILDS) <= set(suite["builds"].split()):
            yield "|".join([pathlib.Path(name).stem, suite["program"].replace("/", "\\") + ".exe", suite.get("filter", "-"),
                            need(suite), str(SLOWER * int(suite.get("seconds", 60)))])


def need(suite):
    """What only some systems have; the others say that they did not run it."""
    if suite.get("registers") == "yes":
        return "an administrator and no registered control"
    if suite.get("locale") == "zh_CN.UTF-8":
        return "codepage936"
    return f"dpi{int(suite['scale']):#x}" if suite.get("scale", "").isdigit() else "-"


def built(build):
    """The programs lie as in the build tree, by which they find each other."""
    tree = checkout.ROOT / "build" / build
    for path in sorted(tree.rglob("*")):
        if (path.suffix in NEEDED or SKINS in path.parts) and "CMakeFiles" not in path.parts and "bench" not in path.parts and path.is_file():
            if not any(part.startswith("Temp") for part in path.relative_to(tree).parts):
                yield f"{build}/{path.relative_to(tree).as_posix()}", path.read_bytes()


def contents():
    yield "suites.txt", "".join(f"{line}\r\n" for line in suites()).encode()
    yield "run-tests.cmd", checkout.text("packaging/run-tests.cmd").replace("\n", "\r\n").encode()
    for name in checkout.tracked("skins"):
        yield name, checkout.read(name)
    for build in BUILDS:
        yield from built(build)


def main(folder):
    title = f"VantikFrameTab-{checkout.version()}-tests"
    folder.mkdir(parents=True, exist_ok=True)
    write_zip(folder / f"{title}.zip", {f"{title}/{name}": data for name, data in contents()}, checkout.epoch())


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=pathlib.Path)
    main(**vars(parser.parse_args()))
