"""What the packages need to know of the checkout that they are made from."""

import os
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[1]


def read(path):
    return (ROOT / path).read_bytes()


def text(path):
    return (ROOT / path).read_text(encoding="utf-8")


def version():
    return re.search(r"^project\(\w+ VERSION ([\d.]+) ", text("CMakeLists.txt"), re.M)[1]


def git(*arguments):
    return subprocess.run(["git", "-C", ROOT, *arguments], check=True, capture_output=True, text=True).stdout


def is_clone():
    """Or the sources as somebody handed them on, without their history."""
    return (ROOT / ".git").exists()


def tracked(folder):
    """The files below a folder that belong to the project, in order: not what an editor left there."""
    if is_clone():
        return sorted(name for name in git("ls-files", "-z", "--", folder).split("\0") if name)
    return sorted(path.relative_to(ROOT).as_posix() for path in (ROOT / folder).rglob("*") if path.is_file())


def epoch():
    """When what is packed was last changed, unless somebody who packs it knows better."""
    given = os.environ.get("SOURCE_DATE_EPOCH")
    last = git("log", "-1", "--format=%ct") if is_clone() else (ROOT / "CHANGELOG.md").stat().st_mtime
    return int(given or last)
