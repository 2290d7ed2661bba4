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


class FormatError(Exception):
    pass


def colour(value):
    return f"#{value & 255:02x}{value >> 8 & 255:02x}{value >> 16 & 255:02x}"


def need(condition, what):
    if not condition:
        raise FormatError(what)


class Player:
    """The state that records change, and the drawing."""

    def __init__(self):
        self.objects = {}
        self.state = {"pen": "#000000", "brush": "#ffffff", "font": ("", 0)}
        self.textcolour, self.align = "#000000", 0
        self.at = (0, 0)
        self.drawing = []
        self.window = {}
        self.header = {}

    def made(self, handle, kind, style, value):
        self.objects[handle] = (kind, None if style == NULLSTYLE.get(kind) else value)

    def select(self, handle):
        need(handle in self.objects, f"object {handle} was never made")
        kind, value = self.objects[handle]
        self.state[kind] = value

    def selectstock(self, number):
        if number in STOCK:
            kind, value = STOCK[number]
            self.state[kind] = value
        else:
            self.state["font"] = ("", 0)

    def box(self, left, top, right, bottom):
        self.drawing.append(("box", left, top, right, bottom, self.state["pen"],
                             self.state["brush"]))

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


def face(raw):
    return raw.split(b"\0")[0].decode("cp1252")


# Enhanced metafiles: type and size in bytes of 4 each, then the fields.

def enhancedcreate(player, kind, data):
    handle, style = struct.unpack_from("<II", data)
    value = struct.unpack_from("<I", data, 16 if kind == "pen" else 8)[0]
    player.made(handle, kind, style, colour(value))


def enhancedfont(player, data):
    handle, height = struct.unpack_from("<Ii", data)
    units = [data[at:at + 2] for at in range(32, 32 + 64, 2)] + [b"\0\0"]
    name = b"".join(units[:units.index(b"\0\0")]).decode("utf-16-le")  # behind it lies anything
    player.objects[handle] = ("font", (name, height))


def enhancedselect(player, data):
    handle = struct.unpack_from("<I", data)[0]
    if handle & 0x80000000:
        player.selectstock(handle & 0x7FFFFFFF)
    else:
        player.select(handle)


def enhancedtext(player, data, wide):
    x, y, count, offset = struct.unpack_from("<iiII", data, 28)
    raw = data[offset - 8:offset - 8 + count * (2 if wide else 1)]
    need(len(raw) == count * (2 if wide else 1), "a text runs past its record")
    player.text(x, y, raw.decode("utf-16-le" if wide else "cp1252"))


def enhancedbox(player, data):
    left, top, right, bottom = struct.unpack_from("<4i", data)
    player.box(left, top, right + 1, bottom + 1)  # the record's box is inclusive


def enhancedbitmap(player, data):
    x, y = struct.unpack_from("<ii", data, 16)
    info, infosize, bits, bitssize, _, rop, width, height = struct.unpack_from("<6I2i", data, 40)
    player.bitmap(x, y, width, height, data[info - 8:info - 8 + infosize],
                  data[bits - 8:bits - 8 + bitssize], rop)


def setattribute(name, value):
    def setit(player, data):
        setattr(player, name, value(struct.unpack_from("<I", data)[0]))
    return setit


def setwindow(name):
    def setit(player, data):
        player.window[name] = struct.unpack_from("<ii", data)
    return setit


def moveto(player, data):
    player.at = struct.unpack_from("<ii", data)


ENHANCED = {
    9: setwindow("extent"),
    10: setwindow("origin"),
    15: lambda p, d: p.pixel(*struct.unpack_from("<iiI", d)),
    22: setattribute("align", int),
    24: setattribute("textcolour", colour),
    27: moveto,
    37: enhancedselect,
    38: lambda p, d: enhancedcreate(p, "pen", d),
    39: lambda p, d: enhancedcreate(p, "brush", d),
    40: lambda p, d: p.objects.pop(struct.unpack_from("<I", d)[0]),
    43: enhancedbox,
    54: lambda p, d: p.lineto(*struct.unpack_from("<ii", d)),
    81: enhancedbitmap,
    82: enhancedfont,
    83: lambda p, d: enhancedtext(p, d, False),
    84: lambda p, d: enhancedtext(p, d, True),
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

def plainmade(player, kind, style, value):
    handle = 0
    while handle in player.objects:
        handle += 1
    player.made(handle, kind, style, value)


def plainpen(player, data):
    plainmade(player, "pen", struct.unpack_from("<H", data)[0],
              colour(struct.unpack_from("<I", data, 6)[0]))


def plainbrush(player, data):
    plainmade(player, "brush", struct.unpack_from("<H", data)[0],
              colour(struct.unpack_from("<I", data, 2)[0]))


def plainfont(player, data):
    plainmade(player, "font", 0, (face(data[18:]), struct.unpack_from("<h", data)[0]))


def plaintext(player, data):
    count = struct.unpack_from("<h", data)[0]
    y, x = struct.unpack_from("<hh", data, 2 + (count + 1) // 2 * 2)
    player.text(x, y, data[2:2 + count].decode("cp1252"))


def plainexttext(player, data):
    y, x, count, options = struct.unpack_from("<hhhH", data)
    at = 16 if options & 6 else 8
    player.text(x, y, data[at:at + count].decode("cp1252"))


def plainbox(player, data):
    bottom, right, top, left = struct.unpack_from("<4h", data)
    player.box(left, top, right, bottom)


def plainpixel(player, data):
    value, y, x = struct.unpack_from("<Ihh", data)
    player.pixel(x, y, value)


def plainbitmap(player, data):
    rop, _, _, _, _, _, height, width, y, x = struct.unpack_from("<I9h", data)
    dib = data[22:]
    size, _, _, _, depth = struct.unpack_from("<IiiHH", dib)
    used = struct.unpack_from("<I", dib, 32)[0]
    colours = (used or 1 << depth) if depth <= 8 else used
    end = size + 4 * colours
    player.bitmap(x, y, width, height, dib[:end], dib[end:], rop)


def plainmove(player, data):
    y, x = struct.unpack_from("<hh", data)
    player.at = (x, y)


def plainline(player, data):
    y, x = struct.unpack_from("<hh", data)
    player.lineto(x, y)


def plainwindow(name):
    def setit(player, data):
        player.window[name] = struct.unpack_from("<hh", data)[::-1]
    return setit


PLAIN = {
    0x01F0: lambda p, d: p.objects.pop(struct.unpack_from("<H", d)[0]),
    0x012D: lambda p, d: p.select(struct.unpack_from("<H", d)[0]),
    0x012E: lambda p, d: setattr(p, "align", struct.unpack_from("<H", d)[0]),
    0x0209: lambda p, d: setattr(p, "textcolour", colour(struct.unpack_from("<I", d)[0])),
    0x020B: plainwindow("origin"),
    0x020C: plainwindow("extent"),
    0x0213: plainline,
    0x0214: plainmove,
    0x02FA: plainpen,
    0x02FB: plainfont,
    0x02FC: plainbrush,
    0x041B: plainbox,
    0x041F: plainpixel,
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


def main():
    with open(sys.argv[1], "rb") as file:
        player = read(file.read())
    print(player.header, player.window)
    for shape in player.drawing:
        print(*shape)


if __name__ == "__main__":
    main()
