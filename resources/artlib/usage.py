"""What the scripts of this folder say of themselves."""

import sys

HELP = (["-h"], ["--help"])


def usage(text, arguments):
    """Prints the script's documentation; the exit code, which is 0 for those who asked for it."""
    wanted = arguments in HELP
    print(text.strip(), file=sys.stdout if wanted else sys.stderr)
    return 0 if wanted else 2
