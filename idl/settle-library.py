#!/usr/bin/env python3
"""Takes out of a type library when it was made, so that the same source gives the same bytes: widl writes the time as a
number and in words.

usage: settle-library.py LIBRARY
"""

import re
import sys

WORDS = re.compile(rb"(Created by WIDL version [\d.]+ at )\w{3} \w{3} [ \d]\d [\d:]{8} \d{4}\n(W*)")
NUMBER_TYPE = b"\x13\x00"  # VT_UI4, in front of the number; it follows the words


def settle(library):
    found = list(WORDS.finditer(library))
    if len(found) != 1 or library[found[0].end() : found[0].end() + 2] != NUMBER_TYPE:
        sys.exit("the type library does not say when it was made")
    words, number = found[0], found[0].end() + 2
    at_first = b"Thu Jan  1 00:00:00 1970\n"
    return library[: words.end(1)] + at_first + words[2] + NUMBER_TYPE + bytes(4) + library[number + 4 :]


def main(path):
    with open(path, "r+b") as file:
        settled = settle(file.read())
        file.seek(0)
        file.write(settled)


main(*sys.argv[1:])
