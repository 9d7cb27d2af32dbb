"""The benchmark's edit with ezdxf: ezdxf_edit.py IN OUT HEIGHT sets the height of every attribute NAME."""

import sys

import ezdxf


def main():
    source, target, height = sys.argv[1], sys.argv[2], float(sys.argv[3])
    drawing = ezdxf.readfile(source)
    for reference in drawing.modelspace().query("INSERT"):
        for attribute in reference.attribs:
            if attribute.dxf.tag == "NAME":
                attribute.dxf.height = height
    drawing.saveas(target)


if __name__ == "__main__":
    main()
