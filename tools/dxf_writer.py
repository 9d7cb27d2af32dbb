"""Writes drawing files in the text form of DXF: R12, AC1015 and later. Standard library only, and the same bytes
at every run. Serves the example project; it knows the entities that electrical sheets are made of, no more."""

import math
import unicodedata

MARKERS = {"R12": False, "AC1015": True, "AC1018": True, "AC1027": True, "AC1032": True}
VERSION = {"R12": "AC1009"}
PYTHON_CODEC = {"ANSI_932": "cp932", "ANSI_1252": "cp1252"}
# From R2010 on attributes have a version, and say whether their place in the block is locked.
LOCKS = ("AC1027", "AC1032")
ATTRIBUTE_MARKERS = ("AcDbAttribute", "AcDbAttributeDefinition")
# Advance of a character in heights, as the program measures texts.
HALF_WIDTH, FULL_WIDTH = 0.625, 1.25
LEFT, CENTER, RIGHT, MIDDLE = 0, 1, 2, 4
BASE, BOTTOM, MID, TOP = 0, 1, 2, 3


def number(value):
    """The shortest text that reads back the same."""
    text = repr(float(value))
    return "0.0" if text == "-0.0" else text


def text_advance(text):
    return sum(FULL_WIDTH if unicodedata.east_asian_width(c) in "WF" else HALF_WIDTH for c in text)


class Entity:
    """Parts are (subclass marker, [(code, value), ...]); children are the attributes of a block reference."""

    def __init__(self, kind, layer, parts, children=()):
        self.kind, self.layer, self.parts, self.children = kind, layer, parts, list(children)


def point(code, x, y):
    return [(code, number(x)), (code + 10, number(y)), (code + 20, "0.0")]


def line(layer, x1, y1, x2, y2):
    return Entity("LINE", layer, [("AcDbLine", point(10, x1, y1) + point(11, x2, y2))])


def circle(layer, x, y, radius):
    return Entity("CIRCLE", layer, [("AcDbCircle", point(10, x, y) + [(40, number(radius))])])


def arc(layer, x, y, radius, start, end):
    return Entity("ARC", layer, [("AcDbCircle", point(10, x, y) + [(40, number(radius))]),
                                 ("AcDbArc", [(50, number(start)), (51, number(end))])])


def polyline(layer, points):
    """One line after another, so that every release reads it."""
    return [line(layer, *a, *b) for a, b in zip(points, points[1:])]


def rectangle(layer, x, y, width, height):
    corners = [(x, y), (x + width, y), (x + width, y + height), (x, y + height), (x, y)]
    return polyline(layer, corners)


def _text_groups(value, x, y, height, rotation, mode, width, style):
    """The groups of the first text part, and the place of the left end of the base line."""
    horizontal, vertical = mode
    along = {LEFT: 0.0, CENTER: -0.5, RIGHT: -1.0, MIDDLE: -0.5}[horizontal] * text_advance(value) * height * width
    across = {BASE: 0.0, BOTTOM: 0.0, MID: -0.5, TOP: -1.0}[vertical] * height
    if horizontal == MIDDLE:
        across = -0.5 * height
    c, s = math.cos(math.radians(rotation)), math.sin(math.radians(rotation))
    place = (x, y) if mode == (LEFT, BASE) else (x + along * c - across * s, y + along * s + across * c)
    groups = point(10, round(place[0], 9), round(place[1], 9)) + [(40, number(height)), (1, value)]
    groups += [(50, number(rotation))] if rotation else []
    groups += [(41, number(width))] if width != 1 else []
    groups += [(7, style)] if style != "Standard" else []
    groups += [(72, str(horizontal))] if horizontal else []
    return groups + ([] if mode == (LEFT, BASE) else point(11, x, y))


def text(layer, x, y, value, height=2.5, rotation=0, mode=(LEFT, BASE), width=1.0, style="Standard"):
    second = [(73, str(mode[1]))] if mode[1] else []
    return Entity("TEXT", layer, [("AcDbText", _text_groups(value, x, y, height, rotation, mode, width, style)),
                                  ("AcDbText", second)])


