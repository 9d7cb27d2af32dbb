"""The example drawings are what their generator makes, and the scripts do on them what they say.
Usage: test_examples.py SOURCE-ROOT PROGRAM"""

import csv
import io
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(sys.argv[1])
PROGRAM = sys.argv[2]


def texts(drawing):
    """The drawing's texts and attributes by handle."""
    listing = subprocess.run([PROGRAM, "list", drawing, "--format", "csv"], check=True, capture_output=True).stdout
    return {row["handle"]: row for row in csv.DictReader(io.StringIO(listing.decode("utf-8")))}


class ExampleTest(unittest.TestCase):
    def test_drawings_are_up_to_date(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, "-B", ROOT / "tools" / "make_example.py", folder], check=True)
            made = {path.name: path.read_bytes() for path in Path(folder).iterdir()}
        kept = {path.name: path.read_bytes() for path in (ROOT / "examples" / "panel").glob("*.dxf")}
        self.assertEqual(set(made), set(kept))
        self.assertEqual([name for name in made if made[name] != kept[name]], [])

    def test_project_names_its_drawings(self):
        panel = ROOT / "examples" / "panel"
        named = {value for line in (panel / "project.ini").read_text("utf-8").splitlines()
                 for key, _, value in [line.partition("=")] if key.isdigit() and value.endswith(".dxf")}
        self.assertEqual(named, {path.name for path in panel.glob("*.dxf")})

    def run_on_copy(self, script, language, folder, version="12.0"):
        """New texts, and the number of changed ones, by drawing."""
        copy = Path(folder) / f"{script}-{language}"
        shutil.copytree(ROOT / "examples" / "panel", copy)
        project = (copy / "project.ini").read_text("utf-8")
        self.assertIn("DataVersion=12.0", project)
        (copy / "project.ini").write_text(project.replace("DataVersion=12.0", f"DataVersion={version}"), "utf-8")
        drawings = sorted(copy.glob("*.dxf"))
        before = {drawing.name: texts(drawing) for drawing in drawings}
        subprocess.run([PROGRAM, "--project", copy, "--state", Path(folder) / "state.db", "--language", language,
                        "--script", ROOT / "examples" / script, "--save", *drawings], check=True, capture_output=True)
        result = {}
        for drawing in drawings:
            old, now = before[drawing.name], texts(drawing)
            new = [row for handle, row in now.items() if handle not in old]
            result[drawing.stem] = new, sum(now[handle] != row for handle, row in old.items())
        return result

    def test_scripts_do_what_they_say(self):
        """In either language, also with what the run before left in the dialogs."""
        scripts = {path.name for path in (ROOT / "examples").glob("*.kovra")}
        self.assertEqual(scripts, {"align_texts.kovra", "attr_copy.kovra", "change_properties.kovra", "count_up.kovra",
                                   "edit_properties.kovra", "options.kovra", "place_texts.kovra",
                                   "place_texts_one_by_one.kovra", "property_copy.kovra", "resize_text.kovra"})
        with tempfile.TemporaryDirectory() as folder:
            for language in ("en", "ja"):
                placed = self.run_on_copy("place_texts.kovra", language, folder)
                row = [f"X{number}" for number in range(904, 916)]
                note = ["NOTES", "1. X904 TO X915 ARE SPARE", "2. TIGHTEN M4 WITH 1.2 Nm"]
                self.assertEqual([text["value"] for text in placed["terminals"][0]], row + note)
                self.assertEqual([text["value"] for text in placed["motor-1"][0]], ["E1", "E2", "E3"])
                self.assertEqual({text["layer"] for text in placed["motor-1"][0]}, {"WIRENO"})
                self.assertGreater(placed["motor-1"][1], 40)
                self.assertEqual(placed["motor-2"], ([], 0))
                counted = self.run_on_copy("count_up.kovra", language, folder)
                self.assertEqual([text["value"] for text in counted["motor-1"][0]],
                                 [f"X{number:03}" for number in range(4, 61)])
                older = self.run_on_copy("place_texts_one_by_one.kovra", language, folder, "6.0")
                self.assertEqual([(text["value"], text["layer"], float(text["height"])) for text in older["motor-1"][0]],
                                 [("SPARE A", "ECMNT", 2.5), ("SPARE B", "ECMNT", 2.5),
                                  ("MC1A", "SYMBOL", 4), ("No.1", "SYMBOL", 2)])
                aligned = self.run_on_copy("align_texts.kovra", language, folder)
                self.assertEqual((aligned["motor-1"], aligned["motor-2"]), (([], 7), ([], 0)))
                self.assertEqual([(float(text["x"]), float(text["y"])) for text in aligned["terminals"][0]],
                                 [(604, 330 - 10 * row) for row in range(7)])
                changed = self.run_on_copy("change_properties.kovra", language, folder)
                self.assertEqual([changed[sheet] for sheet in ("motor-1", "motor-2", "terminals")], [([], 7), ([], 0), ([], 0)])
                sets = self.run_on_copy("edit_properties.kovra", language, folder)
                self.assertEqual([sets[name] for name in ("motor-1", "motor-2", "terminals")], [([], 8), ([], 0), ([], 3)])
                resized = self.run_on_copy("resize_text.kovra", language, folder)
                self.assertEqual((resized["motor-1"], resized["motor-2"]), (([], 3), ([], 0)))
                self.assertEqual(set(map(str, self.run_on_copy("options.kovra", language, folder).values())), {"([], 0)"})
                tables = (Path(folder) / f"options.kovra-{language}" / "KovrCad.prm").read_text("utf-8")
                for key, values in (("LAYER", "CMNT ECMNT SYMBOL CABLE WIRENO AUX"), ("TEXT_H", "1.8 2.5 3.5 5 7.00"),
                                    ("TEXT_ROT", "0.0 90.0 270.0")):
                    count = int(re.search(rf"^{key}_CNT=(.*)$", tables, re.M)[1])
                    rows = dict(re.findall(rf"^{key}(\d+)=(.*)$", tables, re.M))
                    self.assertEqual([rows[str(row)] for row in range(1, count + 1)], values.split())
                copied = self.run_on_copy("attr_copy.kovra", language, folder)
                self.assertTrue(all(new == [] and changed > 0 for new, changed in copied.values()))
                everywhere = self.run_on_copy("property_copy.kovra", language, folder)
                for name, result in everywhere.items():
                    listed = [row for row in texts(ROOT / "examples" / "panel" / f"{name}.dxf").values()
                              if row["space"] == "model" and re.fullmatch(r"NAME\d?", row["tag"])
                              or (name, row["space"], row["tag"]) == ("motor-1", "model", "CAP")]
                    self.assertEqual(result, ([], len(listed)))

    def test_jobs_for_a_shelf(self):
        jobs = ROOT / "examples" / "shelf"

        def run(*command, status=0):
            done = subprocess.run(command, cwd=folder, env={**os.environ, "KOVRA": PROGRAM}, capture_output=True, text=True)
            self.assertEqual(done.returncode, status, done.stdout + done.stderr)
            return done.stdout.splitlines()

        with tempfile.TemporaryDirectory() as folder:
            shelf = Path(folder) / "shelf"
            shutil.copytree(ROOT / "examples" / "panel", shelf / "panel")
            wires = run(jobs / "wire_table.py", "shelf")
            self.assertEqual(wires[:2], ["wire,drawing,ends", "10,shelf/panel/motor-2.dxf,3"])
            self.assertEqual(run(jobs / "renumber_terminals.py", "shelf/panel", "shelf", "TB1-", "TB1-", "98"),
                             ["shelf/panel/motor-1.dxf: TB1-98 to TB1-104"])
            numbers = [(row["value"], row["x"], row["layer"]) for row in texts(shelf / "panel" / "motor-1.dxf").values()
                       if row["value"].startswith("TB1-")]
            self.assertEqual(numbers, [(f"TB1-{98 + i}", str(56 + 52 * i), "AUX") for i in range(7)])
            fault = "shelf/panel/motor-1.dxf: X009 (172) and CV 5.5sq-4C (18C) overlap"
            self.assertIn(fault, faults := run(jobs / "find_faults.py", "shelf", status=1))
            run(PROGRAM, "each", "shelf", "-s", jobs / "attribute_heights.kovra")
            self.assertIn("shelf/panel/motor-1.dxf: X001 (F0) and X002 (FA) overlap",
                          set(run(jobs / "find_faults.py", "shelf", status=1)) - set(faults))
            run(PROGRAM, "shelf/panel/motor-1.dxf", "--save", "-c", "-KOVRA_ATTR_COPY", "-c", "SENBAN1 /L AUX")
            self.assertIn("shelf/panel/motor-1.dxf: wire number U1 (F1) lies on AUX",
                          run(jobs / "find_faults.py", "shelf", status=1))
            run(jobs / "pictures.sh", "shelf", "pictures")
            self.assertGreater((Path(folder) / "pictures" / "panel" / "motor-2.dxf.png").stat().st_size, 10000)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
