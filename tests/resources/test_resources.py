"""Holds the resources of both languages together. Usage: test_resources.py FOLDER-OF-RES-FILES SOURCE-ROOT"""

import re
import sys
import unicodedata
import unittest
from itertools import combinations
from pathlib import Path

import res_file

FOLDER, ROOT = Path(sys.argv[1]), Path(sys.argv[2])
LANGUAGES = ("ja", "en")
STRINGS = {language: res_file.strings(FOLDER / f"kovra_{language}.res") for language in LANGUAGES}
DIALOGS = {language: res_file.dialogs(FOLDER / f"kovra_{language}.res") for language in LANGUAGES}
ICONS = {language: res_file.icon_sizes(FOLDER / f"kovra_{language}.res") for language in LANGUAGES}

# Characters that a text may have: the buffer that takes it less the one that ends it.
DEFAULT_LIMIT = 255
LIMITS = {2829: 511, 2734: 511, 2741: 511, 2732: 511}
LIMITS.update({id: 63 for id in (*range(2717, 2721), *range(2788, 2794))})
NARROW_LIMITS = {7353: 255, 7718: 511, 7723: 511}
# An argument is put in before the text meets its limit: room for a layer name, a set's name.
FORMATS = {2786: ["%d"], 2794: ["%d"], 2822: ["%s"], 2827: ["%s"], 7136: ["%1"], 7138: ["%1"], 7710: ["%s"], 7724: ["%d"],
           3913: ["%d"], 3920: ["%d"]}
# Texts that the caller puts behind a line break of its own, or that aren't on the command line.
PROMPTS = [2722, 2723, *range(2724, 2731), 2754, 2755, 2767, 2768, 2771, 2774, *range(2777, 2784), 2785,
           *range(2788, 2794), 2828, 7353, 7710, 7718, 7723, 7725, 8189]
OWN_LINE_BREAK = {2774, 8189, 2786}
COMMAND_LINE = [*PROMPTS, 2769, 2772, 2784, 2786, 2787, 2794, 2802, 2803, 2804, 2827, 2829, 2830, 3749, 3910, 3913, 3920]
USED_RANGES = ((1925, 2020), (2119, 2131), (2717, 2830), (4635, 4665))
LABELS = {"text dialogs": range(2809, 2822), "align": range(2119, 2132), "radix": range(2795, 2802)}

COUNT_UP = {
    "button": [1, 2, *range(1953, 1960)], "check": [1967], "radio": [1974, 1975], "combo list": [1978],
    "edit": [1931, 1933, 1935], "edit number": [1932, 1934], "static": range(1942, 1948),
}
TEXT_523 = {
    "button": [1, 2, 1986, 1988, 1990, 1992, 1994, 1995, 2000], "combo list": [1985, 1993, 1998],
    "combo edit": [1987, 1989, 1991, 1996],
}
RESIZE = {"button": [1, 2, 1953, 1954], "msctls_updown32": [1930], "edit": [1931, 1932]}
TEXT_529 = {
    "button": [1, 2, *range(1960, 1967), 1986, 1988, 1990, 1992, 1994, 1995, 1997, 1999], "check": [1967],
    "radio": [1974, 1975, 1976], "combo list": [1978, 1993], "combo edit": [1985, 1987, 1989, 1991, 1998],
    "edit": [*range(1931, 1936), 1939, 1941], "edit number": [1938, 1940], "static": range(1942, 1953),
}
TEXT_532 = {"edit": [1936], "radio": [1977, 2003]}
TEXT_534 = {"edit lines": [1937], "combo edit": [2002], "frame": [2004], "static": [2005, 2009]}
ALIGN = {
    "button": [1, 2, *range(4641, 4648), 4663, 4664], "check": range(4635, 4641), "radio": [4656, 4657, 4658, 4659, 4662],
    "combo list": [4648, 4649, 4653], "combo edit": [4650, 4651, 4652], "edit": [4654, 4655], "static": [4665],
}
PROPERTIES = {
    "button": [1, 2, *range(1953, 1960)], "check": range(1967, 1973), "combo edit": range(1978, 1983), "combo list": [1983],
}
EDIT_PROPERTY = {
    "button": [1, 2, *range(1953, 1959), 1960, 1961, 1962], "check": [*range(1967, 1972), 2014], "combo list": [1978, 1982],
    "combo edit": [4440], "edit": [1932, 1933, 1934], "frame": [4438, 4439],
}


