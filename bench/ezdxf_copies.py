"""Counted copies with ezdxf: ezdxf_copies.py IN OUT SIDE ROW-HEIGHT COLUMN-WIDTH"""

import sys

import ezdxf


def main():
    source, target, side = sys.argv[1], sys.argv[2], int(sys.argv[3])
    height, width = float(sys.argv[4]), float(sys.argv[5])
    drawing = ezdxf.readfile(source)
    space = drawing.modelspace()
    texts = list(space.query("TEXT"))
    for position in range(1, side * side):
        column, row = divmod(position, side)
        for text in texts:
            copy = text.copy()
            value = text.dxf.text
            copy.dxf.text = f"X{int(value[1:]) + position:0{len(value) - 1}d}"
            copy.translate(width * column, -height * row, 0)
            space.add_entity(copy)
    drawing.saveas(target)


if __name__ == "__main__":
    main()
