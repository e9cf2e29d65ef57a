#!/usr/bin/env python3
"""Makes setup programs that no release has, in the current folder: old-setup.exe, of a version that never was, with a file that
no later one has; broken-setup.exe, whose 64-bit control cannot be loaded."""

import argparse
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "packaging"))

import checkout  # noqa: E402
import contents  # noqa: E402
import installer  # noqa: E402
import make_packages  # noqa: E402

argparse.ArgumentParser(description=__doc__).parse_args()
trees, here = make_packages.builds(""), pathlib.Path.cwd()
files = make_packages.installed(contents.contents(checkout.version(), trees), trees)
installer.write_setup(here / "old-setup.exe", {**files, "docs/old.html": b"old"}, "0.9.0", 0)
broken = {**files, "x64/VantikFrameTab.ocx": b"no control"}
installer.write_setup(here / "broken-setup.exe", broken, checkout.version(), 0)
