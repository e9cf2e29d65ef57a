"""The runs of test suites that judge mutants, in the order in which they do: the quick ones of each build first."""

import fnmatch
from typing import NamedTuple

# Test cases that try thousands of states; they take longer than all others of their program together.
LONG = "*Laws*,*Endurance*,*Merged*"
SLOW = "*whichever*,*unloading*,*nor with*,*nor does anything*,*start*"


class Judge(NamedTuple):
    suite: str  # in tests/suites
    preset: str
    targets: tuple  # what must be built for it
    options: tuple = ()  # more options of the doctest program
    judges: tuple = ("src/*",)  # the files on which it can have an opinion, if they are built into its targets
    spares: tuple = ()  # ... but for these

    @property
    def name(self):
        return " ".join((f"{self.suite} [{self.preset}]", *self.options))


SHELL = {"judges": ("src/*",), "spares": ("src/base/*", "src/png/*")}
JUDGES = (
    Judge("core", "native", ("core_tests",)),
    Judge("png-limits", "native", ("png_limits_tests",), judges=("src/base/*", "src/png/*")),
    Judge("pngprobe", "native", ("pngprobe",), judges=("src/base/*", "src/png/*")),
    Judge("core", "native-asan", ("core_tests",)),
    Judge("png-differential", "native", ("png_differential_tests",), judges=("src/base/*", "src/png/*")),
    Judge("core", "win32", ("core_tests",), judges=("src/platform/*",)),
    Judge("engine", "win32", ("engine_tests",), (f"-sfe={LONG}",)),
    Judge("shell-pieces", "win32", ("shell_pieces_tests",), judges=("src/ole/*",)),
    Judge("shell", "win32", ("shell_tests",), **SHELL),
    Judge("shell-registering", "win32", ("shell_tests",), judges=("src/ole/server/*", "src/ole/com/*")),
    Judge("hostile-registering", "win32", ("hostile_tests",), judges=("src/ole/server/*", "src/ole/com/*")),
    Judge("shell-chinese", "win32", ("shell_tests",), **SHELL),
    Judge("host", "win32", ("host_tests",), **SHELL),
    Judge("hostile", "win32", ("hostile_tests",), (f"-tce={SLOW}",), **SHELL),
    Judge("hostile-skin", "win32", ("hostile_skin_tests",), judges=("src/skin/*", "src/platform/*")),
    Judge("script-client", "win32", ("VantikFrameTab",), judges=("src/ole/*",)),
    Judge("engine", "win32", ("engine_tests",), (f"-sf={LONG}",)),
)


def matches(path, patterns):
    return any(fnmatch.fnmatchcase(path, pattern) for pattern in patterns)


def judges_of(path, builds):
    """The judges of a file, in order. builds(preset, target) gives the files that the target is built of."""
    wanted = [judge for judge in JUDGES if matches(path, judge.judges) and not matches(path, judge.spares)]
    return [judge for judge in wanted if any(path in builds(judge.preset, target) for target in judge.targets)]
