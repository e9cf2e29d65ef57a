#!/usr/bin/env python3
"""The control's source under Clang, for the same targets and with the same warnings: a file with any has failed.
Last line: "N passed, N failed"."""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(os.environ["ROOT"]) / "src"
STANDARD_HEADERS = "algorithm array functional memory optional span string string_view vector".split()
PLATFORM_HEADER = SOURCE / "platform" / "mDeclares.h"
BUILD = pathlib.Path(os.environ["BUILD"])
OUTPUTS = ("-o", "-MT", "-MF")  # each has a name behind it


def gcc_of(command):
    return next(word for word in command if re.search(r"mingw32-g\+\+", word))


def target_of(gcc):
    return pathlib.Path(gcc).name.split("-")[0] + "-w64-windows-gnu"


def standard_headers(gcc):
    """The folders of GCC's C++ library and of the platform; the compiler's own headers are Clang's."""
    told = subprocess.run([gcc, "-E", "-v", "-x", "c++", os.devnull], capture_output=True, text=True, check=True).stderr
    folders = re.search(r"#include <\.\.\.> search starts here:\n(.*?)\nEnd of search list", told, re.S)[1].split()
    return [folder for folder in folders if not re.search(r"/gcc/[^/]+/[^/]+/include(-fixed)?$", folder)]


def arguments_for_clang(command):
    """What GCC gets, but for what says where its output goes."""
    words = iter(command[command.index(gcc_of(command)) + 1:])
    kept = []
    for word in words:
        if word in OUTPUTS:
            next(words)
        elif word != "-MD":
            kept.append(word)
    return kept


class Clang:
    """The headers that take longest to read are read once for the portable files, and once with the platform's for others."""

    def __init__(self, entry, folder):
        gcc = gcc_of(shlex.split(entry["command"]))
        self.options = ["-fno-color-diagnostics", "-nostdinc++", f"--target={target_of(gcc)}"]
        self.options += [word for each in standard_headers(gcc) for word in ("-isystem", each)]
        standard = [f"<{header}>" for header in STANDARD_HEADERS]
        self.portable = self.precompile(entry, pathlib.Path(folder) / "portable.h", standard)
        self.platform = self.precompile(entry, pathlib.Path(folder) / "platform.h", [f'"{PLATFORM_HEADER}"', *standard])

    def precompile(self, entry, header, included):
        header.write_text("".join(f"#include {each}\n" for each in included))
        precompiled = header.with_suffix(".pch")
        said = self.run(entry, ["-x", "c++-header", str(header), "-o", str(precompiled)], without_file=True)
        if said:
            sys.exit(f"{header.name}: {said}")
        return precompiled

    def check(self, entry):
        """What Clang says of one file; nothing when it is content."""
        ring = re.search(r"/(core|engine|shell)\.dir/", entry["command"])
        headers = ["-include-pch", str(self.portable if ring[1] == "core" else self.platform)] if ring else []
        return self.run(entry, ["-fsyntax-only", *headers])

    def run(self, entry, words, without_file=False):
        arguments = arguments_for_clang(shlex.split(entry["command"]))
        if without_file:
            arguments = arguments[:arguments.index("-c")]
        done = subprocess.run(["clang++", *self.options, *arguments, "-O2", *words], cwd=entry["directory"],
                              capture_output=True, text=True)
        return done.stderr or (f"clang++ ended with {done.returncode}" if done.returncode else "")


def main():
    entries = [entry for entry in json.loads((BUILD / "compile_commands.json").read_text())
               if pathlib.Path(entry["file"]).is_relative_to(SOURCE) and entry["file"].endswith(".cpp")]
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        said = list(pool.map(Clang(entries[0], folder).check, entries))
    for entry, text in zip(entries, said):
        if text:
            print(f"FAILED: {pathlib.Path(entry['file']).relative_to(SOURCE)}\n{text}")
    failed = sum(map(bool, said))
    print(f"{len(said) - failed} passed, {failed} failed")
    return 0 if said and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
