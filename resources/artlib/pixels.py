"""Pictures as rows of pixels, and the file formats that the art needs."""

import pathlib
import struct
import subprocess
import zlib


class Picture:
    """RGBA pixels, top row first; a pixel is a tuple of four values from 0 to 255."""

    def __init__(self, width, height, colour=(0, 0, 0, 255)):
        self.width, self.height = width, height
        self.rows = [[colour] * width for _ in range(height)]

    def __getitem__(self, at):
        x, y = at
        return self.rows[y][x]

    def __setitem__(self, at, pixel):
        x, y = at
        if 0 <= x < self.width and 0 <= y < self.height:
            self.rows[y][x] = pixel

    @classmethod
    def from_rgba(cls, width, height, data):
        picture = cls(width, height)
        pixels = list(struct.iter_unpack("4B", data))
        picture.rows = [pixels[y * width:(y + 1) * width] for y in range(height)]
        return picture

    def part(self, left, top, width, height):
        part = Picture(width, height)
        part.rows = [row[left:left + width] for row in self.rows[top:top + height]]
        return part


def render_svg(source):
    """The drawing, a file or its text, at its own size, one unit a pixel."""
    svg = source if isinstance(source, bytes) else pathlib.Path(source).read_bytes()
    png = subprocess.run(["rsvg-convert", "--format=png"], input=svg, check=True, capture_output=True).stdout
    return decode_png(png)


def load_png(path):
    return decode_png(pathlib.Path(path).read_bytes())


def decode_png(png):
    """Any PNG: one of 8-bit RGBA here, others by ImageMagick."""
    width, height = struct.unpack(">II", png[16:24])
    if png[24:29] == b"\x08\x06\0\0\0":
        return Picture.from_rgba(width, height, unfiltered(zlib.decompress(image_data(png)), 4 * width, height))
    command = ["convert", "png:-", "-depth", "8", "rgba:-"]
    data = subprocess.run(command, input=png, check=True, capture_output=True).stdout
    return Picture.from_rgba(width, height, data)


def image_data(png):
    """What the IDAT chunks hold, one behind the other."""
    data, at = b"", 8
    while at + 8 <= len(png):
        length, kind = struct.unpack_from(">I4s", png, at)
        data += png[at + 8:at + 8 + length] if kind == b"IDAT" else b""
        at += 12 + length
    return data


def nearest(left, up, corner):
    """The Paeth predictor."""
    return min((left, up, corner), key=lambda value: abs(left + up - corner - value))


def unfiltered(data, stride, height):
    """The scanlines of 4-byte pixels behind one another, without their filter bytes."""
    rows, above = [], bytes(stride)
    for y in range(height):
        kind, row = data[y * (stride + 1)], bytearray(data[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        if kind:
            for i in range(stride):
                left, corner = (row[i - 4], above[i - 4]) if i >= 4 else (0, 0)
                up = above[i]
                row[i] = row[i] + (0, left, up, (left + up) // 2, nearest(left, up, corner))[kind] & 255
        rows.append(row)
        above = row
    return b"".join(rows)


def encode_png(picture):
    """8-bit RGBA without interlacing or ancillary chunks, the same bytes on every machine with the same zlib."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", picture.width, picture.height, 8, 6, 0, 0, 0)
    scanlines = b"".join(b"\0" + bytes(value for pixel in row for value in pixel) for row in picture.rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(scanlines, 9))
            + chunk(b"IEND", b""))


def encode_bmp24(picture):
    """An uncompressed 24-bit BMP, bottom row first; alpha is dropped."""
    padding = b"\0" * (-3 * picture.width % 4)
    rows = [b"".join(bytes((b, g, r)) for r, g, b, _ in row) + padding for row in reversed(picture.rows)]
    data = b"".join(rows)
    header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, picture.width, picture.height, 1, 24, 0, len(data), 3780, 3780, 0, 0)
    return header + info + data


def load_bmp24(path):
    file = pathlib.Path(path).read_bytes()
    offset, = struct.unpack_from("<I", file, 10)
    width, height, _, depth, compression = struct.unpack_from("<iiHHI", file, 18)
    if depth != 24 or compression != 0 or height < 0:
        raise ValueError(f"{path}: not a plain 24-bit BMP")
    stride = (3 * width + 3) // 4 * 4
    picture = Picture(width, height)
    for y in range(height):
        start = offset + (height - 1 - y) * stride
        picture.rows[y] = [(r, g, b, 255) for b, g, r in struct.iter_unpack("3B", file[start:start + 3 * width])]
    return picture
