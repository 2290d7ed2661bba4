#!/usr/bin/env python3
"""Reads the records of metafiles of all three kinds into one list of what they
draw, in the same words for each. It knows the file formats alone.

usage: metarecords.py FILE   - prints that list

A drawing is a list of tuples:
    ("box", left, top, right, bottom, pen, brush)   right and bottom not in it
    ("line", x0, y0, x1, y1, pen)                   without its last point
    ("pixel", x, y, colour)
    ("text", x, y, text, colour, align, face, height)
    ("bitmap", x, y, width, height, bits to the pixel, raster operation, SHA-1 of its DIB)
Colours are "#rrggbb"; a pen or a brush that draws nothing is None.
"""
import hashlib
import struct
import sys

NULLSTYLE = {"pen": 5, "brush": 1}
STOCK = {0: ("brush", "#ffffff"), 4: ("brush", "#000000"), 5: ("brush", None),
         6: ("pen", "#ffffff"), 7: ("pen", "#000000"), 8: ("pen", None)}
PLACEABLEKEY = 0x9AC6CDD7


def colour(value):
    return f"#{value & 255:02x}{value >> 8 & 255:02x}{value >> 16 & 255:02x}"


def need(condition, what):
    if not condition:
        raise ValueError(what)


class Player:
    """The state that records change, and the drawing."""

    def __init__(self):
        self.objects = {}
        self.state = {"pen": "#000000", "brush": "#ffffff", "font": ("", 0)}
        self.textcolour, self.align = "#000000", 0
        self.at = (0, 0)
        self.drawing, self.window, self.header = [], {}, {}

    def made(self, handle, kind, style, value):
        self.objects[handle] = (kind, None if style == NULLSTYLE.get(kind) else value)

    def select(self, handle):
        need(handle in self.objects, f"object {handle} was never made")
        kind, value = self.objects[handle]
        self.state[kind] = value

    def selectstock(self, number):
        kind, value = STOCK.get(number, ("font", ("", 0)))
        self.state[kind] = value

    def box(self, left, top, right, bottom):
        pen, brush = self.state["pen"], self.state["brush"]
        self.drawing.append(("box", left, top, right, bottom, pen, brush))

    def polygon(self, points):
        xs, ys = points[::2], points[1::2]
        corners = {(x, y) for x in (min(xs), max(xs)) for y in (min(ys), max(ys))}
        if corners != set(zip(xs, ys)):
            return  # no upright box
        self.box(min(xs), min(ys), max(xs), max(ys))

    def lineto(self, x, y):
        self.drawing.append(("line", *self.at, x, y, self.state["pen"]))
        self.at = (x, y)

    def pixel(self, x, y, value):
        self.drawing.append(("pixel", x, y, colour(value)))

    def text(self, x, y, text):
        self.drawing.append(("text", x, y, text, self.textcolour, self.align, *self.state["font"]))

    def bitmap(self, x, y, width, height, dib, bits, rop):
        depth = struct.unpack_from("<H", dib, 14)[0]
        self.drawing.append(("bitmap", x, y, width, height, depth, rop,
                             hashlib.sha1(dib + bits).hexdigest()))


def fields(data, form, at=0):
    return struct.unpack_from("<" + form, data, at)


def dword(data, at=0):
    return fields(data, "I", at)[0]


# Enhanced metafiles: type and size in bytes of 4 each, then the fields.

def enhancedcreate(player, kind, data):
    handle, style = fields(data, "II")
    player.made(handle, kind, style, colour(dword(data, 16 if kind == "pen" else 8)))


def enhancedfont(player, data):
    handle, height = fields(data, "Ii")
    units = [data[at:at + 2] for at in range(32, 32 + 64, 2)] + [b"\0\0"]
    name = b"".join(units[:units.index(b"\0\0")]).decode("utf-16-le")  # behind it lies anything
    player.objects[handle] = ("font", (name, height))


def enhancedselect(player, data):
    handle = dword(data)
    stock = handle & 0x80000000
    (player.selectstock if stock else player.select)(handle & 0x7FFFFFFF)


def enhancedtext(player, data, width, encoding):
    x, y, count, offset = fields(data, "iiII", 28)
    raw = data[offset - 8:offset - 8 + count * width]
    need(len(raw) == count * width, "a text runs past its record")
    player.text(x, y, raw.decode(encoding))


def enhancedbitmap(player, data):
    x, y = fields(data, "ii", 16)
    info, infosize, bits, bitssize, _, rop, width, height = fields(data, "6I2i", 40)
    player.bitmap(x, y, width, height, data[info - 8:info - 8 + infosize],
                  data[bits - 8:bits - 8 + bitssize], rop)


def enhancedpolygon(player, data, form):
    player.polygon(fields(data, f"{2 * dword(data, 16)}{form}", 20))


ENHANCED = {
    3: lambda p, d: enhancedpolygon(p, d, "i"),
    9: lambda p, d: p.window.update(extent=fields(d, "ii")),
    10: lambda p, d: p.window.update(origin=fields(d, "ii")),
    15: lambda p, d: p.pixel(*fields(d, "iiI")),
    22: lambda p, d: setattr(p, "align", dword(d)),
    24: lambda p, d: setattr(p, "textcolour", colour(dword(d))),
    27: lambda p, d: setattr(p, "at", fields(d, "ii")),
    37: enhancedselect,
    38: lambda p, d: enhancedcreate(p, "pen", d),
    39: lambda p, d: enhancedcreate(p, "brush", d),
    40: lambda p, d: p.objects.pop(dword(d)),
    43: lambda p, d: p.box(*(n + more for n, more in zip(fields(d, "4i"), (0, 0, 1, 1)))),
    54: lambda p, d: p.lineto(*fields(d, "ii")),
    81: enhancedbitmap,
    82: enhancedfont,
    86: lambda p, d: enhancedpolygon(p, d, "h"),
    83: lambda p, d: enhancedtext(p, d, 1, "cp1252"),
    84: lambda p, d: enhancedtext(p, d, 2, "utf-16-le"),
}


