#!/usr/bin/env python3
"""Makes sections of a built module read-only that the linker leaves writable though only the loader ever writes to them:
imports, resources, the lists of the C library and the originals of what each thread has a copy of.

usage: protect-sections.py MODULE SECTION...
"""

import struct
import sys

WRITABLE = 0x80000000
SECTION_HEADER = 40


def section_flags(image, names):
    """The places of the flags of the sections with these names."""
    headers = struct.unpack_from("<I", image, 0x3C)[0]
    count, = struct.unpack_from("<H", image, headers + 6)
    optional, = struct.unpack_from("<H", image, headers + 20)
    first = headers + 24 + optional
    for header in range(first, first + count * SECTION_HEADER, SECTION_HEADER):
        if image[header : header + 8].rstrip(b"\0").decode() in names:
            yield header + 36


def write_checksum(image):
    """As the loader computes it: the sum of all 16-bit words, carries added, and the length."""
    place = struct.unpack_from("<I", image, 0x3C)[0] + 24 + 64
    struct.pack_into("<I", image, place, 0)
    padded = bytes(image) + b"\0" * (len(image) % 2)
    total = sum(struct.unpack(f"<{len(padded) // 2}H", padded))
    while total >> 16:
        total = (total & 0xFFFF) + (total >> 16)
    struct.pack_into("<I", image, place, total + len(image))


def main(path, *names):
    with open(path, "r+b") as module:
        image = bytearray(module.read())
        places = list(section_flags(image, names))
        if len(places) != len(names):
            sys.exit(f"{path} lacks one of the sections {', '.join(names)}")
        for place in places:
            flags, = struct.unpack_from("<I", image, place)
            struct.pack_into("<I", image, place, flags & ~WRITABLE)
        write_checksum(image)
        module.seek(0)
        module.write(image)


main(*sys.argv[1:])
