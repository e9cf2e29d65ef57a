#!/usr/bin/env python3
"""Makes the packages of what is built: all that is needed of the checkout, laid out for those who use the control. Packages
that are in the folder already, of any version, go."""

import argparse
import hashlib
import pathlib

import checkout
import contents
import installer
import nuget
from archive import write_zip


def installed(files, trees):
    """What the setup program installs: the samples as text, their programs are in the zip."""
    programs = dict(contents.programs(trees))
    return {name: data for name, data in files.items() if name not in programs}


def packages_in(folder):
    return sorted(folder.glob("VantikFrameTab[-.]*"))


def checksums(folder):
    lines = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}\n" for path in packages_in(folder)]
    (folder / "SHA256SUMS").write_text("".join(lines))


def below(folder, files):
    return {f"{folder}/{name}": data for name, data in files.items()}


def builds(prefix):
    return {"x86": checkout.ROOT / f"build/{prefix}win32", "x64": checkout.ROOT / f"build/{prefix}win64"}


def make_debug_files(folder):
    title = f"VantikFrameTab-{checkout.version()}-debug"
    write_zip(folder / f"{title}.zip", below(title, dict(contents.debug_files(builds("release-")))), checkout.epoch())


def make(folder, trees):
    version, epoch = checkout.version(), checkout.epoch()
    title = f"VantikFrameTab-{version}"
    files = contents.contents(version, trees)
    write_zip(folder / f"{title}.zip", below(title, files), epoch)
    write_zip(folder / f"VantikFrameTab.{version}.nupkg", nuget.files(version, trees, files), epoch)
    installer.write_setup(folder / f"{title}-setup.exe", installed(files, trees), version, epoch)


def main(folder, tested):
    folder = pathlib.Path(folder).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    for old in packages_in(folder):
        old.unlink()
    make(folder, builds("" if tested else "release-"))
    if not tested:
        make_debug_files(folder)
    checksums(folder)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tested", action="store_true", help="of the builds that ./test runs, which lack the files for debuggers")
    parser.add_argument("folder")
    main(**vars(parser.parse_args()))
