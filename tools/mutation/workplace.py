"""The place where mutants live: a copy of the checkout in build/mutate, with build trees of its own. The checkout itself
is only read. Bringing the copy up to date also undoes what an interrupted run has left in it."""

import fcntl
import hashlib
import json
import os
import shutil
import time

from mutation.commands import Failure, OutOfTime, output_of, run

LONGEST_BUILD = 1800  # seconds; nearly all of the machine's time may be another's
OUT_OF_TIME = 3  # exit code of run.sh


class Workplace:
    def __init__(self, root):
        self.root, self.folder = root, root / "build" / "mutate"
        self.trees = self.folder / "build"
        self.original = None  # (file, text) while a mutant is in place
        self.built_of = {}

    def lock(self):
        self.trees.mkdir(parents=True, exist_ok=True)
        self.lock_file = open(self.trees / "mutate.lock", "w")
        try:
            fcntl.flock(self.lock_file, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            raise Failure("another tools/mutate is at work in this checkout") from None

    # The copy

    def bring_up_to_date(self):
        """Copies only what differs, and never its time: the build goes by times."""
        wanted = files_below(self.root)
        for path in files_below(self.folder) - wanted:
            (self.folder / path).unlink()
        for path in wanted:
            source, copy = self.root / path, self.folder / path
            if not copy.is_file() or copy.read_bytes() != source.read_bytes():
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, copy)

    def state(self):
        """A digest of the copy without a mutant."""
        digest = hashlib.sha256()
        for path in sorted(files_below(self.folder)):
            content = (self.folder / path).read_bytes()
            digest.update(f"{path}\0{len(content)}\0".encode() + content)
        return digest.hexdigest()

    def put_in(self, mutant):
        self.take_out()
        path = self.folder / mutant.path
        text = path.read_bytes().decode()
        self.original = (path, text)
        path.write_bytes((text[:mutant.start] + mutant.after + text[mutant.end:]).encode())

    def take_out(self):
        """The build notices at the next mutant, which saves building the original by itself."""
        if self.original:
            path, text = self.original
            path.write_bytes(text.encode())
        self.original = None

    # Builds and suites

    def script(self, *arguments, seconds):
        return run([self.folder / "tools/mutation/run.sh", *map(str, arguments)], seconds)

    def prepare(self, judges):
        presets = sorted({judge.preset for judge in judges})
        self.must("prepare", *presets)
        for preset in presets:
            targets = sorted({target for judge in judges if judge.preset == preset for target in judge.targets})
            self.must("build", preset, *targets)

    def must(self, *arguments):
        status, output = self.script(*arguments, seconds=2 * LONGEST_BUILD)
        if status:
            raise Failure(output.strip())

    def builds(self, preset, target):
        """The files that the target is built of, headers included."""
        if (preset, target) not in self.built_of:
            tree = self.trees / preset
            headers = self.headers_of_objects(tree)
            inputs = output_of(["ninja", "-C", tree, "-t", "inputs", target]).splitlines()
            found = [file for name in inputs for file in headers.get(name, [name])]
            self.built_of[preset, target] = {self.in_copy(tree, file) for file in found}
        return self.built_of[preset, target]

    def headers_of_objects(self, tree):
        """For every object of the tree what it was compiled from."""
        found, name = {}, None
        for line in output_of(["ninja", "-C", tree, "-t", "deps"]).splitlines():
            if line.startswith(" "):
                found[name].append(line.strip())
            elif ": #deps" in line:
                name = line.split(": #deps")[0]
                found[name] = []
        return found

    def in_copy(self, tree, file):
        return os.path.relpath(os.path.join(tree, file), self.folder)

    def is_built(self, judge):
        """Whether the compiler takes the mutant; raises OutOfTime."""
        status, output = self.script("build", judge.preset, *judge.targets, seconds=LONGEST_BUILD)
        if status and "subcommand failed" not in output:
            raise Failure(f"building broke for another reason than the mutant:\n{output.strip()}")
        return status == 0

    def passes(self, judge, seconds):
        """Whether the suite passes, and what it said; raises OutOfTime."""
        status, output = self.script("judge", judge.suite, judge.preset, seconds, *judge.options, seconds=seconds + 120)
        if status == OUT_OF_TIME:
            raise OutOfTime
        return status == 0, output

    def stop(self):
        if (self.folder / "tools/mutation/run.sh").is_file():
            self.script("stop", seconds=60)

    # The time that each judge takes without a mutant, kept for as long as nothing changes

    def known_times(self):
        try:
            known = json.loads((self.trees / "times.json").read_text())
        except (OSError, ValueError):
            return {}
        return known["seconds"] if known.get("state") == self.state() else {}

    def measure(self, judges, say):
        """Every judge must pass without a mutant. Returns its seconds by the judge's name."""
        times = self.known_times()
        for judge in (judge for judge in judges if judge.name not in times):
            say(f"Without a mutant: {judge.name}")
            times[judge.name] = self.seconds_of(judge)
            (self.trees / "times.json").write_text(json.dumps({"state": self.state(), "seconds": times}))
        return times

    def seconds_of(self, judge):
        start = time.monotonic()
        try:
            passed, output = self.passes(judge, LONGEST_BUILD)
        except OutOfTime:
            passed, output = False, "it did not end in time"
        if not passed:
            raise Failure(f"{output.strip()}\n{judge.name} fails without a mutant: make it pass first")
        return time.monotonic() - start


def files_below(folder):
    """All files of a checkout but those that are built or hidden."""
    found = set()
    for place, folders, files in os.walk(folder):
        at_top = os.path.samefile(place, folder)
        folders[:] = [name for name in folders if name[0] != "." and not (at_top and name == "build")]
        found.update(os.path.relpath(os.path.join(place, name), folder) for name in files if name[0] != ".")
    return found
