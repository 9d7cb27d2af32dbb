"""A column of all texts with ezdxf: ezdxf_column.py IN OUT PITCH"""

import sys

import ezdxf


def anchor(text):
    return text.dxf.insert if not text.dxf.halign and not text.dxf.valign else text.dxf.align_point


def main():
    source, target, pitch = sys.argv[1], sys.argv[2], float(sys.argv[3])
    drawing = ezdxf.readfile(source)
    texts = sorted(drawing.modelspace().query("TEXT"), key=lambda text: (-anchor(text).y, anchor(text).x))
    for row, text in enumerate(texts):
        x, y, z = anchor(text)
        text.translate(-x, -pitch * row - y, -z)
    drawing.saveas(target)


if __name__ == "__main__":
    main()
