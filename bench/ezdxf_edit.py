"""The benchmark's edit with ezdxf: ezdxf_edit.py IN OUT HEIGHT sets the height of every attribute NAME;
ezdxf_edit.py --replace HEIGHT FILE... in each of the drawings."""

import sys

import ezdxf


def edit(source, target, height):
    drawing = ezdxf.readfile(source)
    for reference in drawing.modelspace().query("INSERT"):
        for attribute in reference.attribs:
            if attribute.dxf.tag == "NAME":
                attribute.dxf.height = height
    drawing.saveas(target)


def main():
    if sys.argv[1] == "--replace":
        for drawing in sys.argv[3:]:
            edit(drawing, drawing, float(sys.argv[2]))
    else:
        edit(sys.argv[1], sys.argv[2], float(sys.argv[3]))


if __name__ == "__main__":
    main()
