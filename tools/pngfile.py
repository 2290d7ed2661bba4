"""PNG files as our programs and scripts write them: 8 bits each of red, green and
blue, or by a palette; rows without a filter. A picture is a list of rows of bytes,
three a pixel."""
import pathlib
import struct
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"
COLOURS, PALETTE = bytes([8, 2, 0, 0, 0]), bytes([8, 3, 0, 0, 0])


def chunks(data):
    at = len(SIGNATURE)
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        yield kind, data[at + 8:at + 8 + length]
        at += length + 12


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def read(path):
    parts = list(chunks(pathlib.Path(path).read_bytes()))
    header, colours = dict(parts)[b"IHDR"], dict(parts).get(b"PLTE", b"")
    width, height = struct.unpack(">II", header[:8])
    if header[8:] not in (COLOURS, PALETTE):
        raise ValueError(f"{path}: neither by a palette nor 8 bits of red, green and blue")
    raw = zlib.decompress(b"".join(body for kind, body in parts if kind == b"IDAT"))
    stride = 1 + width * (1 if colours else 3)
    if any(raw[::stride]):
        raise ValueError(f"{path}: its rows have a filter")
    rows = [raw[y * stride + 1:(y + 1) * stride] for y in range(height)]
    if colours:
        table = [colours[at:at + 3] for at in range(0, len(colours), 3)]
        rows = [b"".join(map(table.__getitem__, row)) for row in rows]
    return rows


def write(path, rows):
    """Small: by a palette where it has few enough colours."""
    size = struct.pack(">II", len(rows[0]) // 3, len(rows))
    pixels = [[row[x:x + 3] for x in range(0, len(row), 3)] for row in rows]
    colours = sorted({pixel for row in pixels for pixel in row})
    out = SIGNATURE
    if len(colours) <= 256:
        number = {colour: n for n, colour in enumerate(colours)}
        rows = [bytes(map(number.__getitem__, row)) for row in pixels]
        out += chunk(b"IHDR", size + PALETTE) + chunk(b"PLTE", b"".join(colours))
    else:
        out += chunk(b"IHDR", size + COLOURS)
    packed = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    pathlib.Path(path).write_bytes(out + chunk(b"IDAT", packed) + chunk(b"IEND", b""))
