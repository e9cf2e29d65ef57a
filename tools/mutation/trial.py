"""What becomes of mutants: each goes before its judges until one notices it."""

import time
from typing import NamedTuple

from mutation.commands import OutOfTime
from mutation.judges import judges_of

KILLED, TIMED_OUT, NOT_COMPILED, SURVIVED = "killed", "timed out", "does not compile", "SURVIVED"


class Verdict(NamedTuple):
    mutant: object
    kind: str
    judge: str  # who came to it; empty for a survivor
    seconds: float

    def __str__(self):
        by = {KILLED: " by ", TIMED_OUT: " in ", NOT_COMPILED: " for ", SURVIVED: ""}[self.kind]
        return f"{self.kind}{by}{self.judge}, {self.seconds:.0f} s"


def limit(seconds):
    """An endless loop is told from a busy machine."""
    return round(30 + 4 * seconds)


def judged(workplace, mutant, times):
    """The verdict on the mutant. times: the seconds of each judge without a mutant."""
    start = time.monotonic()
    workplace.put_in(mutant)
    try:
        kind, judge = first_objection(workplace, judges_of(mutant.path, workplace.builds), times)
    finally:
        workplace.take_out()
    return Verdict(mutant, kind, judge, time.monotonic() - start)


def first_objection(workplace, judges, times):
    for judge in judges:
        try:
            if not workplace.is_built(judge):
                return NOT_COMPILED, judge.preset
            passed, _ = workplace.passes(judge, limit(times[judge.name]))
        except OutOfTime:
            return TIMED_OUT, judge.name
        if not passed:
            return KILLED, judge.name
    return SURVIVED, ""