def joined(*parts):
    whole = {}
    for part in parts:
        for kind, ids in part.items():
            whole.setdefault(kind, set()).update(ids)
    return whole


COPY_PROP = {
    "button": [1, 2, *range(1953, 1958)], "drawn button": [1960], "check": [1967, 1968, 1969, 1970, 1973],
    "radio": [1974, 1975], "combo edit": range(1978, 1982), "edit": [1931], "syslistview32": [1984],
}
OPTION_PAGE = {"button": [1953, 1954, 1955], "static": range(1926, 1930), "systabcontrol32": [1925]}
COPY_PROP_533 = joined(COPY_PROP, {"button": [1958], "check": [1971], "combo list": [1982]})
CONTROLS = {
    523: TEXT_523,
    524: RESIZE,
    526: COUNT_UP,
    529: TEXT_529,
    531: joined(COUNT_UP, {"edit": [1936], "radio": [1976, 1977]}),
    532: joined(TEXT_529, TEXT_532),
    534: joined(TEXT_529, TEXT_532, TEXT_534),
    1641: joined(TEXT_529, TEXT_532, TEXT_534, {"check": [4514]}),
    1739: ALIGN,
    530: COPY_PROP,
    533: COPY_PROP_533,
    535: joined({kind: ids for kind, ids in COPY_PROP_533.items() if kind != "radio"}, {"check": [2014], "combo list": [2013]}),
    525: PROPERTIES,
    1596: EDIT_PROPERTY,
    1529: OPTION_PAGE,
    1559: joined(OPTION_PAGE, {"static": [3978]}),
    3930: {"button": [1, 2, 3933, 3934], "static": [3932], "syslistview32": [3931]},
}
PAGES = (1529, 1559)
MODAL = (526, 531, 530, 533, 535, 1739, 525, 1596, 3930, *PAGES)
ICON_SIZES = {**{id: [32] for id in range(536, 540)}, 541: [16], 542: [16], 1770: [16, 32], 1772: [16, 32]}

# Shown in place of one another in the text dialogs: several lines against one line and its counting.
ONE_LINE = {1931, *range(1943, 1948), *range(1932, 1937), 1977, 1978, 2003}
MANY_LINES = {1937, 2002, 2009}
# Icon buttons whose caption serves as their tool tip or names them: it needn't fit, and has no access key.
TOOL_TIPS = {526: {1957, 1958, 1959}, 531: {1957, 1958, 1959}, 1739: {4663, 4664}}
TOOL_TIPS.update({template: {1960} for template in (530, 533, 535)})
TOOL_TIPS.update({template: {1964, 1965, 1966} for template in (529, 532, 534, 1641)})
TOOL_TIP_LIMIT = 160
# In dialog units: a line of text, and the close box with its margins in a dialog's title bar.
LINE_HEIGHT, CLOSE_BOX = 8, 24
FRAMES = ("frame", "systabcontrol32")


def formats(text):
    return re.findall(r"%[-0-9.]*[a-zA-Z0-9]", text.replace("%%", ""))


def units(text):
    """Width in dialog units: a quarter of a half-width character each."""
    return sum(8 if unicodedata.east_asian_width(c) in "WFA" else 4 for c in text.replace("&", ""))


def access_key(text):
    match = re.search(r"&([^&])", text)
    return match.group(1).upper() if match else None


def height(control):
    return 13 if control.kind.startswith("combo") else control.height


def overlap(a, b):
    return (a.x < b.x + b.width and b.x < a.x + a.width
            and a.y < b.y + height(b) and b.y < a.y + height(a))


def exclusive(a, b):
    return (a.id in ONE_LINE and b.id in MANY_LINES) or (b.id in ONE_LINE and a.id in MANY_LINES)


