"""Height, layer and the alignment middle center for all texts with ezdxf: ezdxf_properties.py IN OUT LAYER HEIGHT"""

import sys

import ezdxf
from ezdxf.enums import TextEntityAlignment


def main():
    source, target, layer, height = sys.argv[1], sys.argv[2], sys.argv[3], float(sys.argv[4])
    drawing = ezdxf.readfile(source)
    for text in drawing.modelspace().query("TEXT"):
        text.dxf.layer = layer
        text.dxf.height = height
        text.set_placement(text.dxf.insert, align=TextEntityAlignment.MIDDLE_CENTER)
    drawing.saveas(target)


if __name__ == "__main__":
    main()
