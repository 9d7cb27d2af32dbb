"""The example drawings are what the script makes. Usage: test_examples.py SOURCE-ROOT"""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(sys.argv[1])


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


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