class StringTest(unittest.TestCase):
    def test_both_languages_have_the_same_strings(self):
        self.assertEqual(set(STRINGS["ja"]), set(STRINGS["en"]))
        self.assertGreater(len(STRINGS["ja"]), 100)

    def test_every_id_that_the_module_uses_exists(self):
        """Numbers of these ranges in the module's code are ids; so are its constants of type UINT."""
        used = {}
        for source in [*(ROOT / "module").rglob("*.cpp"), *(ROOT / "module").rglob("*.h")]:
            code = re.sub(r"//.*", "", source.read_text("utf-8"))
            named = re.findall(r"constexpr UINT \w+ = (\d{3,4});", code)
            for id in map(int, [*re.findall(r"(?<![\w.])\d{4}(?![\w.])", code), *named]):
                if str(id) in named or any(first <= id <= last for first, last in USED_RANGES):
                    used[id] = source.name
        self.assertGreater(len(used), 20)
        known = set(STRINGS["ja"]) | set(DIALOGS["ja"]) | set(ICONS["ja"])
        known |= {control.id for dialog in DIALOGS["ja"].values() for control in dialog.controls}
        self.assertEqual({id: name for id, name in used.items() if id not in known}, {})

    def test_formats(self):
        for language in LANGUAGES:
            for id, text in STRINGS[language].items():
                self.assertEqual(formats(text), FORMATS.get(id, []), f"{language} {id}: {text}")

    def test_lengths(self):
        for language in LANGUAGES:
            for id, text in STRINGS[language].items():
                with self.subTest(language=language, id=id):
                    self.assertLessEqual(len(text), LIMITS.get(id, DEFAULT_LIMIT))
                    self.assertLessEqual(len(text.encode()), NARROW_LIMITS.get(id, 10**6))

    def test_command_line_texts(self):
        for language in LANGUAGES:
            for id in COMMAND_LINE:
                text = STRINGS[language][id]
                with self.subTest(language=language, id=id):
                    self.assertEqual(text.startswith("\n"), id not in OWN_LINE_BREAK)
                    self.assertEqual(text.endswith(": "), id in PROMPTS)

    def test_labels_are_told_apart(self):
        """Combo boxes find an entry by its beginning, without regard to case."""
        for language in LANGUAGES:
            for name, ids in LABELS.items():
                labels = [STRINGS[language][id].casefold() for id in ids]
                for a, b in combinations(labels, 2):
                    self.assertFalse(a.startswith(b) or b.startswith(a), f"{language} {name}: {a}, {b}")

    def test_fixed_wordings(self):
        self.assertEqual(STRINGS["ja"][2809], "左寄せ")
        self.assertRegex(STRINGS["ja"][2731] + STRINGS["en"][2731], "^<.*><.*>$")
        self.assertEqual([STRINGS["ja"][3901], STRINGS["en"][3901]], [STRINGS["en"][2731], STRINGS["ja"][2731]])