def readenhanced(data):
    player = Player()
    size, records = struct.unpack_from("<II", data, 48)
    need(size == len(data), "the header tells another size")
    length, offset = struct.unpack_from("<II", data, 60)
    player.header = {"frame": struct.unpack_from("<4i", data, 24),
                     "device": struct.unpack_from("<2i", data, 72),
                     "millimetres": struct.unpack_from("<2i", data, 80),
                     "description": data[offset:offset + 2 * length].decode("utf-16-le")}
    at = count = kind = 0
    while at < size:
        kind, step = struct.unpack_from("<II", data, at)
        need(step >= 8 and step % 4 == 0 and at + step <= size, "a record of a wrong size")
        if kind in ENHANCED:
            ENHANCED[kind](player, data[at + 8:at + step])
        at += step
        count += 1
    need(kind == 14, "no end")
    need(count == records, "the header tells another number of records")
    return player


# Plain metafiles: size in words of 4 bytes, function of 2; the fields mostly
# stand in reverse.

def reverse(data, count):
    return fields(data, f"{count}h")[::-1]


def plainmade(player, kind, style, value):
    handle = 0
    while handle in player.objects:
        handle += 1
    player.made(handle, kind, style, value)


def plaincreate(player, kind, data):
    style = fields(data, "H")[0]
    plainmade(player, kind, style, colour(dword(data, 6 if kind == "pen" else 2)))


def plainfont(player, data):
    name = data[18:].split(b"\0")[0].decode("cp1252")
    plainmade(player, "font", 0, (name, fields(data, "h")[0]))


def plaintext(player, data):
    count = fields(data, "h")[0]
    y, x = fields(data, "hh", 2 + (count + 1) // 2 * 2)
    player.text(x, y, data[2:2 + count].decode("cp1252"))


def plainexttext(player, data):
    y, x, count, options = fields(data, "hhhH")
    at = 16 if options & 6 else 8
    player.text(x, y, data[at:at + count].decode("cp1252"))


def plainbitmap(player, data):
    rop, _, _, _, _, _, height, width, y, x = fields(data, "I9h")
    dib = data[22:]
    size, _, _, _, depth = fields(dib, "IiiHH")
    used = dword(dib, 32)
    colours = (used or 1 << depth) if depth <= 8 else used
    end = size + 4 * colours
    player.bitmap(x, y, width, height, dib[:end], dib[end:], rop)


PLAIN = {
    0x01F0: lambda p, d: p.objects.pop(fields(d, "H")[0]),
    0x012D: lambda p, d: p.select(fields(d, "H")[0]),
    0x012E: lambda p, d: setattr(p, "align", fields(d, "H")[0]),
    0x0209: lambda p, d: setattr(p, "textcolour", colour(dword(d))),
    0x020B: lambda p, d: p.window.update(origin=reverse(d, 2)),
    0x020C: lambda p, d: p.window.update(extent=reverse(d, 2)),
    0x0213: lambda p, d: p.lineto(*reverse(d, 2)),
    0x0214: lambda p, d: setattr(p, "at", reverse(d, 2)),
    0x0324: lambda p, d: p.polygon(fields(d, f"{2 * fields(d, 'H')[0]}h", 2)),
    0x02FA: lambda p, d: plaincreate(p, "pen", d),
    0x02FB: plainfont,
    0x02FC: lambda p, d: plaincreate(p, "brush", d),
    0x041B: lambda p, d: p.box(*reverse(d, 4)),
    0x041F: lambda p, d: p.pixel(*reverse(d[4:], 2), dword(d)),
    0x0521: plaintext,
    0x0A32: plainexttext,
    0x0F43: plainbitmap,
}


def readplain(data):
    player = Player()
    kind, header, version, words, objects, largest, _ = struct.unpack_from("<HHHIHIH", data)
    need((kind, header, version) == (1, 9, 0x300), "no plain metafile")
    need(words * 2 == len(data), "the header tells another size")
    at, found, function = header * 2, 0, None
    while function != 0:
        need(at + 6 <= len(data), "no end")
        size, function = struct.unpack_from("<IH", data, at)
        need(size >= 3 and at + size * 2 <= len(data), "a record of a wrong size")
        if function in PLAIN:
            PLAIN[function](player, data[at + 6:at + size * 2])
        need(len(player.objects) <= objects, "more objects than the header tells")
        found = max(found, size)
        at += size * 2
    need(at == len(data), "something behind the end")
    need(found == largest, "the header tells another largest record")
    return player


def readplaceable(data):
    fields = struct.unpack_from("<IH5hIH", data)
    player = readplain(data[22:])
    player.header = dict(zip(("key", "handle", "left", "top", "right", "bottom", "inch",
                              "reserved", "checksum"), fields))
    return player


def read(data):
    first = struct.unpack_from("<I", data)[0]
    if first == PLACEABLEKEY:
        return readplaceable(data)
    if first == 1 and data[40:44] == b" EMF":
        return readenhanced(data)
    return readplain(data)


if __name__ == "__main__":
    with open(sys.argv[1], "rb") as named:
        played = read(named.read())
    print(played.header, played.window)
    for shape in played.drawing:
        print(*shape)
