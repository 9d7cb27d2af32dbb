"""Looks at every dialog as it is drawn, in both languages: nothing is cut, no two captions touch, no dialog is forgotten.

Usage: test_pictures.py KOVRA FOLDER-OF-RES-FILES SOURCE-ROOT
"""

import re
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml
from itertools import combinations
from pathlib import Path

import res_file

KOVRA, RESOURCES, ROOT = (Path(argument).resolve() for argument in sys.argv[1:4])
sys.path.insert(0, str(ROOT / "tools"))
import make_pictures  # noqa: E402

SVG = "{http://www.w3.org/2000/svg}"
LINK = "{http://www.w3.org/1999/xlink}href"


def numbers(text):
    return [float(number) for number in re.findall(r"-?\d+\.?\d*", text)]


class Caption:
    """A line of text with the box of its ink, in pixels."""

    def __init__(self, group, outlines):
        a, _, _, d, e, f = numbers(group.get("transform"))
        spots = [(x + float(use.get("x", 0)), y)
                 for use in group.findall(f"{SVG}use") for x, y in outlines[use.get(LINK)[1:]]]
        self.text = group.get("aria-label")
        self.left, self.right = (e + a * edge(x for x, _ in spots) for edge in (min, max))
        self.top, self.bottom = sorted(f + d * edge(y for _, y in spots) for edge in (min, max))

    def touches(self, other):
        return (self.left < other.right and other.left < self.right
                and self.top < other.bottom and other.top < self.bottom)


def captions(tree):
    outlines = {path.get("id"): list(zip(*[iter(numbers(path.get("d")))] * 2))
                for path in tree.iterfind(f"{SVG}defs/{SVG}path")}
    return [Caption(group, outlines) for group in tree.iter(f"{SVG}g") if group.get("aria-label", "").strip()]


class PictureTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        make_pictures.make(KOVRA, Path(cls.folder.name))

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def each(self):
        for picture in make_pictures.PICTURES:
            for language in make_pictures.LANGUAGES:
                yield picture, language, xml.parse(Path(self.folder.name) / picture.file(language)).getroot()

    def test_every_template_is_shown(self):
        for language in make_pictures.LANGUAGES:
            templates = set(res_file.dialogs(RESOURCES / f"kovra_{language}.res"))
            shown = {template for picture in make_pictures.PICTURES for template in (picture.template, picture.frame)}
            self.assertEqual(shown - {0}, templates)

    def test_nothing_is_cut_or_touches(self):
        for picture, language, tree in self.each():
            with self.subTest(file=picture.file(language)):
                self.assertEqual(len(list(tree.iter(f"{SVG}clipPath"))), 0, "a text is cut")
                shown = captions(tree)
                width, height = float(tree.get("width")), float(tree.get("height"))
                for caption in shown:
                    self.assertTrue(0 < caption.left and caption.right < width
                                    and 0 < caption.top and caption.bottom < height, caption.text)
                for one, other in combinations(shown, 2):
                    self.assertFalse(one.touches(other), f"{one.text} {other.text}")

    def test_captions_are_those_of_the_template(self):
        """Spot checks that the pictures show the dialogs: title, buttons and a caption of each language."""
        for picture, language, tree in self.each():
            shown = {caption.text for caption in captions(tree)}
            dialog = res_file.dialogs(RESOURCES / f"kovra_{language}.res")[picture.frame or picture.template]
            self.assertIn(dialog.title, shown)
            for id in (1, 2):
                self.assertIn(dialog.control(id).text.replace("&", ""), shown)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