class DialogTest(unittest.TestCase):
    def each(self):
        return [(language, template, dialog) for language in LANGUAGES
                for template, dialog in DIALOGS[language].items()]

    def test_controls_and_kinds(self):
        self.assertEqual(set(DIALOGS["ja"]), set(CONTROLS))
        for _, template, dialog in self.each():
            kinds = {}
            for control in dialog.controls:
                if control.id != res_file.NO_ID:
                    kinds.setdefault(control.kind, set()).add(control.id)
            self.assertEqual(kinds, {kind: set(ids) for kind, ids in CONTROLS[template].items()}, template)

    def test_both_languages_have_the_same_order(self):
        order = {language: {template: [control.id for control in dialog.controls]
                            for template, dialog in DIALOGS[language].items()} for language in LANGUAGES}
        self.assertEqual(order["ja"], order["en"])

    def test_nothing_overlaps_or_leaves_the_dialog(self):
        for _, template, dialog in self.each():
            solid = [control for control in dialog.controls if control.kind not in FRAMES]
            for a, b in combinations(solid, 2):
                self.assertTrue(exclusive(a, b) or not overlap(a, b), f"{template}: {a} {b}")
            for control in dialog.controls:
                self.assertTrue(control.x >= 4 and control.x + control.width <= dialog.width - 4, control)
                self.assertTrue(control.y >= 4 and control.y + height(control) <= dialog.height - 4, control)

    def test_frames_hold_controls_whole(self):
        for _, _, dialog in self.each():
            for frame in (control for control in dialog.controls if control.kind in FRAMES):
                for control in dialog.controls:
                    if control is not frame and overlap(frame, control):
                        self.assertTrue(control.x > frame.x and control.y > frame.y
                                        and control.x + control.width < frame.x + frame.width
                                        and control.y + height(control) < frame.y + frame.height, control)

    def test_captions_fit(self):
        extra = {"check": 12, "radio": 12, "button": 4}
        for language, template, dialog in self.each():
            for control in dialog.controls:
                if control.id in TOOL_TIPS.get(template, ()):
                    self.assertTrue(control.text)
                    self.assertLessEqual(len(control.text), TOOL_TIP_LIMIT)
                else:
                    room = control.width - extra.get(control.kind, 0)
                    self.assertLessEqual(units(control.text), room, f"{control.id} {control.text}")
                    self.assertGreaterEqual(height(control), LINE_HEIGHT, control)
            self.assertLessEqual(units(dialog.title), dialog.width - CLOSE_BOX, dialog.title)

    def test_access_keys(self):
        for _, template, dialog in self.each():
            keys = [access_key(control.text) for control in dialog.controls if access_key(control.text)]
            self.assertEqual(sorted(set(keys)), sorted(keys), template)
            for control in dialog.controls:
                needs = control.kind in ("check", "radio") or (
                    control.kind == "button" and control.id > 2 and control.text != "<"
                    and control.id not in TOOL_TIPS.get(template, ()))
                self.assertEqual(bool(access_key(control.text)), needs or control.text.endswith(":"), control)

    def test_labels_stand_right_before_their_fields(self):
        """An access key of a label leads to the next control that takes the focus."""
        for _, _, dialog in self.each():
            for label, following in zip(dialog.controls, dialog.controls[1:]):
                if label.kind == "static" and label.text.endswith(":"):
                    field = following
                    self.assertIn(field.kind.split()[0], ("edit", "combo", "radio"), label)
                    beside = abs(field.y - label.y) <= 4 and field.x >= label.x + label.width
                    below = 0 < field.y - label.y <= 12 and field.x == label.x
                    self.assertTrue(beside or below, f"{label} {field}")

    def test_every_radio_set_begins_and_ends_a_group(self):
        for _, _, dialog in self.each():
            group, previous = 0x00020000, None
            for control in dialog.controls:
                if control.kind == "radio" and (previous is None or previous.kind != "radio"):
                    self.assertTrue(control.style & group, control)
                if previous is not None and previous.kind == "radio" and control.kind != "radio":
                    self.assertTrue(control.style & group, control)
                previous = control

    def test_modeless_dialogs_start_hidden(self):
        for _, template, dialog in self.each():
            self.assertFalse(dialog.style & 0x10000000 and template not in MODAL)

    def test_array_section_of_the_text_dialogs(self):
        """1952 begins the section, which ends before OK; the room left of it is the margin below OK."""
        for _, template, dialog in self.each():
            if template in (523, 524, *MODAL):
                continue
            ids = [control.id for control in dialog.controls]
            section = set(ids[ids.index(1952):ids.index(1)])
            self.assertEqual(section, {1952, *range(1960, 1967), *range(1948, 1952), *range(1938, 1942)})
            self.assertEqual(ids[-2:], [1, 2])
            begin = dialog.control(1952)
            below = [c for c in dialog.controls if c.id not in section | {1, 2}]
            self.assertLess(max(c.y + height(c) for c in below), begin.y)
            if 2005 in ids:
                self.assertLess(ids.index(2004), ids.index(2005))
                frame = dialog.control(2004)
                self.assertTrue(all(c.y > frame.y + frame.height for c in dialog.controls[ids.index(2005):]))


class IconTest(unittest.TestCase):
    def test_sizes(self):
        for language in LANGUAGES:
            self.assertEqual(ICONS[language], {id: [(size, size) for size in sizes] for id, sizes in ICON_SIZES.items()})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
