"""Makes a large drawing for the benchmark: make_drawing.py OUT MEGABYTES

Block references with the attributes NAME, SENBAN1 and SENBAN2, each with two wires, on a grid; AC1015, ANSI_1252. The
same bytes at every run. Attributes are left-aligned, so that the edit changes one line of each.
"""

import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tools"))
from dxf_writer import Drawing, circle, definition, line  # noqa: E402

FIRST_HANDLE = 0x1000
HANDLES_EACH = 7
COLUMNS = 400
CHUNK = 2000


def frame_of_drawing(handle_seed):
    """The drawing without its entities: what stands before them, what behind, and the handle of their owner."""
    drawing = Drawing("AC1015", "ANSI_1252", 1.0, (40000.0, 40000.0))
    for name, colour in (("SYMBOL", 3), ("WIRE", 2), ("WIRENO", 4)):
        drawing.layer(name, colour)
    tags = (("NAME", 0, 6), ("SENBAN1", -9, 1), ("SENBAN2", 4, 1))
    drawing.block("RY_A", [circle("0", 0, 0, 2.5), line("0", -6, 0, -2.5, 0), line("0", 2.5, 0, 6, 0),
                           *(definition("SYMBOL", tag, tag, "", x, y) for tag, x, y in tags)])
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "frame.dxf"
        drawing.save(path)
        text = path.read_bytes().decode("ascii")
    owner = text.split("BLOCK_RECORD\r\n  5\r\n", 2)[1].split("\r\n", 1)[0]
    head, tail = text.split("  2\r\nENTITIES\r\n", 1)
    before, seed, behind = head.partition("$HANDSEED\r\n  5\r\n")
    head = before + seed + f"{handle_seed:X}" + behind[behind.index("\r\n"):]
    return head + "  2\r\nENTITIES\r\n", tail, owner


def attribute(tag, handle_offset, dx, dy):
    return f"""  0
ATTRIB
  5
%({handle_offset})s
330
%(0)s
100
AcDbEntity
  8
SYMBOL
100
AcDbText
 10
%(x{dx})s
 20
%(y{dy})s
 30
0.0
 40
2.5
  1
%({tag})s
100
AcDbAttribute
  2
{tag}
 70
0
"""


def template(owner):
    wire = """  0
LINE
  5
%({0})s
330
{1}
100
AcDbEntity
  8
WIRE
100
AcDbLine
 10
%({2})s
 20
%(y)s
 30
0.0
 11
%({3})s
 21
%(y)s
 31
0.0
"""
    reference = f"""  0
INSERT
  5
%(0)s
330
{owner}
100
AcDbEntity
  8
SYMBOL
100
AcDbBlockReference
 66
1
  2
RY_A
 10
%(x)s
 20
%(y)s
 30
0.0
"""
    end = """  0
SEQEND
  5
%(4)s
330
%(0)s
100
AcDbEntity
  8
SYMBOL
"""
    parts = [reference, attribute("NAME", 1, 0, 6), attribute("SENBAN1", 2, -9, 1), attribute("SENBAN2", 3, 4, 1), end,
             wire.format(5, owner, "x-50", "x-6"), wire.format(6, owner, "x6", "x50")]
    return "".join(parts).replace("\n", "\r\n")


def values(index):
    row, column = divmod(index, COLUMNS)
    x, y = column * 100.0 + 0.25, row * 30.0 + 0.125
    handle = FIRST_HANDLE + index * HANDLES_EACH
    named = {str(i): f"{handle + i:X}" for i in range(HANDLES_EACH)}
    named.update({f"x{dx}": repr(x + dx) for dx in (0, -9, 4, -50, -6, 6, 50)})
    named.update({f"y{dy}": repr(y + dy) for dy in (6, 1)})
    named.update(x=repr(x), y=repr(y), NAME=f"CR{index + 1}", SENBAN1=str(10 * index), SENBAN2=f"{10 * index + 1}")
    return named


def main():
    target, size = Path(sys.argv[1]), float(sys.argv[2]) * 1e6
    typical = len(template("1F") % values(int(size / 1000)))
    references = int(size / typical)
    head, tail, owner = frame_of_drawing(FIRST_HANDLE + references * HANDLES_EACH)
    entity = template(owner)
    with target.open("wb") as out:
        out.write(head.encode())
        for first in range(0, references, CHUNK):
            chunk = range(first, min(first + CHUNK, references))
            out.write("".join(entity % values(index) for index in chunk).encode())
        out.write(tail.encode())


if __name__ == "__main__":
    main()
