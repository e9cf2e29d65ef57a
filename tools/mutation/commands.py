"""Commands that can be ended together with everything they started."""

import os
import signal
import subprocess
import tempfile

PATIENCE = 20  # seconds between asking a command to end and ending it


class Failure(Exception):
    """Why nothing can be judged."""


class OutOfTime(Exception):
    """A command did not end in its time."""


def run(command, seconds):
    """Its exit code and all it said. Whatever interrupts this, the command does not outlive it."""
    with tempfile.TemporaryFile() as said:
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=said, stderr=said, start_new_session=True)
        try:
            status = process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise OutOfTime from None
        finally:
            end(process)
        said.seek(0)
        return status, said.read().decode(errors="replace")


def end(process):
    if process.poll() is not None:
        return
    os.killpg(process.pid, signal.SIGTERM)
    try:
        process.wait(PATIENCE)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()


def output_of(command):
    status, output = run(command, 60)
    if status:
        raise Failure(output.strip())
    return output