def attribute(layer, tag, value, x, y, height=2.5, rotation=0, mode=(LEFT, BASE), width=1.0, style="Standard"):
    second = [(2, tag), (70, "0")] + ([(74, str(mode[1]))] if mode[1] else [])
    return Entity("ATTRIB", layer, [("AcDbText", _text_groups(value, x, y, height, rotation, mode, width, style)),
                                    ("AcDbAttribute", second)])


def definition(layer, tag, prompt, default, x, y, height=2.5, mode=(LEFT, BASE)):
    second = [(3, prompt), (2, tag), (70, "0")] + ([(74, str(mode[1]))] if mode[1] else [])
    return Entity("ATTDEF", layer, [("AcDbText", _text_groups(default, x, y, height, 0, mode, 1.0, "Standard")),
                                    ("AcDbAttributeDefinition", second)])


def insert(layer, block, x, y, attributes=(), scale=1.0, rotation=0):
    groups = [(66, "1")] if attributes else []
    groups += [(2, block)] + point(10, x, y)
    groups += [(41, number(scale)), (42, number(scale)), (43, number(scale))] if scale != 1 else []
    groups += [(50, number(rotation))] if rotation else []
    return Entity("INSERT", layer, [("AcDbBlockReference", groups)], attributes)


class Drawing:
    """Collects layers, styles, blocks and the entities of model space; `save` writes the file."""

    def __init__(self, release, code_page, scale, size):
        self.release, self.code_page, self.scale, self.size = release, code_page, scale, size
        self.layers = [("0", 7, False)]
        self.styles = [("Standard", 0.0, 1.0, 0, "txt.shx", "bigfont.shx")]
        self.blocks, self.model = {}, []
        self._lines, self._handle = [], 0x20

    def layer(self, name, colour, locked=False):
        self.layers.append((name, colour, locked))

    def style(self, name, height=0.0, width=1.0, flags=0, font="txt.shx", big_font="bigfont.shx"):
        self.styles.append((name, height, width, flags, font, big_font))

    def block(self, name, entities):
        self.blocks[name] = list(entities)

    def add(self, *entities):
        self.model.extend(entities)

    def save(self, path):
        self._lines, self._handle = [], 0x20
        modern = MARKERS[self.release]
        owners = self._reserve_owners()
        body = [self._tables, self._blocks, self._entities] + ([self._objects] if modern else [])
        for write in body:
            write(owners)
        rest, self._lines = self._lines, []
        self._header()
        content = "\r\n".join(self._lines + rest + ["  0", "EOF", ""])
        path.write_bytes(self._encode(content))

    # Below: groups, handles, sections.

    def _encode(self, content):
        if self.release in LOCKS:
            return content.encode("utf-8")
        codec = PYTHON_CODEC[self.code_page]

        def encoded(character):
            try:
                return character.encode(codec)
            except UnicodeEncodeError:
                return b"\\U+%04X" % ord(character)

        return content.encode("ascii") if content.isascii() else b"".join(map(encoded, content))

    def _put(self, *groups):
        for code, value in groups:
            self._lines += [f"{code:>3}", str(value)]

    def _next(self):
        self._handle += 1
        return f"{self._handle:X}"

    def _start(self, kind, owner, *markers, handle=None, code=5):
        """Group 0, the handle, and where the release has them owner and subclass markers."""
        handle = handle or self._next()
        self._put((0, kind), (code, handle))
        if MARKERS[self.release]:
            if owner is not None:
                self._put((330, owner))
            self._put(*((100, marker) for marker in markers))
        return handle

    def _reserve_owners(self):
        names = ["*Model_Space", "*Paper_Space", *self.blocks]
        return {name: self._next() for name in names}

    def _section(self, name):
        self._put((0, "SECTION"), (2, name))

    def _header(self):
        width, height = self.size
        self._section("HEADER")
        variables = [("$ACADVER", [(1, VERSION.get(self.release, self.release))]),
                     ("$DWGCODEPAGE", [(3, self.code_page)]),
                     ("$INSBASE", point(10, 0, 0)),
                     ("$EXTMIN", point(10, 0, 0)), ("$EXTMAX", point(10, width, height)),
                     ("$LIMMIN", point(10, 0, 0)[:2]), ("$LIMMAX", point(10, width, height)[:2]),
                     ("$LTSCALE", [(40, number(self.scale))]), ("$TEXTSIZE", [(40, number(2.5 * self.scale))]),
                     ("$TEXTSTYLE", [(7, "Standard")]), ("$CLAYER", [(8, "0")]), ("$DIMSCALE", [(40, number(self.scale))]),
                     ("$LUNITS", [(70, "2")]), ("$LUPREC", [(70, "4")]), ("$AUNITS", [(70, "0")]), ("$AUPREC", [(70, "0")])]
        if self.release == "R12":
            variables.insert(1, ("$HANDLING", [(70, "1")]))
        variables.append(("$HANDSEED", [(5, f"{self._handle + 1:X}")]))
        for name, groups in variables:
            self._put((9, name), *groups)
        self._put((0, "ENDSEC"))

    def _table(self, name, records):
        """`records` are (kind, marker, groups); a DIMSTYLE has its handle in group 105."""
        self._put((0, "TABLE"), (2, name))
        table = self._next()
        if MARKERS[self.release]:
            self._put((5, table), (330, "0"), (100, "AcDbSymbolTable"))
        self._put((70, str(len(records))))
        if MARKERS[self.release] and name == "DIMSTYLE":
            self._put((100, "AcDbDimStyleTable"))
        for kind, marker, groups, *handle in records:
            if MARKERS[self.release]:
                self._start(kind, table, "AcDbSymbolTableRecord", marker, handle=handle[0] if handle else None,
                            code=105 if kind == "DIMSTYLE" else 5)
            else:
                self._put((0, kind))
            self._put(*groups)
        self._put((0, "ENDTAB"))

    def _tables(self, owners):
        width, height = self.size
        modern = MARKERS[self.release]
        self._section("TABLES")
        self._table("VPORT", [("VPORT", "AcDbViewportTableRecord", [
            (2, "*Active"), (70, "0"), *point(10, 0, 0)[:2], *point(11, 1, 1)[:2], *point(12, width / 2, height / 2)[:2],
            *point(13, 0, 0)[:2], *point(14, 10, 10)[:2], *point(15, 10, 10)[:2], *point(16, 0, 0)[:2], (36, "1.0"),
            *point(17, 0, 0), (40, number(height * 1.05)), (41, "1.6"), (42, "50.0"), (43, "0.0"), (44, "0.0"),
            (50, "0.0"), (51, "0.0"), (71, "0"), (72, "1000"), (73, "1"), (74, "3"), (75, "0"), (76, "0"), (77, "0"), (78, "0")])])
        names = ["ByBlock", "ByLayer", "Continuous"] if modern else ["CONTINUOUS"]
        self._table("LTYPE", [("LTYPE", "AcDbLinetypeTableRecord", [
            (2, name), (70, "0"), (3, "Solid line" if "ontinuous" in name else ""), (72, "65"), (73, "0"), (40, "0.0")])
            for name in names])
        self._table("LAYER", [("LAYER", "AcDbLayerTableRecord", [
            (2, name), (70, "4" if locked else "0"), (62, str(colour)), (6, names[-1])])
            for name, colour, locked in self.layers])
        self._table("STYLE", [("STYLE", "AcDbTextStyleTableRecord", [
            (2, name), (70, str(flags)), (40, number(fixed)), (41, number(factor)), (50, "0.0"), (71, "0"),
            (42, "2.5"), (3, font), (4, big)]) for name, fixed, factor, flags, font, big in self.styles])
        self._table("VIEW", [])
        self._table("UCS", [])
        self._table("APPID", [("APPID", "AcDbRegAppTableRecord", [(2, "ACAD"), (70, "0")])])
        self._table("DIMSTYLE", [("DIMSTYLE", "AcDbDimStyleTableRecord", [
            (2, "Standard"), (70, "0"), (40, number(self.scale)), (140, "2.5")])])
        if modern:
            self._table("BLOCK_RECORD", [("BLOCK_RECORD", "AcDbBlockTableRecord", [(2, name)], handle)
                                         for name, handle in owners.items()])
        self._put((0, "ENDSEC"))

    def _blocks(self, owners):
        self._section("BLOCKS")
        for name, owner in owners.items():
            modern = MARKERS[self.release]
            if not modern and name.startswith("*"):
                continue
            entities = self.blocks.get(name, [])
            flags = 2 if any(entity.kind == "ATTDEF" for entity in entities) else 0
            self._start("BLOCK", owner, "AcDbEntity")
            self._put(*self._paper(name), (8, "0"), *([(100, "AcDbBlockBegin")] if modern else []),
                      (2, name), (70, str(flags)), *point(10, 0, 0), (3, name), (1, ""))
            for entity in entities:
                self._entity(entity, owner)
            self._start("ENDBLK", owner, "AcDbEntity")
            self._put(*self._paper(name), (8, "0"), *([(100, "AcDbBlockEnd")] if modern else []))
        self._put((0, "ENDSEC"))

    @staticmethod
    def _paper(name):
        return [(67, "1")] if name == "*Paper_Space" else []

    def _entities(self, owners):
        self._section("ENTITIES")
        for entity in self.model:
            self._entity(entity, owners["*Model_Space"])
        self._put((0, "ENDSEC"))

    def _entity(self, entity, owner):
        handle = self._start(entity.kind, owner, "AcDbEntity")
        self._put((8, entity.layer))
        for marker, groups in entity.parts:
            if MARKERS[self.release]:
                self._put((100, marker))
            locks = marker in ATTRIBUTE_MARKERS and self.release in LOCKS
            self._put(*[(280, "0"), *groups, (280, "1")] if locks else groups)
        for child in entity.children:
            self._entity(child, handle)
        if entity.children:
            self._start("SEQEND", handle, "AcDbEntity")
            self._put((8, entity.layer))

    def _objects(self, owners):
        self._section("OBJECTS")
        root, groups, layouts, model, paper = (self._next() for _ in range(5))
        self._dictionary(root, "0", {"ACAD_GROUP": groups, "ACAD_LAYOUT": layouts})
        self._dictionary(groups, root, {})
        self._dictionary(layouts, root, {"Model": model, "Layout1": paper})
        for handle, name, block, order in ((model, "Model", "*Model_Space", 0), (paper, "Layout1", "*Paper_Space", 1)):
            self._layout(handle, layouts, name, owners[block], order)
        self._put((0, "ENDSEC"))

    def _dictionary(self, handle, owner, entries):
        self._start("DICTIONARY", owner, "AcDbDictionary", handle=handle)
        self._put((281, "1"))
        for name, target in entries.items():
            self._put((3, name), (350, target))

    def _layout(self, handle, owner, name, block, order):
        self._start("LAYOUT", owner, "AcDbPlotSettings", handle=handle)
        self._put((1, ""), (2, "none_device"), (4, "A3"), (6, ""), *((code, "0.0") for code in range(40, 44)),
                  (44, "420.0"), (45, "297.0"), *((code, "0.0") for code in (46, 47, 48, 49, 140, 141)),
                  (142, "1.0"), (143, "1.0"), (70, "1024" if order == 0 else "688"), (72, "1"), (73, "0"), (74, "5"), (7, ""),
                  (75, "16"), (147, "1.0"), (148, "0.0"), (149, "0.0"))
        self._put((100, "AcDbLayout"), (1, name), (70, "1"), (71, str(order)), *point(10, 0, 0)[:2],
                  *point(11, *self.size)[:2], *point(12, 0, 0), *point(14, 0, 0), *point(15, *self.size), (146, "0.0"),
                  *point(13, 0, 0), *point(16, 1, 0), *point(17, 0, 1), (76, "0"), (330, block))
